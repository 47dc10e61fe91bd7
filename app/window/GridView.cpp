#include "app/window/GridView.h"

#include "app/window/NameSearch.h"
#include "windows/Text.h"

#include <algorithm>
#include <limits>
#include <type_traits>

namespace window
{

using form::ParameterGrid;
using windows::fromWide;
using windows::toWide;

namespace
{

constexpr int defaultColumnWidth = 960;  // twips, of the columns to which the form gives no width

constexpr int allItems = -1;  // also in what the list view tells
constexpr UINT showSelectionMessage = WM_APP + 1;

// The list view counts parameter rows from 0, the grid from 1.
int rowOf(int item)
{
    return item + 1;
}

int itemOf(int row)
{
    return row - 1;
}

// Another program may have the clipboard open for a moment.
bool openClipboard(HWND owner)
{
    constexpr int tries = 10;
    constexpr DWORD pause = 20;  // milliseconds
    for (int i = 0; i < tries; ++i) {
        if (OpenClipboard(owner) != FALSE)
            return true;
        Sleep(pause);
    }
    return false;
}

void putOnClipboard(HWND owner, const std::wstring& text)
{
    const std::size_t size = (text.size() + 1) * sizeof(wchar_t);
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, size);
    if (memory == nullptr)
        return;
    std::copy_n(text.c_str(), text.size() + 1, static_cast<wchar_t*>(GlobalLock(memory)));
    GlobalUnlock(memory);
    bool given = false;
    if (openClipboard(owner)) {
        EmptyClipboard();
        given = SetClipboardData(CF_UNICODETEXT, memory) != nullptr;
        CloseClipboard();
    }
    if (!given)
        GlobalFree(memory);
}

}  // namespace

GridView::GridView(HWND parent, int id, ParameterGrid& grid, std::function<void(int)> onKey)
    : window_(createControl(
          parent, WC_LISTVIEWW, "",
          WS_TABSTOP | LVS_REPORT | LVS_OWNERDATA | LVS_SHOWSELALWAYS | LVS_NOSORTHEADER,
          WS_EX_CLIENTEDGE, id)),
      grid_(grid),
      onKey_(std::move(onKey))
{
    ListView_SetExtendedListViewStyle(
        window_, LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES | LVS_EX_DOUBLEBUFFER | LVS_EX_INFOTIP);
    SetWindowSubclass(window_, listProcedure, 1, reinterpret_cast<DWORD_PTR>(this));
    addColumns();
}

void GridView::addColumns()
{
    for (int column = 0; column < grid_.Cols(); ++column) {
        std::wstring title = toWide(grid_.text(0, column));
        LVCOLUMNW info{};
        info.mask = LVCF_TEXT | LVCF_FMT | LVCF_WIDTH;
        info.fmt = LVCFMT_LEFT;
        info.pszText = title.data();
        SendMessageW(window_, LVM_INSERTCOLUMNW, static_cast<WPARAM>(column),
                     reinterpret_cast<LPARAM>(&info));
    }
}

void GridView::setResolution(Pixels pixels)
{
    pixels_ = pixels;
    settingWidths_ = true;
    for (int column = 0; column < grid_.Cols(); ++column) {
        const int width = grid_.ColWidth[static_cast<std::size_t>(column)];
        ListView_SetColumnWidth(window_, column,
                                pixels_.fromTwips(width == 0 ? defaultColumnWidth : width));
    }
    settingWidths_ = false;
}

void GridView::update()
{
    updating_ = true;
    const int count = grid_.Rows() - 1;
    ListView_SetItemCountEx(window_, count, LVSICF_NOSCROLL);
    selected_.set(count, std::numeric_limits<int>::max(), false);  // it says nothing of these
    InvalidateRect(window_, nullptr, FALSE);
    updating_ = false;
    showSelection();
}

void GridView::showColours(bool isOn)
{
    const COLORREF text = GetSysColor(isOn ? COLOR_WINDOWTEXT : COLOR_GRAYTEXT);
    const COLORREF background = GetSysColor(isOn ? COLOR_WINDOW : COLOR_BTNFACE);
    if (ListView_GetTextColor(window_) == text && ListView_GetBkColor(window_) == background)
        return;
    ListView_SetTextColor(window_, text);
    ListView_SetTextBkColor(window_, background);
    ListView_SetBkColor(window_, background);
    InvalidateRect(window_, nullptr, TRUE);
}

