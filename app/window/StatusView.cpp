#include "app/window/StatusView.h"

#include "app/window/Tips.h"
#include "windows/Text.h"

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

}  // namespace

StatusView::StatusView(HWND parent, int id)
    : window_(createControl(parent, L"STATIC", "", ownStyle, 0, id))
{}

void StatusView::addTip(HWND tips, HWND owner)
{
    tips_ = tips;
    tipOwner_ = owner;
    window::addTip(tips_, tipOwner_, window_, windowText(window_));
}

void StatusView::show(std::string_view text)
{
    if (windowText(window_) == text)
        return;
    SetWindowTextW(window_, toWide(text).c_str());
    InvalidateRect(window_, nullptr, TRUE);
    setTip(tips_, tipOwner_, window_, text);
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
