#pragma once

#include "app/form/ParameterGrid.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace selection
{

// What the rows of both grids have in common.

/// A text without any of these characters.
std::string without(std::string_view text, std::string_view characters);

/// The first so many characters of a UTF-8 text; a character is never split.
std::string_view firstCharacters(std::string_view text, std::size_t count);

/// Removes the blank row that an empty grid carries, once there are others. True when it did.
bool removeBlankFirstRow(form::ParameterGrid& grid);

}  // namespace selection
