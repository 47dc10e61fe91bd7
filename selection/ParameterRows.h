#pragma once

#include "app/form/ParameterGrid.h"

#include <string>
#include <string_view>

namespace selection
{

// What the rows of both grids have in common.

/// A text without any of these characters.
std::string without(std::string_view text, std::string_view characters);

/// Removes the blank row that an empty grid carries, once there are others. True when it did.
bool removeBlankFirstRow(form::ParameterGrid& grid);

}  // namespace selection
