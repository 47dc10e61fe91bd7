#include "app/window/Controls.h"

#include "windows/Text.h"

#include <stdexcept>

namespace window
{

using windows::fromWide;
using windows::toWide;

HWND createControl(HWND parent, const wchar_t* windowClass, std::string_view text, DWORD style,
                   DWORD extendedStyle, int id)
{
    const HWND window = CreateWindowExW(extendedStyle, windowClass, toWide(text).c_str(),
                                        WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0, parent,
                                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                                        GetModuleHandleW(nullptr), nullptr);
    if (window == nullptr)
        throw std::runtime_error("Windows refused a control of class " + fromWide(windowClass));
    return window;
}

std::string windowText(HWND window)
{
    const int length = GetWindowTextLengthW(window);
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), length + 1)));
    return fromWide(text);
}

void setWindowText(HWND window, std::string_view text)
{
    if (windowText(window) != text)
        SetWindowTextW(window, toWide(text).c_str());
}

void setFont(HWND window, const Font& font)
{
    SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(font.handle()), TRUE);
}

form::ScreenPlace placeOf(HWND window)
{
    RECT place{};
    GetWindowRect(window, &place);
    return {place.left, place.top, place.right, place.bottom};
}

void moveTo(HWND window, const form::ScreenPlace& place)
{
    SetWindowPos(window, nullptr, place.left, place.top, place.right - place.left,
                 place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

form::ScreenPlace workAreaOf(HWND window)
{
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
    const RECT& area = monitor.rcWork;
    return {area.left, area.top, area.right, area.bottom};
}

SIZE windowSize(HWND window, int width, int height, UINT dotsPerInch)
{
    const Pixels pixels(dotsPerInch);
    RECT frame{0, 0, pixels.fromTwips(width), pixels.fromTwips(height)};
    AdjustWindowRectExForDpi(&frame, static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE)), FALSE,
                             static_cast<DWORD>(GetWindowLongW(window, GWL_EXSTYLE)), dotsPerInch);
    return {frame.right - frame.left, frame.bottom - frame.top};
}

}  // namespace window
