// Finds the row that a list view looks for when letters are typed in it.
#pragma once

#include "form/ParameterGrid.h"

#include <windows.h>

#include <string_view>

namespace window
{

/// The item, counted from 0, whose name has this text, with the list view's LVFI_ flags; -1 when
/// there is none. Only texts can be looked for. Capital and small letters are the same.
int findItem(const form::ParameterGrid& grid, UINT flags, std::string_view text, int start);

}  // namespace window
