#include "app/window/TickList.h"

#include "windows/Text.h"

#include <algorithm>

namespace window
{

using windows::toWide;

namespace
{

constexpr DWORD pauseBetweenWords = 1000;  // milliseconds, after which typing begins anew
constexpr UINT unticked = 1;               // numbers of the pictures that Windows has for boxes
constexpr UINT ticked = 2;
constexpr wchar_t endOfText = L'\0';

void makeSmall(std::wstring& text)
{
    CharLowerBuffW(text.data(), static_cast<DWORD>(text.size()));
}

}  // namespace

TickList::TickList(HWND parent, int id, selection::MultiSelectList& list,
                   std::function<void(const std::string&, bool)> onFound)
    : window_(createControl(parent, WC_LISTVIEWW, "",
                            WS_TABSTOP | LVS_REPORT | LVS_OWNERDATA | LVS_SINGLESEL |
                                LVS_SHOWSELALWAYS | LVS_NOCOLUMNHEADER,
                            WS_EX_CLIENTEDGE, id)),
      list_(list),
      onFound_(std::move(onFound))
{
    ListView_SetExtendedListViewStyle(
        window_, LVS_EX_CHECKBOXES | LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER);
    ListView_SetCallbackMask(window_, LVIS_STATEIMAGEMASK);
    LVCOLUMNW column{};
    SendMessageW(window_, LVM_INSERTCOLUMNW, 0, reinterpret_cast<LPARAM>(&column));
    ListView_SetItemCountEx(window_, count(), 0);
    if (count() > 0)
        goTo(0);
    SetWindowSubclass(window_, procedure, 1, reinterpret_cast<DWORD_PTR>(this));
}

void TickList::update()
{
    endStretch();
    InvalidateRect(window_, nullptr, FALSE);
}

// The text that has most letters need not be the widest, but nearly is.
void TickList::fitWidth()
{
    const auto longest = std::ranges::max_element(
        list_.items, {}, [](const auto& item) { return item.text.size(); });
    constexpr int letters = 4;  // to spare
    constexpr int boxWidths = 2;
    int width = 0;
    if (longest != list_.items.end())
        width = ListView_GetStringWidth(
                    window_, (toWide(longest->text) + std::wstring(letters, L'x')).c_str()) +
                boxWidths * GetSystemMetricsForDpi(SM_CXSMICON, GetDpiForWindow(window_));
    RECT inside{};
    GetClientRect(window_, &inside);
    ListView_SetColumnWidth(window_, 0, std::max(width, static_cast<int>(inside.right)));
}

void TickList::notify(const NMHDR& header)
{
    void* const info = const_cast<NMHDR*>(&header);
    switch (header.code) {
    case LVN_GETDISPINFOW:
        giveLine(static_cast<NMLVDISPINFOW*>(info)->item);
        break;
    case NM_CLICK: {
        const auto& place = *static_cast<NMITEMACTIVATE*>(info);
        click(place.iItem, GetKeyState(VK_SHIFT) < 0);
        break;
    }
    default:
        break;
    }
}

// Gives the list view a line, whose text must stay until it asks for the next one.
void TickList::giveLine(LVITEMW& item)
{
    if (item.iItem < 0 || item.iItem >= count())
        return;
    const auto& line = list_.items[static_cast<std::size_t>(item.iItem)];
    if ((item.mask & LVIF_TEXT) != 0) {
        line_ = toWide(line.text);
        item.pszText = line_.data();
    }
    if ((item.mask & LVIF_STATE) != 0)
        item.state = INDEXTOSTATEIMAGEMASK(line.selected ? ticked : unticked);
}

// The second click of a double click comes by another notification, so that it does not take away
// what the first one ticked.
void TickList::click(int item, bool isShift)
{
    if (item < 0 || item >= count())
        return;
    typed_.clear();
    if (isShift)
        stretchTo(item);
    else
        toggle(item);
}

void TickList::toggle(int item)
{
    endStretch();
    bool& selected = list_.items[static_cast<std::size_t>(item)].selected;
    selected = !selected;
    anchor_ = item;
    stretchValue_ = selected;
    ListView_RedrawItems(window_, item, item);
}

// Gives all lines from the anchor to this one what the anchor got; those that an earlier, longer
// stretch from there had taken in become what they were.
void TickList::stretchTo(int item)
{
    if (!before_) {
        before_.emplace();
        before_->reserve(list_.items.size());
        for (const auto& each : list_.items)
            before_->push_back(each.selected);
    }
    const auto [first, last] = std::minmax(anchor_, item);
    for (int i = 0; i < count(); ++i) {
        const auto place = static_cast<std::size_t>(i);
        const bool isInside = i >= first && i <= last;
        list_.items[place].selected = isInside ? stretchValue_ : (*before_)[place];
    }
    InvalidateRect(window_, nullptr, FALSE);
}

void TickList::goTo(int item)
{
    // While one is selected, a list view may look through all others for what to deselect.
    ListView_SetItemState(window_, focused(), 0, LVIS_SELECTED);
    ListView_SetItemState(window_, item, LVIS_FOCUSED | LVIS_SELECTED,
                          LVIS_FOCUSED | LVIS_SELECTED);
    ListView_EnsureVisible(window_, item, FALSE);
}

// Whether the list view shall not see the key.
bool TickList::pressKey(WPARAM key)
{
    const bool isShift = GetKeyState(VK_SHIFT) < 0;
    const int item = focused();
    if (key != VK_SPACE || item < 0 || GetKeyState(VK_CONTROL) < 0)
        return key == VK_SPACE;
    click(item, isShift);
    return true;
}

// Finds a line that has what was typed anywhere in it: a further letter may stay on the line, a new
// word goes on from the next one.
bool TickList::type(wchar_t letter)
{
    constexpr wchar_t firstPrintable = L' ' + 1;
    if (letter < firstPrintable)
        return false;
    const auto now = static_cast<DWORD>(GetMessageTime());
    const bool isNew = typed_.empty() || now - typedAt_ > pauseBetweenWords;
    if (isNew)
        typed_.clear();
    typed_ += letter;
    typedAt_ = now;
    std::wstring folded = typed_;
    makeSmall(folded);
    const int found = findText(folded, std::max(0, focused() + (isNew ? 1 : 0)));
    if (found >= 0) {
        goTo(found);
        anchor_ = found;
        stretchValue_ = true;
        endStretch();
    }
    onFound_(windows::fromWide(typed_), found >= 0);
    return true;
}

// From this line on and round; -1 when there is none.
int TickList::findText(const std::wstring& folded, int from)
{
    if (starts_.empty()) {
        for (const auto& item : list_.items) {
            starts_.push_back(texts_.size());
            texts_ += toWide(item.text) + endOfText;
        }
        makeSmall(texts_);
    }
    if (starts_.empty())
        return -1;
    const std::size_t start = static_cast<std::size_t>(from) < starts_.size()
                                  ? starts_[static_cast<std::size_t>(from)]
                                  : 0;
    std::size_t place = texts_.find(folded, start);
    if (place == std::wstring::npos)
        place = texts_.find(folded);
    if (place == std::wstring::npos)
        return -1;
    return static_cast<int>(std::ranges::upper_bound(starts_, place) - starts_.begin()) - 1;
}

LRESULT CALLBACK TickList::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                     UINT_PTR, DWORD_PTR self)
{
    TickList& list = *reinterpret_cast<TickList*>(self);
    if (message == WM_KEYDOWN && list.pressKey(wParam))
        return 0;
    if (message == WM_CHAR && (wParam == VK_SPACE || list.type(static_cast<wchar_t>(wParam))))
        return 0;
    const int before = list.focused();
    const LRESULT result = DefSubclassProc(window, message, wParam, lParam);
    if (message != WM_KEYDOWN)
        return result;
    // An arrow or page key, perhaps: with Shift it draws a stretch out, else it begins a new one.
    const int now = list.focused();
    if (now == before || now < 0)
        return result;
    if (GetKeyState(VK_SHIFT) < 0) {
        list.stretchTo(now);
    }
    else {
        list.endStretch();
        list.anchor_ = now;
        list.stretchValue_ = true;
    }
    return result;
}

}  // namespace window