bool GridView::sends(const NMHDR& header) const
{
    return header.hwndFrom == window_ || header.hwndFrom == ListView_GetHeader(window_);
}

LRESULT GridView::notify(const NMHDR& header)
{
    void* const info = const_cast<NMHDR*>(&header);
    switch (header.code) {
    case LVN_GETDISPINFOW:
        giveCell(static_cast<NMLVDISPINFOW*>(info)->item);
        break;
    case LVN_GETDISPINFOA:
        giveCell(static_cast<NMLVDISPINFOA*>(info)->item);
        break;
    case LVN_ITEMCHANGED: {
        const auto& change = *static_cast<NMLISTVIEW*>(info);
        followSelection(change.iItem, change.iItem, change.uOldState, change.uNewState);
        break;
    }
    case LVN_ODSTATECHANGED: {
        const auto& change = *static_cast<NMLVODSTATECHANGE*>(info);
        followSelection(change.iFrom, change.iTo, change.uOldState, change.uNewState);
        break;
    }
    case LVN_ODFINDITEMW: {
        const auto& search = *static_cast<NMLVFINDITEMW*>(info);
        return findItem(grid_, search.lvfi.flags,
                        search.lvfi.psz == nullptr ? "" : fromWide(search.lvfi.psz), search.iStart);
    }
    case LVN_ODFINDITEMA: {
        const auto& search = *static_cast<NMLVFINDITEMA*>(info);
        return findItem(grid_, search.lvfi.flags,
                        search.lvfi.psz == nullptr ? "" : windows::fromAnsi(search.lvfi.psz),
                        search.iStart);
    }
    case LVN_KEYDOWN:
        onKey_(static_cast<NMLVKEYDOWN*>(info)->wVKey);
        break;
    case HDN_ENDTRACKW:
    case HDN_ENDTRACKA:
    case HDN_ITEMCHANGEDW:
    case HDN_ITEMCHANGEDA:
        if (!settingWidths_)
            takeColumnWidths();
        break;
    default:
        break;
    }
    return 0;
}

// Gives the list view a text, which must stay until the list view asks for the next one.
template <class Info>
void GridView::giveCell(Info& info)
{
    const int row = rowOf(info.iItem);
    if ((info.mask & LVIF_TEXT) == 0 || row >= grid_.Rows() || info.iSubItem >= grid_.Cols())
        return;
    cell_ = toWide(grid_.text(row, info.iSubItem));
    if constexpr (std::is_same_v<std::remove_reference_t<decltype(*info.pszText)>, wchar_t>) {
        info.pszText = cell_.data();
    }
    else {
        narrowCell_.resize(cell_.size() * 4 + 1);
        WideCharToMultiByte(CP_ACP, 0, cell_.c_str(), -1, narrowCell_.data(),
                            static_cast<int>(narrowCell_.size()), nullptr, nullptr);
        info.pszText = narrowCell_.data();
    }
}

void GridView::takeColumnWidths()
{
    for (int column = 0; column < grid_.Cols(); ++column) {
        int& width = grid_.ColWidth[static_cast<std::size_t>(column)];
        // Only a real change is taken, so that rounding errors do not add up.
        const int pixels = ListView_GetColumnWidth(window_, column);
        if (pixels != pixels_.fromTwips(width == 0 ? defaultColumnWidth : width))
            width = pixels_.toTwips(pixels);
    }
}

// What the list view tells of a change, in items from first to last. It may be of the focus only,
// which leaves one item before the list view has told of the selection of another.
void GridView::followSelection(int first, int last, UINT before, UINT now)
{
    if (((before ^ now) & LVIS_SELECTED) == 0)
        return;
    if (first == allItems) {
        first = 0;
        last = ListView_GetItemCount(window_) - 1;
    }
    selected_.set(first, last + 1, (now & LVIS_SELECTED) != 0);
    if (!updating_)
        takeSelection();
}

