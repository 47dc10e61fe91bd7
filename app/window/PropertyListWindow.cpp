#include "app/window/PropertyListWindow.h"

#include "app/window/AccessKeys.h"
#include "app/window/Tips.h"
#include "windows/Text.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace window
{

using windows::toWide;

namespace
{

// Twips.
constexpr int margin = 150;
constexpr int gap = 105;
constexpr int headingHeight = 225;
constexpr int buttonHeight = 375;
constexpr int buttonWidth = 1350;
constexpr int dialogWidth = 5 * margin + 4 * buttonWidth + gap;
constexpr int dialogHeight = 6000;
constexpr int smallestHeight = 3000;

struct ButtonRow
{
    int id;
    std::string selection::frmPropertyList::*caption;
    char accessKey;
};

constexpr ButtonRow buttons[] = {
    {PropertyListWindow::idSelect, &selection::frmPropertyList::cmdSelect, 'S'},
    {PropertyListWindow::idDeSelect, &selection::frmPropertyList::cmdDeSelect, 'D'},
    {PropertyListWindow::idAdd, &selection::frmPropertyList::cmdAdd, 'A'},
    {PropertyListWindow::idCancel, &selection::frmPropertyList::cmdCancel, 'C'},
};

}  // namespace

void PropertyListWindow::showModal(selection::frmPropertyList& dialog)
{
    if (dialog.asked.list == 1)
        restIsCancelled_ = false;
    if (restIsCancelled_) {
        dialog.cmdCancel_Click();
        return;
    }
    dialog_ = &dialog;
    const INT_PTR result = showModalTo(owner_());
    const bool wasShown = std::exchange(window_, nullptr) != nullptr;
    dialog_ = nullptr;
    list_.reset();
    if (mistake_ != nullptr)
        std::rethrow_exception(std::exchange(mistake_, nullptr));
    if (!wasShown)
        throw std::runtime_error("Windows refused the dialog " + dialog.Caption);
    if (result <= 0)  // it was destroyed with the main window
        dialog.cmdCancel_Click();
}

void PropertyListWindow::cancel()
{
    if (window_ != nullptr)
        press(idCancel);
}

INT_PTR PropertyListWindow::answer(UINT message, WPARAM wParam, LPARAM lParam)
{
    INT_PTR result = FALSE;
    guarded([&] { result = DialogWindow::answer(message, wParam, lParam); });
    return result;
}

// Keeps an exception for showModal, for none may pass through Windows' own code in between.
template <class Step>
void PropertyListWindow::guarded(Step&& step)
{
    try {
        step();
    }
    catch (const std::exception&) {
        mistake_ = std::current_exception();
        EndDialog(window_, idCancel);
    }
}

INT_PTR PropertyListWindow::handle(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_COMMAND:
        if (HIWORD(wParam) == BN_CLICKED)
            press(LOWORD(wParam));
        return TRUE;
    case WM_NOTIFY:
        notify(*reinterpret_cast<const NMHDR*>(lParam));
        return TRUE;
    default:
        return FALSE;
    }
}

SIZE PropertyListWindow::leastSize() const
{
    return {dialogWidth, smallestHeight};
}

void PropertyListWindow::initialise()
{
    guarded([this] {
        SetWindowTextW(window_, toWide(dialog_->Caption).c_str());
        createControls();
        applyResolution(GetDpiForWindow(window_));

        const SIZE size = windowSize(window_, dialogWidth, dialogHeight, pixels_.dotsPerInch());
        const form::ScreenPlace middle = form::centredOn(placeOf(owner_()), size.cx, size.cy);
        moveTo(window_, form::keptWithin(middle, workAreaOf(owner_())));
        layOut();
        SetFocus(list_->window());
    });
}

void PropertyListWindow::createControls()
{
    createControl(window_, L"STATIC", dialog_->Label2, SS_LEFT | SS_NOPREFIX, 0, idHeading);
    const HWND asked = createControl(
        window_, L"STATIC", "", SS_LEFT | SS_NOPREFIX | SS_NOTIFY | SS_ENDELLIPSIS, 0, idAsked);
    tips_ = createTips(window_);
    addTip(tips_, window_, asked, {});
    say(dialog_->asked.text());
    list_ = std::make_unique<TickList>(
        window_, idList, dialog_->lstProperties, [this](const std::string& text, bool isFound) {
            say(isFound ? "Typed: " + text : "No line here has: " + text);
        });
    for (const ButtonRow& each : buttons) {
        const DWORD style = each.id == idAdd ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON;
        createControl(window_, L"BUTTON", withAccessKey(dialog_->*each.caption, each.accessKey),
                      WS_TABSTOP | style, 0, each.id);
    }
}

