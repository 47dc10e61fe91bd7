// Creates Windows controls, and reads and sets their texts, fonts and places.
#pragma once

#include "app/window/Pixels.h"
#include "form/ScreenPlace.h"
#include "windows/Font.h"

#include <windows.h>

#include <string>
#include <string_view>

namespace window
{

using windows::Font;

/// A child window with an ID of its own. Raises std::runtime_error when Windows refuses it.
HWND createControl(HWND parent, const wchar_t* windowClass, std::string_view text, DWORD style,
                   DWORD extendedStyle, int id);

std::string windowText(HWND window);
/// Changes the text only where it differs, so that nothing flickers.
void setWindowText(HWND window, std::string_view text);

void setFont(HWND window, const Font& font);

form::ScreenPlace placeOf(HWND window);
void moveTo(HWND window, const form::ScreenPlace& place);
/// The size, frame included, of a window whose inside is so large, in twips.
SIZE windowSize(HWND window, int width, int height, UINT dotsPerInch);
/// What windows may use of the monitor that this one is on.
form::ScreenPlace workAreaOf(HWND window);

}  // namespace window
