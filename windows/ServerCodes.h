// What the result of a call to another program's object tells of that program.
#pragma once

#include <windows.h>

namespace windows
{

/// Whether the program has ended or cannot be reached any more: further calls fail as well.
bool meansServerGone(HRESULT result);

}  // namespace windows
