// What an engineer does to end a wait for FEMAP. Windows hands out no keys while a program waits,
// so the queue is looked through for it.
#pragma once

#include <windows.h>

namespace window
{

enum class WaitEnd
{
    None,
    Escape,
    Close,
};

/// Whether Esc was pressed in a window of this program, or the form is to be closed: by its close
/// box, Alt+F4 or Windows. Takes that out of the queue, and other keys with it.
WaitEnd takeWaitEnd(HWND form);

}  // namespace window
