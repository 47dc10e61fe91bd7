#include "app/window/StatusView.h"

#include "windows/Text.h"

#include <commctrl.h>
#include <string>

namespace window
{

using windows::toWide;

namespace
{

// Windows itself ends a text in points on its first line only, and writes it in grey when it is
// off.
constexpr DWORD ownStyle = SS_OWNERDRAW | SS_NOTIFY | SS_NOPREFIX;
constexpr UINT twoLines = DT_LEFT | DT_WORDBREAK | DT_EDITCONTROL | DT_END_ELLIPSIS | DT_NOPREFIX;

TTTOOLINFOW toolOf(HWND window, HWND owner, std::wstring& text)
{
    TTTOOLINFOW info{};
    info.cbSize = sizeof info;
    info.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    info.hwnd = owner;
    info.uId = reinterpret_cast<UINT_PTR>(window);
    info.lpszText = text.data();
    return info;
}

}  // namespace

StatusView::StatusView(HWND parent, int id)
    : window_(createControl(parent, L"STATIC", "", ownStyle, 0, id))
{}

void StatusView::addTip(HWND tips, HWND owner)
{
    tips_ = tips;
    tipOwner_ = owner;
    std::wstring text = toWide(windowText(window_));
    TTTOOLINFOW info = toolOf(window_, tipOwner_, text);
    SendMessageW(tips_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&info));
}

void StatusView::show(std::string_view text)
{
    if (windowText(window_) == text)
        return;
    std::wstring wide = toWide(text);
    SetWindowTextW(window_, wide.c_str());
    InvalidateRect(window_, nullptr, TRUE);
    TTTOOLINFOW info = toolOf(window_, tipOwner_, wide);
    SendMessageW(tips_, TTM_UPDATETIPTEXTW, 0, reinterpret_cast<LPARAM>(&info));
}

void StatusView::draw(const DRAWITEMSTRUCT& item) const
{
    const std::wstring text = toWide(windowText(window_));
    RECT place = item.rcItem;
    FillRect(item.hDC, &place, GetSysColorBrush(COLOR_BTNFACE));
    const auto font = reinterpret_cast<HFONT>(SendMessageW(window_, WM_GETFONT, 0, 0));
    const HGDIOBJ before = font == nullptr ? nullptr : SelectObject(item.hDC, font);
    SetBkMode(item.hDC, TRANSPARENT);
    SetTextColor(item.hDC, GetSysColor(COLOR_BTNTEXT));
    DrawTextW(item.hDC, text.c_str(), static_cast<int>(text.size()), &place, twoLines);
    if (before != nullptr)
        SelectObject(item.hDC, before);
}

}  // namespace window
