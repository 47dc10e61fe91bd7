#include "Engineer.h"

#include "ListViews.h"
#include "app/window/PropertyListWindow.h"
#include "windows/Text.h"

#include <algorithm>
#include <charconv>
#include <sstream>
#include <stdexcept>

namespace driver
{

using window::PropertyListWindow;
using windows::toWide;

namespace
{

constexpr std::chrono::seconds longest(30);  // for one step
constexpr const wchar_t* dialogClass = L"#32770";

std::string_view takeWord(std::string_view& text)
{
    const std::string_view word = text.substr(0, text.find(' '));
    text.remove_prefix(std::min(text.size(), word.size() + 1));
    return word;
}

int numberIn(std::string_view& text)
{
    const std::string_view word = takeWord(text);
    int number = 0;
    std::from_chars(word.data(), word.data() + word.size(), number);
    return number;
}

bool isPushed(HWND button)
{
    return (SendMessageW(button, BM_GETSTATE, 0, 0) & BST_PUSHED) != 0;
}

int listNumber(HWND list, UINT message, WPARAM item = 0)
{
    return static_cast<int>(SendMessageW(list, message, item, 0));
}

LRESULT findInList(HWND list, UINT message, const std::string& text)
{
    return SendMessageW(list, message, static_cast<WPARAM>(-1),
                        reinterpret_cast<LPARAM>(toWide(text).c_str()));
}

bool takesSeveral(HWND list)
{
    return (GetWindowLongPtrW(list, GWL_STYLE) & LBS_EXTENDEDSEL) != 0;
}

bool isMarked(HWND list, LRESULT item)
{
    return SendMessageW(list, LB_GETSEL, static_cast<WPARAM>(item), 0) > 0;
}

int markedCount(HWND list)
{
    if (takesSeveral(list))
        return listNumber(list, LB_GETSELCOUNT);
    return listNumber(list, LB_GETCURSEL) < 0 ? 0 : 1;
}

// "a | b" without the blanks around.
std::vector<std::string> itemsIn(const std::string& choice)
{
    std::vector<std::string> items;
    std::istringstream rest(choice);
    for (std::string item; std::getline(rest, item, '|');) {
        item.erase(0, item.find_first_not_of(' '));
        item.erase(item.find_last_not_of(' ') + 1);
        items.push_back(item);
    }
    return items;
}

// Where an item of the property list is; an output vector goes by its ID alone, too.
int lineOf(const std::vector<std::string>& offered, const std::string& item)
{
    for (int place = 0; const std::string& each : offered) {
        if (each == item || each.starts_with(item + " - "))
            return place;
        ++place;
    }
    return -1;
}

}  // namespace

// clang-format off
const Engineer::Action Engineer::actions[] = {
    {"start",  &Engineer::start},
    {"set",    &Engineer::set},
    {"pick",   &Engineer::queuePick},
    {"choose", &Engineer::queueChoice},
    {"click",  &Engineer::click},
    {"select", &Engineer::select},
    {"key",    &Engineer::key},
    {"put",    &Engineer::nothing},
    {"print",  &Engineer::nothing},
};
// clang-format on

void Engineer::perform(const std::string& line)
{
    line_ = line;
    std::string_view rest = line;
    const std::string_view name = takeWord(rest);
    const auto* const action = std::ranges::find(actions, name, &Action::name);
    if (action == std::end(actions))
        throw std::logic_error("No hand can do: " + line);
    (this->*action->procedure)(rest);
}

void Engineer::waitFor(const std::string& what, const std::function<bool()>& condition)
{
    if (!waitUntil(condition, longest))
        throw std::runtime_error("\"" + line_ + "\": waited in vain for " + what);
}

void Engineer::start(std::string_view argument)
{
    const bool isRecorded = !recording_.empty();
    process_ = std::make_unique<Process>(
        programPath(isRecorded ? "velmar-study.exe" : "VelmarFemapInterface.exe"),
        toWide((isRecorded ? "--record " + recording_ + ' ' : "") + std::string(argument)),
        folder_);
    form_ = std::make_unique<FormDriver>(*process_);
    form_->window();
    waitFor("the form", [&] { return form_->isEnabled("InputsButton"); });
    hand_.awaitKeyboardAt(form_->window());
    form_->settle(longest);
}

DWORD Engineer::close()
{
    line_ = "close";
    hand_.clickAt(middleOf(form_->control("CommandLine")));
    hand_.key({"alt+F4"});
    waitFor("the end of the form", [&] { return !process_->isRunning(); });
    return process_->exitCode();
}

void Engineer::set(std::string_view argument)
{
    const std::string name(takeWord(argument));
    const std::string text(argument);
    const HWND control = form_->control(name);
    if (name == "CommandLine") {
        write(control, text);
        return;
    }
    const LRESULT item = findInList(control, CB_FINDSTRINGEXACT, text);
    if (item >= 0) {
        chooseFromList(name, item, text);
        return;
    }
    write(FindWindowExW(control, nullptr, L"Edit", nullptr), text);
    hand_.key({"Return"});
}

void Engineer::chooseFromList(const std::string& box, LRESULT item, const std::string& text)
{
    const HWND combo = form_->control(box);
    const auto isOpen = [&] { return SendMessageW(combo, CB_GETDROPPEDSTATE, 0, 0) != 0; };
    hand_.clickAt(arrowOf(combo));
    HWND list = nullptr;
    waitFor("the list of " + box, [&] {
        list = visibleWindow(process_->id(), L"ComboLBox");
        return list != nullptr && isOpen();
    });
    hand_.clickAt(itemPlaceIn(list, combo, static_cast<int>(item)));
    waitFor(text + " in " + box, [&] { return !isOpen() && form_->text(box) == text; });
    form_->settle(longest);
}

// Takes the place of what stands in the field.
void Engineer::write(HWND field, const std::string& text)
{
    hand_.clickAt(middleOf(field));
    hand_.key({"Home", "shift+End", "Delete"});
    waitFor("an empty field", [&] { return textOf(field).empty(); });
    hand_.type(text);
    waitFor("the text \"" + text + '"', [&] { return textOf(field) == text; });
}

void Engineer::pressButton(HWND button)
{
    hand_.pressAt(middleOf(button));
    waitFor("the button to go down", [&] { return isPushed(button); });
    hand_.release();
    waitFor("the button to come up",
            [&] { return IsWindow(button) == FALSE || !isPushed(button); });
}

void Engineer::click(std::string_view argument)
{
    pressButton(form_->control(argument));
    while (!picks_.empty() || !choices_.empty()) {
        HWND pick = nullptr;
        HWND choice = nullptr;
        waitFor("a dialog that takes the next answer", [&] {
            pick = visibleWindow(femap_.processID(), dialogClass);
            choice = visibleWindow(process_->id(), dialogClass);
            return pick != nullptr || choice != nullptr;
        });
        const bool isPick = pick != nullptr;
        if (isPick ? picks_.empty() : choices_.empty())
            throw std::runtime_error("\"" + line_ + "\": no answer for the dialog " +
                                     textOf(isPick ? pick : choice));
        isPick ? answerPick(pick) : answerChoice(choice);
    }
    form_->settle(longest);
}

// FEMAP's dialog. All there is by Ctrl+A, a few IDs by clicks on them, others by typing them.
void Engineer::answerPick(HWND dialog)
{
    const std::string pick = picks_.front();
    picks_.pop_front();
    const HWND list = FindWindowExW(dialog, nullptr, L"ListBox", nullptr);
    waitFor("the dialog to be ready",
            [&] { return IsWindowVisible(list) != FALSE && listNumber(list, LB_GETCOUNT) > 0; });
    const bool isWords = pick.find('-') == std::string::npos;
    if (pick == "all") {
        markInList(list, 0, false);
        hand_.key({"ctrl+a"});
        waitFor("all to be marked",
                [&] { return markedCount(list) == listNumber(list, LB_GETCOUNT); });
        hand_.key({"Return"});
    }
    else if (isWords && listNumber(list, LB_GETCOUNT) < 100) {
        bool isFurther = false;
        std::istringstream ids(pick);
        for (std::string id; ids >> id; isFurther = true)
            markInList(list, findInList(list, LB_FINDSTRING, id + '\t'), isFurther);
        pressButton(GetDlgItem(dialog, IDOK));
    }
    else {
        typeIDs(dialog, list, pick);
        hand_.key({"Return"});
    }
    waitFor("FEMAP's dialog to go", [&] { return IsWindow(dialog) == FALSE; });
}

void Engineer::typeIDs(HWND dialog, HWND list, const std::string& ids)
{
    write(FindWindowExW(dialog, nullptr, L"Edit", nullptr), ids);
    waitFor("the IDs to be marked", [&] { return markedCount(list) > 0; });
}

// The property list. A single choice is taken by Enter, others by the button.
void Engineer::answerChoice(HWND dialog)
{
    const std::string choice = choices_.front();
    choices_.pop_front();
    const HWND list = form_->list();
    const HWND add = GetDlgItem(dialog, PropertyListWindow::idAdd);
    waitFor("the property list to be ready", [&] { return IsWindowVisible(add) != FALSE; });
    const std::vector<std::string> items =
        choice == "none" ? std::vector<std::string>() : itemsIn(choice);
    const std::vector<std::string> offered = form_->offered();
    for (const std::string& item : items) {
        const int place = lineOf(offered, item);
        if (place < 0)
            throw std::runtime_error("\"" + line_ + "\": the list does not offer " + item);
        hand_.clickAt(placeIn(list, rowPlaceIn(list, intoView(list, place))));
        waitFor("a line to be ticked", [&] { return isTicked(list, place); });
    }
    if (items.size() == 1)
        hand_.key({"Return"});
    else
        pressButton(add);
    waitFor("the property list to go", [&] { return IsWindow(dialog) == FALSE; });
}

void Engineer::markInList(HWND list, LRESULT item, bool further)
{
    const int rowHeight = listNumber(list, LB_GETITEMHEIGHT);
    RECT inside{};
    GetClientRect(list, &inside);
    bringIntoView(
        list, static_cast<int>(item), [&] { return listNumber(list, LB_GETTOPINDEX); },
        [&] { return static_cast<int>(inside.bottom) / rowHeight; });
    const int row = static_cast<int>(item) - listNumber(list, LB_GETTOPINDEX);
    hand_.clickAt(placeIn(list, {20, rowHeight * row + rowHeight / 2}), further ? "ctrl" : "");
    waitFor("an item to be marked", [&] { return isMarked(list, item); });
}

// By the wheel.
void Engineer::bringIntoView(HWND list, int item, const std::function<int()>& top,
                             const std::function<int()>& visibleCount)
{
    while (item < top() || item >= top() + visibleCount()) {
        const int before = top();
        hand_.turnWheel(middleOf(list), item < before ? 1 : -1);
        waitFor("the list to scroll", [&] { return top() != before; });
    }
}

int Engineer::intoView(HWND listView, int item)
{
    bringIntoView(
        listView, item, [&] { return listNumber(listView, LVM_GETTOPINDEX); },
        [&] { return listNumber(listView, LVM_GETCOUNTPERPAGE); });
    return item;
}

POINT Engineer::rowOf(const std::string& grid, int item)
{
    const HWND list = form_->control(grid);
    return placeIn(list, rowPlaceIn(list, intoView(list, item)));
}

// The Shift key goes down while another control has the keyboard: in a grid it would be one more
// key of the study.
void Engineer::select(std::string_view argument)
{
    const std::string grid(takeWord(argument));
    const int first = numberIn(argument) - 1;
    const bool isRange = !argument.empty();
    const int last = isRange ? numberIn(argument) - 1 : first;
    const HWND list = form_->control(grid);
    hand_.clickAt(placeIn(list, rowPlaceIn(list, listNumber(list, LVM_GETTOPINDEX))));
    rowOf(grid, last);
    hand_.clickAt(rowOf(grid, first));
    waitFor("the row to be selected",
            [&] { return form_->selectedRows(grid) == std::vector<int>{first}; });
    if (!isRange)
        return;
    hand_.clickAt(middleOf(form_->control("CommandLine")));
    hand_.clickAt(rowOf(grid, last), "shift");
    std::vector<int> rows;
    for (int row = std::min(first, last); row <= std::max(first, last); ++row)
        rows.push_back(row);
    waitFor("the rows to be selected", [&] { return form_->selectedRows(grid) == rows; });
}

// The only key that a study presses in a grid is Delete.
void Engineer::key(std::string_view argument)
{
    const std::string grid(takeWord(argument));
    if (numberIn(argument) != VK_DELETE)
        throw std::logic_error("No hand can do: " + line_);
    const int before = form_->rowCount(grid);
    hand_.key({"Delete"});
    waitFor("a row to go", [&] { return form_->rowCount(grid) < before; });
    form_->settle(longest);
}

}  // namespace driver
