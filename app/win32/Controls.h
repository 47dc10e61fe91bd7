#pragma once

#include "app/win32/Pixels.h"

#include <windows.h>

#include <string>
#include <string_view>

namespace win32
{

/// A font that is deleted with its owner.
class Font
{
public:
    /// The font of the user's message boxes at a resolution.
    explicit Font(UINT dotsPerInch);
    ~Font() { DeleteObject(font_); }
    Font(const Font&) = delete;
    Font& operator=(const Font&) = delete;

    HFONT handle() const { return font_; }

private:
    HFONT font_;
};

/// A child window with an ID of its own. Raises std::runtime_error when Windows refuses it.
HWND createControl(HWND parent, const wchar_t* windowClass, std::string_view text, DWORD style,
                   DWORD extendedStyle, int id);

std::string windowText(HWND window);
/// Changes the text only where it differs, so that nothing flickers.
void setWindowText(HWND window, std::string_view text);

void setFont(HWND window, const Font& font);

}  // namespace win32
