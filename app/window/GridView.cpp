#include "app/window/GridView.h"

#include "app/window/Clipboard.h"
#include "app/window/NameSearch.h"
#include "app/window/Tips.h"
#include "windows/Text.h"

#include <algorithm>
#include <limits>
#include <type_traits>
#include <utility>

namespace window
{

using form::ParameterGrid;
using windows::fromWide;
using windows::toWide;

namespace
{

// Twips, of the columns to which the form gives no width.
constexpr int defaultColumnWidth = 960;
constexpr int headingMargins = 240;

}  // namespace

GridView::GridView(HWND parent, int id, ParameterGrid& grid,
                   std::span<const std::string_view> furtherHeadings,
                   std::function<void(int)> onKey, std::function<void()> onSelect)
    : window_(createControl(parent, WC_LISTVIEWW, "",
                            WS_TABSTOP | LVS_REPORT | LVS_OWNERDATA | LVS_SHOWSELALWAYS |
                                LVS_NOSORTHEADER | LVS_SHAREIMAGELISTS,
                            WS_EX_CLIENTEDGE, id)),
      grid_(grid),
      furtherHeadings_(furtherHeadings),
      onKey_(std::move(onKey)),
      onSelect_(std::move(onSelect))
{
    ListView_SetExtendedListViewStyle(
        window_, LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES | LVS_EX_DOUBLEBUFFER | LVS_EX_INFOTIP);
    SetWindowSubclass(window_, listProcedure, 1, reinterpret_cast<DWORD_PTR>(this));
    addColumns();
}

std::string GridView::heading(int column) const
{
    std::string own = grid_.text(0, column);
    const int named = grid_.Cols() - static_cast<int>(furtherHeadings_.size());
    if (own.empty() && column >= named)
        own = furtherHeadings_[static_cast<std::size_t>(column - named)];
    return own;
}

void GridView::addColumns()
{
    for (int column = 0; column < grid_.Cols(); ++column) {
        std::wstring title = toWide(heading(column));
        LVCOLUMNW info{};
        info.mask = LVCF_TEXT | LVCF_FMT | LVCF_WIDTH;
        info.fmt = LVCFMT_LEFT;
        info.pszText = title.data();
        SendMessageW(window_, LVM_INSERTCOLUMNW, static_cast<WPARAM>(column),
                     reinterpret_cast<LPARAM>(&info));
    }
}

// In pixels. A column to which the form gives no width has room for its heading.
int GridView::widthOf(int column) const
{
    const int width = grid_.ColWidth[static_cast<std::size_t>(column)];
    if (width != 0)
        return pixels_.fromTwips(width);
    const int heading = ListView_GetStringWidth(window_, toWide(this->heading(column)).c_str());
    return std::max(pixels_.fromTwips(defaultColumnWidth),
                    heading + pixels_.fromTwips(headingMargins));
}

void GridView::setResolution(Pixels pixels)
{
    pixels_ = pixels;
    settingWidths_ = true;
    for (int column = 0; column < grid_.Cols(); ++column)
        ListView_SetColumnWidth(window_, column, widthOf(column));
    settingWidths_ = false;
    setTipWidth(ListView_GetToolTips(window_), pixels_.fromTwips(widestTip));
    drawMarks();
}

void GridView::drawMarks()
{
    auto pictures = std::make_unique<MarkPictures>(pixels_);
    ListView_SetImageList(window_, pictures->handle(), LVSIL_SMALL);
    pictures_ = std::move(pictures);  // the old ones go when nothing uses them any more
}

Mark GridView::markOf(int row) const
{
    Mark mark = Mark::None;
    for (const MarkRule& rule : markRules_)
        if (rule.mark > mark && rule.isOn(row))
            mark = rule.mark;
    return mark;
}

void GridView::update()
{
    updating_ = true;
    const int count = grid_.Rows() - 1;
    ListView_SetItemCountEx(window_, count, LVSICF_NOSCROLL);
    selected_.set(count, std::numeric_limits<int>::max(), false);  // it says nothing of these
    InvalidateRect(window_, nullptr, FALSE);
    updating_ = false;
    if (std::exchange(fillsSeen_, grid_.fills()) != grid_.fills())
        isChosen_ = false;
    showSelection();
}

void GridView::showColours(bool isOn)
{
    const COLORREF text = GetSysColor(isOn ? COLOR_WINDOWTEXT : COLOR_GRAYTEXT);
    const COLORREF background = GetSysColor(isOn ? COLOR_WINDOW : COLOR_BTNFACE);
    if (ListView_GetTextColor(window_) == text && ListView_GetBkColor(window_) == background)
        return;
    drawMarks();
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
    case LVN_GETINFOTIPW:
        giveTip(*static_cast<NMLVGETINFOTIPW*>(info));
        break;
    case LVN_KEYDOWN:
        onKey_(static_cast<NMLVKEYDOWN*>(info)->wVKey);
        // Only now, as the form may show the grid's selection again at each key.
        if (isAboutToSelect(WM_KEYDOWN, static_cast<NMLVKEYDOWN*>(info)->wVKey, 0))
            select({});
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

void GridView::giveTip(NMLVGETINFOTIPW& info) const
{
    const std::wstring tip =
        tipOf_ == nullptr || isEmpty() ? std::wstring() : toWide(tipOf_(rowOf(info.iItem)));
    if (!tip.empty() && info.cchTextMax > 0)
        lstrcpynW(info.pszText, tip.c_str(), info.cchTextMax);
}

// Gives the list view a text, which must stay until the list view asks for the next one.
template <class Info>
void GridView::giveCell(Info& info)
{
    const int row = rowOf(info.iItem);
    if ((info.mask & LVIF_IMAGE) != 0 && row < grid_.Rows())
        info.iImage = static_cast<int>(isEmpty() ? Mark::None : markOf(row));
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
        if (pixels != widthOf(column))
            width = pixels_.toTwips(pixels);
    }
}

void GridView::selectAll()
{
    grid_.Row = 1;
    grid_.RowSel = grid_.Rows() - 1;
    isChosen_ = true;
    showSelection();
    onSelect_();
}

void GridView::copySelection(bool withHeadings) const
{
    const form::RowRange rows = shownSelection();
    std::string text;
    for (int column = 0; withHeadings && rows.count > 0 && column < grid_.Cols(); ++column)
        text += heading(column) + (column + 1 < grid_.Cols() ? "\t" : "\r\n");
    for (int i = 0; i < rows.count; ++i)
        text += grid_.rowText(rows.first + i) + "\r\n";
    if (!text.empty())
        putOnClipboard(window_, toWide(text));
}

LRESULT CALLBACK GridView::listProcedure(HWND, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                         DWORD_PTR self)
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
            view.copySelection(GetKeyState(VK_SHIFT) < 0);
        if (control && wParam == VK_SPACE)
            return 0;
        break;
    default:
        break;
    }
    return view.passOn(message, wParam, lParam);
}

}  // namespace window
