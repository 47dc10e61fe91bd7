#include "ListViews.h"

#include "RemoteMemory.h"
#include "windows/Text.h"

#include <commctrl.h>

namespace driver
{

POINT rowPlaceIn(HWND listView, int item)
{
    const auto spacing = [&](int rows) {
        return HIWORD(
            SendMessageW(listView, LVM_APPROXIMATEVIEWRECT, static_cast<WPARAM>(rows), -1));
    };
    const HWND header = FindWindowExW(listView, nullptr, L"SysHeader32", nullptr);
    RECT place{};
    if ((GetWindowLongW(listView, GWL_STYLE) & LVS_NOCOLUMNHEADER) == 0)
        GetWindowRect(header, &place);
    const int rowHeight = spacing(2) - spacing(1);
    const int above = item - static_cast<int>(SendMessageW(listView, LVM_GETTOPINDEX, 0, 0));
    return {30, place.bottom - place.top + rowHeight * above + rowHeight / 2};
}

int pictureOf(HANDLE process, HWND listView, int item)
{
    RemoteMemory there(process, sizeof(LVITEMW));
    LVITEMW info{};
    info.mask = LVIF_IMAGE;
    info.iItem = item;
    there.write(info);
    SendMessageW(listView, LVM_GETITEMW, 0, there.parameter());
    return there.read<LVITEMW>().iImage;
}

std::string cellIn(HWND listView, int item, int column)
{
    constexpr int most = 1000;
    wchar_t text[most]{};
    LVITEMW info{};
    info.iSubItem = column;
    info.pszText = text;
    info.cchTextMax = most;
    SendMessageW(listView, LVM_GETITEMTEXTW, static_cast<WPARAM>(item),
                 reinterpret_cast<LPARAM>(&info));
    return windows::fromWide(text);
}

bool isTicked(HWND listView, int item)
{
    const LRESULT state =
        SendMessageW(listView, LVM_GETITEMSTATE, static_cast<WPARAM>(item), LVIS_STATEIMAGEMASK);
    return state == INDEXTOSTATEIMAGEMASK(2);
}

int tickedCount(HWND listView)
{
    const auto count = static_cast<int>(SendMessageW(listView, LVM_GETITEMCOUNT, 0, 0));
    int ticked = 0;
    for (int item = 0; item < count; ++item)
        ticked += isTicked(listView, item) ? 1 : 0;
    return ticked;
}

void postClick(HWND window, POINT place)
{
    const LPARAM where = MAKELPARAM(place.x, place.y);
    PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, where);
    PostMessageW(window, WM_LBUTTONUP, 0, where);
}

}  // namespace driver
