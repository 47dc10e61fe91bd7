// FEMAP's main window: whose it is, and whether it handles messages now.
#pragma once

#include "femap/com/Dispatch.h"

#include <windows.h>

namespace femap::com
{

/// FEMAP's main window; null when it does not tell. Asked once for each connection.
HWND mainWindowOf(Dispatch& application);
/// The process that the window belongs to; 0 where there is none.
DWORD processOf(HWND window);
/// Whether its thread handles messages, among which calls are. Finds out in a moment.
bool handlesMessages(HWND window);

}  // namespace femap::com
