// Dialogs whose controls are made when they open.
#pragma once

#include <windows.h>

namespace windows
{

/// Shows an empty dialog that can be sized, until the procedure ends it; returns what it was ended
/// with. The procedure gets the instance with WM_INITDIALOG, and makes the controls then.
INT_PTR showEmptyDialog(HWND owner, DWORD extendedStyle, DLGPROC procedure, void* instance);

/// The same beside its owner, which stays usable; it is there, but not shown yet. Null when Windows
/// refuses it.
HWND createEmptyDialog(HWND owner, DWORD extendedStyle, DLGPROC procedure, void* instance);

}  // namespace windows
