#include "app/window/FindingsWindow.h"

#include "app/window/Clipboard.h"
#include "app/window/Pixels.h"
#include "findings/FindingText.h"
#include "windows/Dialog.h"
#include "windows/Text.h"

#include <algorithm>
#include <commctrl.h>
#include <iterator>
#include <stdexcept>
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
constexpr int findingsWidth = 12000;
constexpr int findingsHeight = 4800;
constexpr int leastFindingsWidth = 3600;
constexpr int leastFindingsHeight = 2700;
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

bool isWithControl()
{
    return GetKeyState(VK_CONTROL) < 0 && GetKeyState(VK_MENU) >= 0;
}

}  // namespace

void FindingsWindow::open(HWND owner)
{
    if (window_ == nullptr) {
        window_ = windows::createEmptyDialog(owner, WS_EX_CONTROLPARENT, procedure, this);
        if (window_ == nullptr)
            throw std::runtime_error("Windows refused the window of findings");
        createControls();
        applyResolution(GetDpiForWindow(window_));
        const SIZE size = windowSize(window_, findingsWidth, findingsHeight, dotsPerInch_);
        const form::ScreenPlace form = placeOf(owner);
        moveTo(window_, form::keptWithin({form.right, form.top, form.right + int(size.cx),
                                          form.top + int(size.cy)},
                                         workAreaOf(owner)));
        layOut();
        fill();
    }
    ShowWindow(window_, SW_SHOWNORMAL);
    SetForegroundWindow(window_);
    SetFocus(control(idList));
}

void FindingsWindow::close()
{
    if (window_ != nullptr)
        DestroyWindow(window_);
}

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

// The window's own keys go before those that every dialog has.
bool FindingsWindow::translate(MSG& message)
{
    const bool isOurs =
        window_ != nullptr && (message.hwnd == window_ || IsChild(window_, message.hwnd) != FALSE);
    if (!isOurs)
        return false;
    if (message.message == WM_KEYDOWN && message.wParam == VK_F8) {
        onCheck_();
        return true;
    }
    if (message.message == WM_KEYDOWN && message.wParam == 'C' && isWithControl() &&
        message.hwnd == control(idList)) {
        copySelected();
        return true;
    }
    return IsDialogMessageW(window_, &message) != FALSE;
}

INT_PTR CALLBACK FindingsWindow::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(window, DWLP_USER, lParam);
        return FALSE;  // the focus is set when there is a control for it
    }
    auto* const self = reinterpret_cast<FindingsWindow*>(GetWindowLongPtrW(window, DWLP_USER));
    return self == nullptr || self->window_ != window ? FALSE
                                                      : self->handle(message, wParam, lParam);
}

INT_PTR FindingsWindow::handle(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_COMMAND:
        if (LOWORD(wParam) == IDOK)
            goTo(selected());
        else if (LOWORD(wParam) == IDCANCEL)
            close();
        return TRUE;
    case WM_CLOSE:
        close();
        return TRUE;
    case WM_NOTIFY:
        notify(*reinterpret_cast<const NMHDR*>(lParam));
        return TRUE;
    case WM_SIZE:
        layOut();
        return TRUE;
    // Not for the owner, which is FEMAP's window where the form is a pane.
    case WM_HELP:
    case WM_MOUSEWHEEL:
    case WM_MOUSEHWHEEL:
        return TRUE;
    case WM_GETMINMAXINFO: {
        const SIZE least =
            windowSize(window_, leastFindingsWidth, leastFindingsHeight, dotsPerInch_);
        reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {least.cx, least.cy};
        return TRUE;
    }
    case WM_DPICHANGED: {
        const RECT& bounds = *reinterpret_cast<const RECT*>(lParam);
        applyResolution(HIWORD(wParam));
        moveTo(window_, {bounds.left, bounds.top, bounds.right, bounds.bottom});
        return TRUE;
    }
    case WM_DESTROY:
    case WM_NCDESTROY:  // Wine leaves the other one out when the owner's process ends
        window_ = nullptr;
        rows_.clear();
        return TRUE;
    default:
        return FALSE;
    }
}

void FindingsWindow::createControls()
{
    SetWindowTextW(window_, L"Findings");
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

void FindingsWindow::applyResolution(UINT dotsPerInch)
{
    dotsPerInch_ = dotsPerInch;
    auto font = std::make_unique<Font>(dotsPerInch);
    for (const int id : {idList, idWhole, idNote})
        setFont(control(id), *font);
    font_ = std::move(font);  // the old one goes when nothing uses it any more
    const Pixels pixels(dotsPerInch);
    for (int column = 0; column < static_cast<int>(std::size(columns)); ++column)
        ListView_SetColumnWidth(control(idList), column, pixels.fromTwips(columns[column].width));
}

void FindingsWindow::layOut()
{
    RECT inside{};
    GetClientRect(window_, &inside);
    const Pixels pixels(dotsPerInch_);
    const int width = pixels.toTwips(inside.right) - 2 * findingsMargin;
    const int noteTop = pixels.toTwips(inside.bottom) - findingsMargin - noteHeight;
    const int wholeTop = noteTop - findingsGap - wholeHeight;
    const auto place = [&](int id, int top, int height) {
        MoveWindow(control(id), pixels.fromTwips(findingsMargin), pixels.fromTwips(top),
                   pixels.fromTwips(width), pixels.fromTwips(height), TRUE);
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

void FindingsWindow::notify(const NMHDR& header)
{
    if (header.idFrom != idList)
        return;
    if (header.code == LVN_ITEMCHANGED)
        showWhole();
    else if (header.code == NM_DBLCLK)
        goTo(reinterpret_cast<const NMITEMACTIVATE&>(header).iItem);
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
