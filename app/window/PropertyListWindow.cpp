#include "app/window/PropertyListWindow.h"

#include "app/window/Pixels.h"
#include "windows/Dialog.h"
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

SIZE windowSize(HWND window, int width, int height, UINT dotsPerInch)
{
    const Pixels pixels(dotsPerInch);
    RECT frame{0, 0, pixels.fromTwips(width), pixels.fromTwips(height)};
    AdjustWindowRectExForDpi(&frame, static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE)), FALSE,
                             static_cast<DWORD>(GetWindowLongW(window, GWL_EXSTYLE)), dotsPerInch);
    return {frame.right - frame.left, frame.bottom - frame.top};
}

}  // namespace

void PropertyListWindow::showModal(selection::frmPropertyList& dialog)
{
    dialog_ = &dialog;
    const INT_PTR result = windows::showEmptyDialog(owner_(), WS_EX_CONTROLPARENT, procedure, this);
    const bool wasShown = std::exchange(window_, nullptr) != nullptr;
    dialog_ = nullptr;
    font_.reset();
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

INT_PTR CALLBACK PropertyListWindow::procedure(HWND window, UINT message, WPARAM wParam,
                                               LPARAM lParam)
{
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(window, DWLP_USER, lParam);
        auto& self = *reinterpret_cast<PropertyListWindow*>(lParam);
        self.window_ = window;
        self.guarded([&] { self.initialise(); });
        return FALSE;  // the focus is set
    }
    auto* const self = reinterpret_cast<PropertyListWindow*>(GetWindowLongPtrW(window, DWLP_USER));
    INT_PTR result = FALSE;
    if (self != nullptr)
        self->guarded([&] { result = self->handle(message, wParam, lParam); });
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
        if (LOWORD(wParam) == idList && HIWORD(wParam) == LBN_DBLCLK)
            press(idAdd);
        else if (HIWORD(wParam) == BN_CLICKED)
            press(LOWORD(wParam));
        return TRUE;
    case WM_SIZE:
        layOut();
        return TRUE;
    case WM_GETMINMAXINFO: {
        const SIZE smallest = windowSize(window_, dialogWidth, smallestHeight, dotsPerInch_);
        reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {smallest.cx, smallest.cy};
        return TRUE;
    }
    case WM_DPICHANGED: {
        const RECT& bounds = *reinterpret_cast<const RECT*>(lParam);
        applyResolution(HIWORD(wParam));
        SetWindowPos(window_, nullptr, bounds.left, bounds.top, bounds.right - bounds.left,
                     bounds.bottom - bounds.top, SWP_NOZORDER | SWP_NOACTIVATE);
        return TRUE;
    }
    default:
        return FALSE;
    }
}

void PropertyListWindow::initialise()
{
    SetWindowTextW(window_, toWide(dialog_->Caption).c_str());
    createControls();
    applyResolution(GetDpiForWindow(window_));

    const SIZE size = windowSize(window_, dialogWidth, dialogHeight, dotsPerInch_);
    const form::ScreenPlace middle = form::centredOn(placeOf(owner_()), size.cx, size.cy);
    moveTo(window_, form::keptWithin(middle, workAreaOf(owner_())));
    layOut();
    showChoice();
    SetFocus(GetDlgItem(window_, idList));
}

void PropertyListWindow::createControls()
{
    createControl(window_, L"STATIC", dialog_->Label2, SS_LEFT | SS_NOPREFIX, 0, idHeading);
    const HWND list =
        createControl(window_, L"LISTBOX", "",
                      WS_TABSTOP | WS_VSCROLL | LBS_EXTENDEDSEL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT,
                      WS_EX_CLIENTEDGE, idList);
    createControl(window_, L"BUTTON", dialog_->cmdSelect, WS_TABSTOP, 0, idSelect);
    createControl(window_, L"BUTTON", dialog_->cmdDeSelect, WS_TABSTOP, 0, idDeSelect);
    createControl(window_, L"BUTTON", dialog_->cmdAdd, WS_TABSTOP | BS_DEFPUSHBUTTON, 0, idAdd);
    createControl(window_, L"BUTTON", dialog_->cmdCancel, WS_TABSTOP, 0, idCancel);

    SendMessageW(list, WM_SETREDRAW, FALSE, 0);
    SendMessageW(list, LB_INITSTORAGE, dialog_->lstProperties.items.size(), 0);
    for (const selection::MultiSelectList::Item& item : dialog_->lstProperties.items)
        SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(toWide(item.text).c_str()));
    SendMessageW(list, WM_SETREDRAW, TRUE, 0);
}