void PropertyListWindow::layOut()
{
    RECT inside{};
    GetClientRect(window_, &inside);
    const int width = pixels_.toTwips(inside.right);
    const int height = pixels_.toTwips(inside.bottom);
    const auto setBounds = [&](int id, int left, int top, int controlWidth, int controlHeight) {
        MoveWindow(control(id), pixels_.fromTwips(left), pixels_.fromTwips(top),
                   pixels_.fromTwips(controlWidth), pixels_.fromTwips(controlHeight), TRUE);
    };
    const int askedTop = margin - gap / 2 + headingHeight;
    const int listTop = askedTop + headingHeight + gap / 2;
    const int buttonTop = height - margin - buttonHeight;
    const int right = width - margin;
    setBounds(idHeading, margin, margin - gap / 2, width - 2 * margin, headingHeight);
    setBounds(idAsked, margin, askedTop, width - 2 * margin, headingHeight);
    setBounds(idList, margin, listTop, width - 2 * margin, buttonTop - gap - listTop);
    setBounds(idSelect, margin, buttonTop, buttonWidth, buttonHeight);
    setBounds(idDeSelect, margin + buttonWidth + gap, buttonTop, buttonWidth, buttonHeight);
    setBounds(idAdd, right - 2 * buttonWidth - gap, buttonTop, buttonWidth, buttonHeight);
    setBounds(idCancel, right - buttonWidth, buttonTop, buttonWidth, buttonHeight);
    list_->fitWidth();
}

void PropertyListWindow::notify(const NMHDR& header)
{
    if (list_ == nullptr || header.hwndFrom != list_->window())
        return;
    list_->notify(header);
    if (header.code != LVN_KEYDOWN)
        return;
    const WORD key = reinterpret_cast<const NMLVKEYDOWN&>(header).wVKey;
    if (key == keyToTickAgain)
        tickAgain();
    else if (key == 'A' && GetKeyState(VK_CONTROL) < 0)
        press(idSelect);
}

// On the line under the heading; all of it in the line's tip.
void PropertyListWindow::say(const std::string& text)
{
    const HWND line = GetDlgItem(window_, idAsked);
    setWindowText(line, text);
    setTip(tips_, window_, line, text);
}

void PropertyListWindow::tickAgain()
{
    const auto last = lastTicked_.find(dialog_->kindOfList());
    if (last == lastTicked_.end()) {
        say("No list of this kind was answered before");
        return;
    }
    std::size_t count = 0;
    for (selection::MultiSelectList::Item& item : dialog_->lstProperties.items)
        if (last->second.contains(item.text)) {
            item.selected = true;
            ++count;
        }
    list_->update();
    say(std::to_string(count) + " of " + std::to_string(last->second.size()) +
        " ticked as in the last list of this kind");
}

void PropertyListWindow::press(int id)
{
    switch (id) {
    case idSelect:
        dialog_->cmdSelect_Click();
        list_->update();
        break;
    case idDeSelect:
        dialog_->cmdDeSelect_Click();
        list_->update();
        break;
    case idAdd:
        add();
        break;
    case idCancel:
        // With Shift those that would follow are answered likewise.
        restIsCancelled_ = GetKeyState(VK_SHIFT) < 0;
        dialog_->cmdCancel_Click();
        EndDialog(window_, idCancel);
        break;
    default:
        break;
    }
}

void PropertyListWindow::add()
{
    std::set<std::string>& ticked = lastTicked_[dialog_->kindOfList()];
    ticked.clear();
    for (const selection::MultiSelectList::Item& item : dialog_->lstProperties.items)
        if (item.selected)
            ticked.insert(item.text);
    dialog_->cmdAdd_Click();
    EndDialog(window_, idAdd);
}

}  // namespace window
