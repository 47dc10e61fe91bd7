// What the rows of both grids have in common: cleaning names and removing the blank row.
#pragma once

#include "form/ParameterGrid.h"

#include <string>
#include <string_view>

namespace selection
{

/// A text without any of these characters.
std::string without(std::string_view text, std::string_view characters);

/// Removes the blank row that an empty grid carries, once there are others. True when it did.
bool removeBlankFirstRow(form::ParameterGrid& grid);

}  // namespace selection
