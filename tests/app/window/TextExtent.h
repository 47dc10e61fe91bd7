// How much room a text takes in the form's font, in pixels.
#pragma once

#include "app/window/Controls.h"
#include "windows/Text.h"

#include <windows.h>

#include <string_view>

namespace driver
{

inline SIZE extent(std::string_view text, UINT dotsPerInch)
{
    const window::Font font(dotsPerInch);
    const HDC screen = GetDC(nullptr);
    const HGDIOBJ before = SelectObject(screen, font.handle());
    const std::wstring wide = windows::toWide(text);
    SIZE size{};
    GetTextExtentPoint32W(screen, wide.c_str(), static_cast<int>(wide.size()), &size);
    SelectObject(screen, before);
    ReleaseDC(nullptr, screen);
    return size;
}

}  // namespace driver