void PropertyListWindow::applyResolution(UINT dotsPerInch)
{
    dotsPerInch_ = dotsPerInch;
    auto font = std::make_unique<Font>(dotsPerInch);
    for (const int id : {idHeading, idList, idSelect, idDeSelect, idAdd, idCancel})
        setFont(GetDlgItem(window_, id), *font);
    font_ = std::move(font);  // the old one goes when nothing uses it any more
}

void PropertyListWindow::layOut()
{
    RECT inside{};
    GetClientRect(window_, &inside);
    const Pixels pixels(dotsPerInch_);
    const int width = pixels.toTwips(inside.right);
    const int height = pixels.toTwips(inside.bottom);
    const auto setBounds = [&](int id, int left, int top, int controlWidth, int controlHeight) {
        MoveWindow(GetDlgItem(window_, id), pixels.fromTwips(left), pixels.fromTwips(top),
                   pixels.fromTwips(controlWidth), pixels.fromTwips(controlHeight), TRUE);
    };
    const int listTop = margin + headingHeight;
    const int buttonTop = height - margin - buttonHeight;
    const int right = width - margin;
    setBounds(idHeading, margin, margin - gap / 2, width - 2 * margin, headingHeight);
    setBounds(idList, margin, listTop, width - 2 * margin, buttonTop - gap - listTop);
    setBounds(idSelect, margin, buttonTop, buttonWidth, buttonHeight);
    setBounds(idDeSelect, margin + buttonWidth + gap, buttonTop, buttonWidth, buttonHeight);
    setBounds(idAdd, right - 2 * buttonWidth - gap, buttonTop, buttonWidth, buttonHeight);
    setBounds(idCancel, right - buttonWidth, buttonTop, buttonWidth, buttonHeight);
}

// Selects all at once where all are meant, and paints once: there may be thousands of items. Not by
// LB_SELITEMRANGEEX, which takes the selection away where first and last are the same item.
void PropertyListWindow::showChoice()
{
    const HWND list = GetDlgItem(window_, idList);
    const auto& items = dialog_->lstProperties.items;
    const bool all = std::ranges::all_of(items, &selection::MultiSelectList::Item::selected);
    SendMessageW(list, WM_SETREDRAW, FALSE, 0);
    SendMessageW(list, LB_SETSEL, all ? TRUE : FALSE, -1);
    for (std::size_t item = 0; !all && item < items.size(); ++item)
        if (items[item].selected)
            SendMessageW(list, LB_SETSEL, TRUE, static_cast<LPARAM>(item));
    SendMessageW(list, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(list, nullptr, TRUE);
}

void PropertyListWindow::takeChoice()
{
    const HWND list = GetDlgItem(window_, idList);
    int item = 0;
    for (selection::MultiSelectList::Item& each : dialog_->lstProperties.items)
        each.selected = SendMessageW(list, LB_GETSEL, static_cast<WPARAM>(item++), 0) > 0;
}

void PropertyListWindow::press(int id)
{
    switch (id) {
    case idSelect:
        dialog_->cmdSelect_Click();
        showChoice();
        break;
    case idDeSelect:
        dialog_->cmdDeSelect_Click();
        showChoice();
        break;
    case idAdd:
        takeChoice();
        dialog_->cmdAdd_Click();
        EndDialog(window_, idAdd);
        break;
    case idCancel:
        dialog_->cmdCancel_Click();
        EndDialog(window_, idCancel);
        break;
    default:
        break;
    }
}

}  // namespace window
