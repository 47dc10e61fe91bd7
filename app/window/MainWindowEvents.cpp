// MainWindow: hands clicks, keys and typed texts to the program and shows afterwards what changed.
#include "app/FemapEvents.h"
#include "app/window/MainWindow.h"
#include "app/window/SentMessages.h"
#include "femap/Constants.h"
#include "form/FormProcedures.h"

#include <algorithm>
#include <iterator>
#include <windowsx.h>

namespace window
{

using form::kindOf;
using form::What;

namespace
{

// What Windows disables can be neither scrolled nor copied nor read. So these stay as they are when
// the form is off: what holds other controls or moves them, the lists, which then are grey and run
// no procedure, and the status line.
constexpr form::Kind kindsThatStayOn[] = {kindOf<form::PictureBox>, kindOf<form::HScrollBar>,
                                          kindOf<form::VScrollBar>, kindOf<form::ParameterGrid>,
                                          kindOf<form::StatusText>};

}  // namespace

void MainWindow::command(int id, int notification)
{
    if (!ready_ || mirroring_)
        return;
    if (id == FindField::idText)
        findCommand(notification);
    const form::NamedControl* const which = controlWithID(id);
    if (which == nullptr)
        return;
    auto* const field = which->as<form::TextBox>();
    if (auto* const box = which->as<form::ComboBox>())
        comboCommand(*box, notification);
    else if (field != nullptr && notification == EN_CHANGE)
        field->Text = windowText(windows_.at(field));
    else if (which->as<form::Button>() != nullptr && notification == BN_CLICKED)
        press(*which);
}

// Enter, an access key, which presses a button or goes to a field, or another key of the form.
void MainWindow::pressKey(int id)
{
    if (!ready_)
        return;
    if (id == IDOK) {
        pressEnter();
        return;
    }
    if (isCommand(static_cast<WPARAM>(id))) {
        runCommand(static_cast<WPARAM>(id));
        return;
    }
    const form::NamedControl* const which = controlWithID(id);
    if (which == nullptr || !which->control->Enabled)
        return;
    if (which->as<form::Button>() != nullptr) {
        press(*which);
        return;
    }
    const HWND field = windows_.at(which->control);
    SetFocus(field);
    if (which->as<form::ComboBox>() != nullptr)  // what is typed replaces the old choice
        ComboBox_SetEditSel(field, 0, -1);
}

// Ctrl+Z, or Ctrl+Shift+Z; in a field the former is Windows' own key.
bool MainWindow::isStepBack(const MSG& message) const
{
    const auto isDown = [](int key) { return GetKeyState(key) < 0; };
    if (message.message != WM_KEYDOWN || message.wParam != 'Z' || !isDown(VK_CONTROL) ||
        isDown(VK_MENU) || !ready_ || starting_ || IsChild(window_, message.hwnd) == FALSE)
        return false;
    if (isDown(VK_SHIFT))
        return true;
    wchar_t kind[8]{};
    GetClassNameW(message.hwnd, kind, static_cast<int>(std::size(kind)));
    return CompareStringOrdinal(kind, -1, L"Edit", -1, TRUE) != CSTR_EQUAL;
}

// Presses the button that has the focus, or takes over the text of a box, changed or not.
void MainWindow::pressEnter()
{
    const HWND focus = GetFocus();
    const form::NamedControl* const which = controlWithID(GetDlgCtrlID(focus));
    const bool isButton = which != nullptr && which->as<form::Button>() != nullptr;
    if (isButton && windows_.at(which->control) == focus)
        press(*which);
    else
        commitTexts(focus);
}

void MainWindow::press(const form::NamedControl& button)
{
    if (!button.control->Enabled)
        return;
    commitTexts();
    raise(form::click(button.name));
}

void MainWindow::comboCommand(form::ComboBox& box, int notification)
{
    switch (notification) {
    case CBN_EDITCHANGE:
        typing_ = &box;
        break;
    case CBN_SELCHANGE:
        typing_ = &box;
        choosing_ = &box;
        break;
    case CBN_SELENDOK:
        listClosed(box);
        break;
    case CBN_SELENDCANCEL:
        listLeft(box);
        break;
    case CBN_KILLFOCUS:
        if (senderWaits())
            PostMessageW(window_, takeTextsMessage, 0, 0);
        else
            commitTexts();
        break;
    default:
        break;
    }
}

// By a click or a key. Enter chooses also where no item was gone to. Windows shows the item after
// this only, and may tell only then that it was gone to; so the choice is taken over later.
void MainWindow::listClosed(form::ComboBox& box)
{
    if (GetKeyState(VK_RETURN) < 0)
        choosing_ = &box;
    PostMessageW(window_, takeTextsMessage, 0, 0);
}

// Esc, or the focus went elsewhere. Tab takes over what the box shows; else the old choice comes
// back when an item was gone to or, with Esc, in any case.
void MainWindow::listLeft(const form::ComboBox& box)
{
    const bool isEscape = GetKeyState(VK_ESCAPE) < 0;
    const bool isTab = GetKeyState(VK_TAB) < 0 && GetKeyState(VK_MENU) >= 0;
    if (!isEscape && (isTab || choosing_ != &box))
        return;
    typing_ = nullptr;
    choosing_ = nullptr;
    mirrorCombo(box);
}

// Takes over what was typed into the combo boxes or chosen from their lists, and the text of the
// one with this window.
void MainWindow::commitTexts(HWND entered)
{
    for (const form::NamedControl& each : program_.form().controls()) {
        auto* const box = each.as<form::ComboBox>();
        if (box == nullptr)
            continue;
        if (!ready_)
            return;
        const HWND window = windows_.at(box);
        const std::string typed = windowText(window);
        const bool isEntered =
            choosing_ == box ||
            (entered != nullptr && (window == entered || IsChild(window, entered) != FALSE));
        if (typing_ == box)
            typing_ = nullptr;
        if (choosing_ == box)
            choosing_ = nullptr;
        if (isEntered || typed != box->Text)
            takeText(*box, typed);
    }
}

void MainWindow::takeText(form::ComboBox& box, const std::string& typed)
{
    beforeEvent(eventOf(box, What::Click));
    const auto enter = [&] { return program_.enterText(box, typed); };
    const bool isClicking = GetKeyState(VK_LBUTTON) < 0;
    if (!isClicking) {
        carryOut(enter);
        return;
    }
    // The click that took the focus out of the box is still being made and shall do its work.
    enter();
    afterEvent();
}

// Starts a procedure. What the engineer does in the form meanwhile with mouse and keyboard is
// dropped, or it would be done afterwards: a double click on a button would press it twice.
void MainWindow::carryOut(const std::function<app::Ended()>& start)
{
    if (block_.has_value() || program_.isBusy()) {
        start();
        afterEvent();
        return;
    }
    block_.emplace(window_, windows_.at(&program_.form().pbOuter));
    if (start() != app::Ended::NotStarted && ready_)
        dropInput(window_);
    block_.reset();
    afterEvent();
}

void MainWindow::raise(const form::Event& event, int argument)
{
    if (removesNothing(event, argument)) {
        tellNothingSelected();
        return;
    }
    beforeEvent(event);
    carryOut([&] { return program_.raise(event, argument); });
    showNewRows();
}

// Keys that only move the selection come one after the other as fast as they are typed.
void MainWindow::pressInGrid(const form::ParameterGrid& grid, int key)
{
    const form::Event event = eventOf(grid, What::KeyDown);
    if (key == form::deleteKey) {
        raise(event, key);
        return;
    }
    program_.raise(event, key);
    afterEvent();
}

void MainWindow::raiseFemapEvent(WPARAM code)
{
    const auto number = static_cast<std::intptr_t>(code);
    if (!app::isFemapEvent(number))
        return;
    carryOut([&] {
        const app::Ended ended = program_.raiseFemapEvent(number);
        // FEMAP is ending: an open dialog must not keep the form from closing.
        if (code == static_cast<WPARAM>(femap::EventCode::Shutdown))
            propertyList_.cancel();
        return ended;
    });
}

form::Event MainWindow::eventOf(const form::Control& control, What what)
{
    return {program_.form().named(control).name, what};
}

// Shows the hourglass at once: a busy FEMAP keeps a procedure waiting from its first call on,
// before the procedure itself sets the hourglass.
void MainWindow::beforeEvent(const form::Event& event)
{
    const app::Binding* const binding = app::findBinding(event);
    if (binding != nullptr && binding->needsFemap)
        SetCursor(LoadCursorW(nullptr, IDC_WAIT));
}

void MainWindow::afterEvent()
{
    if (!ready_ || program_.isClosed())
        return;
    if (!program_.isBusy())
        program_.form().status.showWaiting({});
    showPointer();
    mirror();
    layOut();
    listFindings();
    followPreview();
}

// Brings the window up to date with the form.
void MainWindow::mirror()
{
    mirroring_ = true;
    const form::MainForm& form = program_.form();
    for (const form::NamedControl& each : form.controls()) {
        const HWND window = windows_.at(each.control);
        const bool isBlocked = block_.has_value() && each.control == &form.pbOuter;
        const bool isOn =
            std::ranges::count(kindsThatStayOn, each.kind()) > 0 || isUsable(*each.control);
        if (!isBlocked && (IsWindowEnabled(window) != FALSE) != isOn)
            EnableWindow(window, isOn ? TRUE : FALSE);
    }
    showColours();
    status_->show(form.StatusLine.Caption);
    showModelLine();
    for (const form::NamedControl& each : form.controls()) {
        if (const auto* const field = each.as<form::TextBox>())
            setWindowText(windows_.at(field), field->Text);
        const auto* const box = each.as<form::ComboBox>();
        if (box != nullptr && box != typing_)
            mirrorCombo(*box);
    }
    for (const auto& [grid, view] : grids_)
        view->update();
    mirroring_ = false;
    leaveDisabledControl();
}

// Whether the engineer may use a control now; while the program starts, none.
bool MainWindow::isUsable(const form::Control& control) const
{
    return control.Enabled && !starting_;
}

void MainWindow::showModelLine()
{
    int selected = 0;
    for (const auto& [grid, view] : grids_)
        selected += view->selectedCount();
    modelLineView_->show(modelLine_.text(program_.form(), selected));
}

void MainWindow::showColours()
{
    for (const auto& [grid, view] : grids_)
        view->showColours(isUsable(*grid));
}

// The engineer chose other colours; Windows tells the outermost windows only.
void MainWindow::takeColours()
{
    if (!ready_)
        return;
    for (const auto& [control, window] : windows_)
        SendMessageW(window, WM_SYSCOLORCHANGE, 0, 0);
    showColours();
}

// Windows leaves the focus on a control that has been disabled, where every key is lost. The frame
// itself has it when a dialog was closed while a procedure ran.
void MainWindow::leaveDisabledControl()
{
    const HWND focus = GetFocus();
    if (focus == window_ || (IsChild(window_, focus) != FALSE && !takesKeys(focus)))
        restoreFocus();
}

// Sets the focus to the control that had it before, or to the first one that can have it.
void MainWindow::restoreFocus()
{
    if (!ready_ || starting_ || block_.has_value())
        return;
    if (focusBefore_ != nullptr && IsChild(window_, focusBefore_) != FALSE &&
        takesKeys(focusBefore_)) {
        SetFocus(focusBefore_);
        return;
    }
    const HWND content = windows_.at(&program_.form().pbInner);
    const HWND first = GetNextDlgTabItem(content, nullptr, FALSE);
    SetFocus(first != nullptr && takesKeys(first) ? first : nullptr);
}

// Whether neither the control nor a window that it lies in is disabled.
bool MainWindow::takesKeys(HWND control) const
{
    for (; control != nullptr && control != window_; control = GetParent(control))
        if (IsWindowEnabled(control) == FALSE)
            return false;
    return true;
}

void MainWindow::mirrorCombo(const form::ComboBox& box)
{
    const HWND window = windows_.at(&box);
    if (ComboBox_GetCurSel(window) != box.ListIndex)
        ComboBox_SetCurSel(window, box.ListIndex);
    setWindowText(window, box.Text);
}

void MainWindow::showPointer()
{
    SetCursor(LoadCursorW(nullptr, isBusy() ? IDC_WAIT : IDC_ARROW));
}

bool MainWindow::isBusy()
{
    return program_.isBusy() || program_.form().pbInner.MousePointer == form::pointerHourglass;
}

}  // namespace window
