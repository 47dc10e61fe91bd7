#include "app/window/FindingsWindow.h"

#include "app/window/Clipboard.h"
#include "findings/FindingText.h"
#include "windows/Text.h"

#include <algorithm>
#include <commctrl.h>
#include <iterator>
#include <string_view>
#include <utility>

namespace window
{

using windows::toWide;

namespace
{

// Twips.
constexpr int findingsMargin = 150;
constexpr int findingsGap = 105;
constexpr int wholeHeight = 900;  // three lines and more
constexpr int noteHeight = 450;   // two lines, where it is narrow

enum Column
{
    SeverityColumn,
    RowsColumn,
    SentenceColumn,
    CureColumn,
};

struct FindingColumn
{
    const wchar_t* heading;
    int width;  // in twips
};

constexpr FindingColumn columns[] = {
    {L"Severity", 1050},
    {L"Rows", 1650},
    {L"Finding", 5100},
    {L"Cure", 3600},
};

}  // namespace

FindingsWindow::FindingsWindow(std::function<void(std::size_t)> onGo)
    : BesideWindow({.title = L"Findings",
                    .size = {12000, 4800},
                    .least = {3600, 2700},
                    .refusal = "Windows refused the window of findings",
                    .first = idList}),
      onGo_(std::move(onGo))
{}

void FindingsWindow::show(std::span<const findings::Finding> found, const std::string& note)
{
    if (window_ == nullptr)
        return;
    std::vector<Cells> rows;
    for (const findings::Finding& each : found)
        rows.push_back({std::string(wordOf(each.severity)), rowsOf(each), each.sentence,
                        std::string(each.cure)});
    setWindowText(control(idNote), note);
    if (rows == rows_)
        return;
    const int before = selected();
    const Cells chosen = before < 0 ? Cells() : rows_[static_cast<std::size_t>(before)];
    rows_ = std::move(rows);
    fill();
    const auto there = std::ranges::find(rows_, chosen);
    const auto item = there == rows_.end() ? 0 : static_cast<int>(there - rows_.begin());
    ListView_SetItemState(control(idList), item, LVIS_SELECTED | LVIS_FOCUSED,
                          LVIS_SELECTED | LVIS_FOCUSED);
    showWhole();
}

bool FindingsWindow::pressed(HWND where, WPARAM letter)
{
    const bool copies = letter == 'C' && where == control(idList);
    if (copies)
        copySelected();
    return copies;
}

void FindingsWindow::command(int id)
{
    if (id == IDOK)
        goTo(selected());
}

void FindingsWindow::createControls()
{
    const HWND list = createControl(
        window_, WC_LISTVIEWW, "",
        WS_TABSTOP | LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS | LVS_NOSORTHEADER,
        WS_EX_CLIENTEDGE, idList);
    ListView_SetExtendedListViewStyle(list, LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER);
    for (int column = 0; column < static_cast<int>(std::size(columns)); ++column) {
        std::wstring heading = columns[column].heading;
        LVCOLUMNW info{};
        info.mask = LVCF_TEXT;
        info.pszText = heading.data();
        SendMessageW(list, LVM_INSERTCOLUMNW, static_cast<WPARAM>(column),
                     reinterpret_cast<LPARAM>(&info));
    }
    createControl(window_, L"EDIT", "", WS_TABSTOP | WS_VSCROLL | ES_READONLY | ES_MULTILINE,
                  WS_EX_CLIENTEDGE, idWhole);
    createControl(window_, L"STATIC", "", SS_LEFT | SS_NOPREFIX, 0, idNote);
}

void FindingsWindow::resolutionChanged()
{
    for (int column = 0; column < static_cast<int>(std::size(columns)); ++column)
        ListView_SetColumnWidth(control(idList), column, pixels_.fromTwips(columns[column].width));
}

void FindingsWindow::layOut()
{
    RECT inside{};
    GetClientRect(window_, &inside);
    const int width = pixels_.toTwips(inside.right) - 2 * findingsMargin;
    const int noteTop = pixels_.toTwips(inside.bottom) - findingsMargin - noteHeight;
    const int wholeTop = noteTop - findingsGap - wholeHeight;
    const auto place = [&](int id, int top, int height) {
        MoveWindow(control(id), pixels_.fromTwips(findingsMargin), pixels_.fromTwips(top),
                   pixels_.fromTwips(width), pixels_.fromTwips(height), TRUE);
    };
    place(idList, findingsMargin, wholeTop - findingsGap - findingsMargin);
    place(idWhole, wholeTop, wholeHeight);
    place(idNote, noteTop, noteHeight);
}

void FindingsWindow::fill()
{
    const HWND list = control(idList);
    SendMessageW(list, WM_SETREDRAW, FALSE, 0);
    ListView_DeleteAllItems(list);
    for (std::size_t row = 0; row < rows_.size(); ++row)
        for (std::size_t column = 0; column < rows_[row].size(); ++column) {
            std::wstring text = toWide(rows_[row][column]);
            LVITEMW info{};
            info.mask = LVIF_TEXT;
            info.iItem = static_cast<int>(row);
            info.iSubItem = static_cast<int>(column);
            info.pszText = text.data();
            SendMessageW(list, column == 0 ? LVM_INSERTITEMW : LVM_SETITEMW, 0,
                         reinterpret_cast<LPARAM>(&info));
        }
    SendMessageW(list, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(list, nullptr, TRUE);
}

LRESULT FindingsWindow::notify(const NMHDR& header)
{
    if (header.idFrom != idList)
        return 0;
    if (header.code == LVN_ITEMCHANGED)
        showWhole();
    else if (header.code == NM_DBLCLK)
        goTo(reinterpret_cast<const NMITEMACTIVATE&>(header).iItem);
    return 0;
}

int FindingsWindow::selected() const
{
    return ListView_GetNextItem(control(idList), -1, LVNI_SELECTED);
}

void FindingsWindow::goTo(int finding)
{
    if (finding >= 0)
        onGo_(static_cast<std::size_t>(finding));
}

// The columns may be too narrow for it.
void FindingsWindow::showWhole()
{
    const int finding = selected();
    std::string text;
    if (finding >= 0) {
        const Cells& cells = rows_[static_cast<std::size_t>(finding)];
        text = cells[SentenceColumn] + "\r\n" + cells[CureColumn];
    }
    setWindowText(control(idWhole), text);
}

void FindingsWindow::copySelected() const
{
    const int finding = selected();
    if (finding < 0)
        return;
    std::string line;
    for (const std::string& cell : rows_[static_cast<std::size_t>(finding)])
        line.append(line.empty() ? "" : "\t").append(cell);
    putOnClipboard(window_, toWide(line + "\r\n"));
}

}  // namespace window
