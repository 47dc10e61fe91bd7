#include "app/window/PreviewWindow.h"

#include "app/window/Clipboard.h"
#include "windows/Text.h"

#include <algorithm>
#include <commctrl.h>
#include <iterator>
#include <utility>

namespace window
{

using preview::File;
using preview::Preview;
using preview::Sign;
using windows::toWide;
using FileMark = preview::Mark;

namespace
{

// The list tells by it that another file has the focus; what is to be done then may wait for FEMAP.
constexpr UINT chosenMessage = WM_APP + 1;

// Twips.
constexpr int previewMargin = 150;
constexpr int previewGap = 105;
constexpr int filesHeight = 2700;  // of eight files
constexpr int lineHeight = 450;    // two lines, where it is narrow

enum FileColumn
{
    MarkColumn,
    NameColumn,
    SizeColumn,
    BeforeColumn,
    DifferenceColumn,
};

struct FileColumnRow
{
    const wchar_t* heading;
    int width;  // in twips
    int format;
};

// clang-format off
constexpr FileColumnRow fileColumns[] = {
    {L"Mark",             1050, LVCFMT_LEFT},
    {L"File",             2850, LVCFMT_LEFT},
    {L"Bytes",            1200, LVCFMT_RIGHT},
    {L"Bytes before",     1350, LVCFMT_RIGHT},
    {L"First difference", 4800, LVCFMT_LEFT},
};
// clang-format on

std::string firstDifferenceOf(const File& file)
{
    if (!file.reason.empty())
        return file.reason;
    return file.mark == FileMark::Changed && file.firstDifference != 0
               ? "line " + std::to_string(file.firstDifference)
               : "";
}

std::vector<std::string> cellsOf(const File& file)
{
    std::string mark(wordOf(file.mark));
    std::ranges::replace(mark, '-', ' ');
    return {mark, std::string(file.name()), std::to_string(file.size),
            file.sizeBefore ? std::to_string(*file.sizeBefore) : "", firstDifferenceOf(file)};
}

std::string counted(std::size_t lines)
{
    return std::to_string(lines) + (lines == 1 ? " line" : " lines");
}

}  // namespace

PreviewWindow::PreviewWindow(const sys::CodePage& codePage,
                             std::function<void(const std::string&)> onChoose)
    : BesideWindow({.title = L"Preview of Apply",
                    .size = {12000, 9000},
                    .least = {3600, 6000},
                    .refusal = "Windows refused the window of the preview",
                    .first = idFiles}),
      codePage_(codePage),
      onChoose_(std::move(onChoose))
{}

void PreviewWindow::createControls()
{
    const HWND list = createControl(window_, WC_LISTVIEWW, "",
                                    WS_TABSTOP | LVS_REPORT | LVS_SHOWSELALWAYS | LVS_NOSORTHEADER,
                                    WS_EX_CLIENTEDGE, idFiles);
    ListView_SetExtendedListViewStyle(list, LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER);
    for (int column = 0; column < static_cast<int>(std::size(fileColumns)); ++column) {
        std::wstring heading = fileColumns[column].heading;
        LVCOLUMNW info{};
        info.mask = LVCF_TEXT | LVCF_FMT;
        info.fmt = fileColumns[column].format;
        info.pszText = heading.data();
        SendMessageW(list, LVM_INSERTCOLUMNW, static_cast<WPARAM>(column),
                     reinterpret_cast<LPARAM>(&info));
    }
    createControl(window_, L"STATIC", "", SS_LEFT | SS_NOPREFIX, 0, idHeading);
    text_ = std::make_unique<DifferenceView>(window_, idText, codePage_);
    createControl(window_, L"STATIC", "", SS_LEFT | SS_NOPREFIX, 0, idNote);
}

void PreviewWindow::resolutionChanged()
{
    for (int column = 0; column < static_cast<int>(std::size(fileColumns)); ++column)
        ListView_SetColumnWidth(control(idFiles), column,
                                pixels_.fromTwips(fileColumns[column].width));
    text_->setResolution(pixels_);
}

// The list gets a third at most, so that a low window has text, too.
void PreviewWindow::layOut()
{
    RECT inside{};
    GetClientRect(window_, &inside);
    const int width = pixels_.toTwips(inside.right) - 2 * previewMargin;
    const int height = pixels_.toTwips(inside.bottom);
    const int noteTop = height - previewMargin - lineHeight;
    const int headingTop = previewMargin + std::min(filesHeight, height / 3) + previewGap;
    const int textTop = headingTop + lineHeight + previewGap;
    const auto place = [&](int id, int top, int controlHeight) {
        MoveWindow(control(id), pixels_.fromTwips(previewMargin), pixels_.fromTwips(top),
                   pixels_.fromTwips(width), pixels_.fromTwips(controlHeight), TRUE);
    };
    place(idFiles, previewMargin, headingTop - previewGap - previewMargin);
    place(idHeading, headingTop, lineHeight);
    place(idText, textTop, noteTop - previewGap - textTop);
    place(idNote, noteTop, lineHeight);
    if (text_ != nullptr)
        text_->fitWidths();
}

void PreviewWindow::forget()
{
    rows_.clear();
    shownFile_.clear();
    text_.reset();
}

void PreviewWindow::show(Preview made, std::string_view name)
{
    if (window_ == nullptr)
        return;
    const File* const file = made.find(name);
    rows_.clear();
    for (const File& each : made.files)
        rows_.push_back(cellsOf(each));
    shownFile_ = file == nullptr ? std::string() : std::string(file->name());
    isFilling_ = true;
    fill();
    if (file != nullptr)
        focusOn(static_cast<int>(file - made.files.data()));
    isFilling_ = false;
    const bool hasTexts = made.texts && file != nullptr && file->mark != FileMark::WouldFail;
    text_->show(hasTexts ? std::move(*made.texts) : preview::Texts());
    setWindowText(control(idHeading), headingOf(made, file));
}

std::string PreviewWindow::headingOf(const Preview& made, const File* file) const
{
    if (file == nullptr)
        return {};
    const std::string name(file->name());
    if (!file->reason.empty())
        return name + ": " + file->reason;
    if (!made.texts)
        return name + " is too long to be shown; the list tells where it differs first";
    switch (file->mark) {
    case FileMark::New:
        return name + " is new: " + counted(text_->count(Sign::Added));
    case FileMark::Same:
        return name + " stays as it is: " + counted(text_->count(Sign::Unchanged));
    default:
        return name + ": " + counted(text_->count(Sign::Removed)) + " removed (-), " +
               counted(text_->count(Sign::Added)) + " added (+)";
    }
}

// Files that stay in the list stay marked.
void PreviewWindow::fill()
{
    const HWND list = control(idFiles);
    const auto count = static_cast<int>(rows_.size());
    for (int item = ListView_GetItemCount(list) - 1; item >= count; --item)
        ListView_DeleteItem(list, item);
    for (int item = 0; item < count; ++item) {
        const Cells& cells = rows_[static_cast<std::size_t>(item)];
        const bool isNew = item >= ListView_GetItemCount(list);
        for (std::size_t column = 0; column < cells.size(); ++column) {
            std::wstring text = toWide(cells[column]);
            LVITEMW info{};
            info.mask = LVIF_TEXT;
            info.iItem = item;
            info.iSubItem = static_cast<int>(column);
            info.pszText = text.data();
            SendMessageW(list, isNew && column == 0 ? LVM_INSERTITEMW : LVM_SETITEMW, 0,
                         reinterpret_cast<LPARAM>(&info));
        }
    }
}

void PreviewWindow::focusOn(int item)
{
    if (focused() == item)
        return;
    const HWND list = control(idFiles);
    constexpr UINT both = LVIS_SELECTED | LVIS_FOCUSED;
    ListView_SetItemState(list, -1, 0, both);
    ListView_SetItemState(list, item, both, both);
    ListView_EnsureVisible(list, item, FALSE);
}

int PreviewWindow::focused() const
{
    return ListView_GetNextItem(control(idFiles), -1, LVNI_FOCUSED);
}

LRESULT PreviewWindow::notify(const NMHDR& header)
{
    if (header.idFrom == idText && text_ != nullptr)
        return text_->notify(header);
    if (header.idFrom != idFiles || header.code != LVN_ITEMCHANGED || isFilling_)
        return 0;
    const auto& change = reinterpret_cast<const NMLISTVIEW&>(header);
    if ((change.uNewState & ~change.uOldState & LVIS_FOCUSED) != 0)
        PostMessageW(window_, chosenMessage, 0, 0);
    return 0;
}

INT_PTR PreviewWindow::handle(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message != chosenMessage)
        return BesideWindow::handle(message, wParam, lParam);
    // Of keys that came one after the other only the last one counts.
    const int item = focused();
    if (item >= 0 && item < static_cast<int>(rows_.size())) {
        const std::string name = rows_[static_cast<std::size_t>(item)][NameColumn];
        if (name != shownFile_)
            onChoose_(name);
    }
    return TRUE;
}

bool PreviewWindow::pressed(HWND where, WPARAM letter)
{
    if (letter == 'C' && where == control(idFiles))
        copyFiles();
    else if (letter == 'C' && where == control(idText))
        text_->copySelected();
    else if (letter == 'A' && where == control(idText))
        text_->selectAll();
    else
        return false;
    return true;
}

void PreviewWindow::copyFiles() const
{
    const HWND list = control(idFiles);
    std::string lines;
    for (int item = ListView_GetNextItem(list, -1, LVNI_SELECTED); item >= 0;
         item = ListView_GetNextItem(list, item, LVNI_SELECTED)) {
        std::string line;
        for (const std::string& cell : rows_[static_cast<std::size_t>(item)])
            line.append(&cell == rows_[static_cast<std::size_t>(item)].data() ? "" : "\t")
                .append(cell);
        lines += line + "\r\n";
    }
    if (!lines.empty())
        putOnClipboard(window_, toWide(lines));
}

}  // namespace window