// Nearly always there is nothing to do. Where the list view selected something without a word, it
// is asked for all that it has.
void GridView::agreeOnSelection()
{
    if (selected_.count() == static_cast<int>(ListView_GetSelectedCount(window_)))
        return;
    selected_.clear();
    for (int item = -1; (item = ListView_GetNextItem(window_, item, LVNI_SELECTED)) >= 0;)
        selected_.set(item, item + 1, true);
}

void GridView::takeSelection()
{
    agreeOnSelection();
    if (selected_.count() == 0) {
        // The grid always has a selection. The list view drops its old one before it makes a new
        // one, so the grid's is shown again later, if no new one has come by then.
        PostMessageW(window_, showSelectionMessage, 0, 0);
        return;
    }
    if (selected_.haveHoles()) {
        grid_.Row = rowOf(std::max(0, ListView_GetNextItem(window_, -1, LVNI_FOCUSED)));
        grid_.RowSel = grid_.Row;
        showSelection();
        return;
    }
    const int first = selected_.first();
    const int last = first + selected_.count() - 1;
    const bool upwards = ListView_GetSelectionMark(window_) == last;
    grid_.Row = rowOf(upwards ? last : first);
    grid_.RowSel = rowOf(upwards ? first : last);
}

// An empty grid shows no selection: there is nothing to remove or to copy.
form::RowRange GridView::shownSelection() const
{
    const bool isEmpty = grid_.Rows() == 2 && grid_.text(1, ParameterGrid::nameColumn).empty();
    return isEmpty ? form::RowRange{1, 0} : grid_.selectedRows();
}

void GridView::showSelection()
{
    const form::RowRange rows = shownSelection();
    agreeOnSelection();
    const bool isShown = !selected_.haveHoles() && selected_.count() == rows.count &&
                         (rows.count == 0 || selected_.first() == itemOf(rows.first));
    if (isShown)
        return;

    updating_ = true;
    setItemState(allItems, 0, LVIS_SELECTED);
    if (rows.count > 0) {
        if (rows.count == grid_.Rows() - 1)
            setItemState(allItems, LVIS_SELECTED, LVIS_SELECTED);
        else
            for (int i = 0; i < rows.count; ++i)
                setItemState(itemOf(rows.first + i), LVIS_SELECTED, LVIS_SELECTED);
        setItemState(itemOf(grid_.Row), LVIS_FOCUSED, LVIS_FOCUSED);
        ListView_SetSelectionMark(window_, itemOf(grid_.Row));
    }
    updating_ = false;
}

void GridView::setItemState(int item, UINT state, UINT mask)
{
    LVITEMW info{};
    info.state = state;
    info.stateMask = mask;
    SendMessageW(window_, LVM_SETITEMSTATE, static_cast<WPARAM>(item),
                 reinterpret_cast<LPARAM>(&info));
}

void GridView::selectAll()
{
    grid_.Row = 1;
    grid_.RowSel = grid_.Rows() - 1;
    showSelection();
}

void GridView::copySelection()
{
    const form::RowRange rows = shownSelection();
    std::string text;
    for (int i = 0; i < rows.count; ++i)
        text += grid_.rowText(rows.first + i) + "\r\n";
    if (!text.empty())
        putOnClipboard(window_, toWide(text));
}

LRESULT CALLBACK GridView::listProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                         UINT_PTR, DWORD_PTR self)
{
    GridView& view = *reinterpret_cast<GridView*>(self);
    const bool control = GetKeyState(VK_CONTROL) < 0;
    switch (message) {
    case showSelectionMessage:
        view.showSelection();
        return 0;
    case WM_LBUTTONDOWN:
        // The grid knows no selection with holes in it.
        wParam &= ~static_cast<WPARAM>(MK_CONTROL);
        break;
    case WM_KEYDOWN:
        if (control && wParam == 'A')
            view.selectAll();
        else if (control && wParam == 'C')
            view.copySelection();
        if (control && wParam == VK_SPACE)
            return 0;
        break;
    default:
        break;
    }
    return DefSubclassProc(window, message, wParam, lParam);
}

}  // namespace window
