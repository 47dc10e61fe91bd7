// What a box of the form does beyond Windows' own: typing completes to an item of its list, keys
// that move open the list, and a closed list leaves the wheel to the form.
#pragma once

#include <windows.h>

namespace window
{

/// Of a combo box that takes typed texts, for as long as it lives.
void giveHabits(HWND box);

}  // namespace window
