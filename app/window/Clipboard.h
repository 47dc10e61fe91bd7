// Puts texts onto the clipboard.
#pragma once

#include <windows.h>

#include <string>

namespace window
{

/// Leaves the clipboard as it is when another program keeps it.
void putOnClipboard(HWND owner, const std::wstring& text);

}  // namespace window
