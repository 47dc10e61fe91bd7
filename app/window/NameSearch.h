// Finds rows by their names: the one that a list view looks for when letters are typed in it, and
// the one that has a text anywhere.
#pragma once

#include "form/ParameterGrid.h"

#include <windows.h>

#include <string_view>

namespace window
{

/// The item, counted from 0, whose name has this text, with the list view's LVFI_ flags; -1 when
/// there is none. Only texts can be looked for. Capital and small letters are the same.
int findItem(const form::ParameterGrid& grid, UINT flags, std::string_view text, int start);

/// The item whose name has this text anywhere, from this one on and round; -1 when there is none.
int findAnywhere(const form::ParameterGrid& grid, std::string_view text, int start);

}  // namespace window
