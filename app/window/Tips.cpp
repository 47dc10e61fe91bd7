#include "app/window/Tips.h"

#include "windows/Text.h"

#include <commctrl.h>
#include <string>

namespace window
{

namespace
{

constexpr int timeToRead = 30000;  // milliseconds; messages are longer than usual tips
constexpr std::size_t longestTip = 4000;

void tell(UINT message, HWND tips, HWND owner, HWND control, std::string_view text)
{
    std::wstring wide = windows::toWide(text);
    if (wide.size() > longestTip)
        wide.replace(longestTip, std::wstring::npos, L" …");
    TTTOOLINFOW info{};
    info.cbSize = sizeof info;
    info.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    info.hwnd = owner;
    info.uId = reinterpret_cast<UINT_PTR>(control);
    info.lpszText = wide.data();
    SendMessageW(tips, message, 0, reinterpret_cast<LPARAM>(&info));
}

}  // namespace

HWND createTips(HWND owner)
{
    const HWND tips =
        CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX,
                        CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, owner, nullptr,
                        GetModuleHandleW(nullptr), nullptr);
    SendMessageW(tips, TTM_SETDELAYTIME, TTDT_AUTOPOP, timeToRead);
    return tips;
}

void addTip(HWND tips, HWND owner, HWND control, std::string_view text)
{
    tell(TTM_ADDTOOLW, tips, owner, control, text);
}

void setTip(HWND tips, HWND owner, HWND control, std::string_view text)
{
    tell(TTM_UPDATETIPTEXTW, tips, owner, control, text);
}

void setTipWidth(HWND tips, int width)
{
    SendMessageW(tips, TTM_SETMAXTIPWIDTH, 0, width);
}

}  // namespace window
