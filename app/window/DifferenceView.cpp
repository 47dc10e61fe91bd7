#include "app/window/DifferenceView.h"

#include "app/window/Clipboard.h"
#include "windows/Text.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace window
{

using preview::Sign;
using preview::SignedLine;
using windows::toWide;

namespace
{

constexpr int cellMargin = 60;  // twips, at both sides of a cell
constexpr std::size_t tabWidth = 8;
constexpr std::size_t mostShown = 4000;  // letters of a line; all of them can be copied
constexpr int linesAbove = 3;            // the first change

enum LineColumn
{
    SignColumn,
    NumberColumn,
    TextColumn,
    LineColumnCount,
};

// What a column's cell shows, as that of the file's text does. The first one is always at the left.
constexpr const wchar_t* lineHeadings[] = {L"", L"Line", L"Text"};

struct SignColours
{
    Sign sign;
    COLORREF ground;  // where Windows' colours are the usual ones
    int text;         // else
};

constexpr COLORREF white = RGB(255, 255, 255);
constexpr COLORREF black = RGB(0, 0, 0);

constexpr SignColours signColours[] = {
    {Sign::Unchanged, white, COLOR_WINDOWTEXT},
    {Sign::Removed, RGB(255, 221, 221), COLOR_GRAYTEXT},
    {Sign::Added, RGB(213, 245, 213), COLOR_HOTLIGHT},
    {Sign::Remark, white, COLOR_WINDOWTEXT},
};

bool hasUsualColours()
{
    HIGHCONTRASTW contrast{};
    contrast.cbSize = sizeof contrast;
    const bool isContrast =
        SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) != FALSE &&
        (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
    return !isContrast && GetSysColor(COLOR_WINDOW) == white &&
           GetSysColor(COLOR_WINDOWTEXT) == black;
}

LineColours coloursOfSelected(bool hasFocus)
{
    return hasFocus ? LineColours{GetSysColor(COLOR_HIGHLIGHTTEXT), GetSysColor(COLOR_HIGHLIGHT)}
                    : LineColours{GetSysColor(COLOR_BTNTEXT), GetSysColor(COLOR_BTNFACE)};
}

// As wide as this many letters of the fixed pitch, or more.
std::size_t widthOf(const SignedLine& line)
{
    const auto tabs = static_cast<std::size_t>(std::ranges::count(line.text, '\t'));
    return std::min(line.text.size() + tabs * tabWidth, mostShown);
}

int letterWidth(HWND window, HFONT font)
{
    const HDC device = GetDC(window);
    const HGDIOBJ before = SelectObject(device, font);
    TEXTMETRICW metrics{};
    GetTextMetricsW(device, &metrics);
    SelectObject(device, before);
    ReleaseDC(window, device);
    return metrics.tmAveCharWidth;
}

}  // namespace

LineColours coloursOf(Sign sign)
{
    const SignColours& colours = *std::ranges::find(signColours, sign, &SignColours::sign);
    if (hasUsualColours())
        return {black, colours.ground};
    return {GetSysColor(colours.text), GetSysColor(COLOR_WINDOW)};
}

DifferenceView::DifferenceView(HWND parent, int id, const sys::CodePage& codePage)
    : codePage_(codePage),
      window_(createControl(
          parent, WC_LISTVIEWW, "",
          WS_TABSTOP | LVS_REPORT | LVS_OWNERDATA | LVS_SHOWSELALWAYS | LVS_NOSORTHEADER,
          WS_EX_CLIENTEDGE, id))
{
    ListView_SetExtendedListViewStyle(window_, LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER);
    for (int column = 0; column < LineColumnCount; ++column) {
        std::wstring heading = lineHeadings[column];
        LVCOLUMNW info{};
        info.mask = LVCF_TEXT | LVCF_FMT;
        info.fmt = column == NumberColumn ? LVCFMT_RIGHT : LVCFMT_LEFT;
        info.pszText = heading.data();
        SendMessageW(window_, LVM_INSERTCOLUMNW, static_cast<WPARAM>(column),
                     reinterpret_cast<LPARAM>(&info));
    }
}

void DifferenceView::show(preview::Texts texts)
{
    ListView_SetItemState(window_, -1, 0, LVIS_SELECTED | LVIS_FOCUSED);
    lines_.clear();
    texts_ = std::move(texts);
    lines_ = preview::linesWithChanges(texts_);
    longest_ = 0;
    highest_ = 0;
    for (const SignedLine& line : lines_) {
        longest_ = std::max(longest_, widthOf(line));
        highest_ = std::max(highest_, line.number);
    }
    ListView_SetItemCountEx(window_, static_cast<int>(lines_.size()), 0);
    fitWidths();
    goToFirstChange();
    InvalidateRect(window_, nullptr, TRUE);
}

std::size_t DifferenceView::count(Sign sign) const
{
    return static_cast<std::size_t>(std::ranges::count(lines_, sign, &SignedLine::sign));
}

void DifferenceView::goToFirstChange() const
{
    if (lines_.empty())
        return;
    const auto found = std::ranges::find_if(
        lines_, [](const SignedLine& line) { return line.sign != Sign::Unchanged; });
    const bool isNew = count(Sign::Added) == lines_.size();
    const int first = found == lines_.end() || isNew ? 0 : static_cast<int>(found - lines_.begin());
    // From the end, so that the first change comes to stand at the top.
    ListView_EnsureVisible(window_, static_cast<int>(lines_.size()) - 1, FALSE);
    ListView_EnsureVisible(window_, std::max(first - linesAbove, 0), FALSE);
    ListView_SetItemState(window_, first, LVIS_FOCUSED, LVIS_FOCUSED);
}

void DifferenceView::setResolution(Pixels pixels)
{
    pixels_ = pixels;
    auto font = std::make_unique<Font>(pixels.dotsPerInch(), Font::Kind::FixedPitch);
    setFont(window_, *font);
    font_ = std::move(font);  // the old one goes when nothing uses it any more
    fitWidths();
}

void DifferenceView::fitWidths() const
{
    if (font_ == nullptr)
        return;
    const int letter = letterWidth(window_, font_->handle());
    const int margins = 2 * pixels_.fromTwips(cellMargin);
    const auto widthFor = [&](std::size_t letters) {
        return static_cast<int>(letters) * letter + margins;
    };
    constexpr std::size_t leastDigits = 4;  // as many as the heading has letters
    const int sign = widthFor(1);
    const int number = widthFor(std::max(std::to_string(highest_).size(), leastDigits) + 1);
    RECT inside{};
    GetClientRect(window_, &inside);
    const int rest = static_cast<int>(inside.right) - sign - number;
    ListView_SetColumnWidth(window_, SignColumn, sign);
    ListView_SetColumnWidth(window_, NumberColumn, number);
    ListView_SetColumnWidth(window_, TextColumn, std::max(widthFor(longest_), rest));
}

LRESULT DifferenceView::notify(const NMHDR& header)
{
    void* const info = const_cast<NMHDR*>(&header);
    constexpr LRESULT noSuchItem = -1;
    switch (header.code) {
    case LVN_GETDISPINFOW:
        giveCell(static_cast<NMLVDISPINFOW*>(info)->item);
        return 0;
    case LVN_ODFINDITEMW:
    case LVN_ODFINDITEMA:
        return noSuchItem;  // lines have no names to go to by letters
    case NM_CUSTOMDRAW:
        return draw(*static_cast<NMLVCUSTOMDRAW*>(info));
    default:
        return 0;
    }
}

std::wstring DifferenceView::cellOf(const SignedLine& line, int column) const
{
    switch (column) {
    case SignColumn:
        return std::wstring(1, static_cast<wchar_t>(line.sign));
    case NumberColumn:
        return line.sign == Sign::Remark ? std::wstring() : std::to_wstring(line.number);
    default:
        return toWide(codePage_.decode(line.text));
    }
}

// The text must stay until the list view asks for the next one.
void DifferenceView::giveCell(LVITEMW& item)
{
    const auto line = static_cast<std::size_t>(item.iItem);
    if ((item.mask & LVIF_TEXT) == 0 || item.iItem < 0 || line >= lines_.size())
        return;
    cell_ = cellOf(lines_[line], item.iSubItem);
    item.pszText = cell_.data();
}

LRESULT DifferenceView::draw(const NMLVCUSTOMDRAW& info) const
{
    if (info.nmcd.dwDrawStage == CDDS_PREPAINT)
        return CDRF_NOTIFYITEMDRAW;
    if (info.nmcd.dwDrawStage != CDDS_ITEMPREPAINT || info.nmcd.dwItemSpec >= lines_.size())
        return CDRF_DODEFAULT;
    drawLine(info.nmcd.hdc, static_cast<int>(info.nmcd.dwItemSpec));
    return CDRF_SKIPDEFAULT;
}

// Windows' own way ends a text after 259 letters and has no tabs.
void DifferenceView::drawLine(HDC device, int item) const
{
    const SignedLine& line = lines_[static_cast<std::size_t>(item)];
    const UINT state = ListView_GetItemState(window_, item, LVIS_SELECTED | LVIS_FOCUSED);
    const bool hasFocus = GetFocus() == window_;
    const LineColours colours =
        (state & LVIS_SELECTED) != 0 ? coloursOfSelected(hasFocus) : coloursOf(line.sign);
    RECT row{};
    ListView_GetItemRect(window_, item, &row, LVIR_BOUNDS);
    const HGDIOBJ before = SelectObject(device, font_->handle());
    SetBkColor(device, colours.ground);
    SetTextColor(device, colours.text);
    ExtTextOutW(device, 0, 0, ETO_OPAQUE, &row, L"", 0, nullptr);
    RECT cell = row;
    const int margin = pixels_.fromTwips(cellMargin);
    for (int column = 0; column < LineColumnCount; ++column) {
        const int width = ListView_GetColumnWidth(window_, column);
        const std::wstring text = cellOf(line, column).substr(0, mostShown);
        cell.left += margin;
        cell.right = cell.left + width - 2 * margin;
        const UINT side = column == NumberColumn ? DT_RIGHT : DT_LEFT;
        DrawTextW(device, text.c_str(), static_cast<int>(text.size()), &cell,
                  side | DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_EXPANDTABS);
        cell.left += width - margin;
    }
    if ((state & LVIS_FOCUSED) != 0 && hasFocus)
        DrawFocusRect(device, &row);
    SelectObject(device, before);
}

void DifferenceView::selectAll() const
{
    ListView_SetItemState(window_, -1, LVIS_SELECTED, LVIS_SELECTED);
}

void DifferenceView::copySelected() const
{
    std::vector<const SignedLine*> selected;
    for (int item = ListView_GetNextItem(window_, -1, LVNI_SELECTED); item >= 0;
         item = ListView_GetNextItem(window_, item, LVNI_SELECTED))
        selected.push_back(&lines_[static_cast<std::size_t>(item)]);
    if (selected.empty())
        return;
    const bool withSigns = std::ranges::any_of(
        selected, [&](const SignedLine* line) { return line->sign != selected.front()->sign; });
    std::wstring text;
    for (const SignedLine* const line : selected) {
        if (withSigns)
            text += cellOf(*line, SignColumn);
        text += cellOf(*line, TextColumn) + L"\r\n";
    }
    putOnClipboard(window_, text);
}

}  // namespace window
