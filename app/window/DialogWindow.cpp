#include "app/window/DialogWindow.h"

#include "windows/Dialog.h"

#include <utility>

namespace window
{

INT_PTR DialogWindow::showModalTo(HWND owner)
{
    return windows::showEmptyDialog(owner, WS_EX_CONTROLPARENT, procedure, this);
}

bool DialogWindow::createBeside(HWND owner)
{
    return windows::createEmptyDialog(owner, WS_EX_CONTROLPARENT, procedure, this) != nullptr;
}

INT_PTR CALLBACK DialogWindow::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(window, DWLP_USER, lParam);
        auto& self = *reinterpret_cast<DialogWindow*>(lParam);
        self.window_ = window;
        self.initialise();
        return FALSE;  // the focus is set when there is a control for it
    }
    auto* const self = reinterpret_cast<DialogWindow*>(GetWindowLongPtrW(window, DWLP_USER));
    return self == nullptr || self->window_ != window ? FALSE
                                                      : self->answer(message, wParam, lParam);
}

INT_PTR DialogWindow::answer(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_SIZE:
        layOut();
        return TRUE;
    // Not for the owner, which is FEMAP's window where the form is a pane.
    case WM_HELP:
    case WM_MOUSEWHEEL:
    case WM_MOUSEHWHEEL:
        return TRUE;
    case WM_GETMINMAXINFO: {
        const SIZE inside = leastSize();
        if (inside.cx == 0)
            return FALSE;
        const SIZE least = windowSize(window_, inside.cx, inside.cy, pixels_.dotsPerInch());
        reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {least.cx, least.cy};
        return TRUE;
    }
    case WM_DPICHANGED: {
        const RECT& bounds = *reinterpret_cast<const RECT*>(lParam);
        applyResolution(HIWORD(wParam));
        moveTo(window_, {bounds.left, bounds.top, bounds.right, bounds.bottom});
        return TRUE;
    }
    default:
        return handle(message, wParam, lParam);
    }
}

void DialogWindow::applyResolution(UINT dotsPerInch)
{
    pixels_ = Pixels(dotsPerInch);
    auto font = std::make_unique<Font>(dotsPerInch);
    for (HWND each = GetWindow(window_, GW_CHILD); each != nullptr;
         each = GetWindow(each, GW_HWNDNEXT))
        setFont(each, *font);
    font_ = std::move(font);  // the old one goes when nothing uses it any more
    resolutionChanged();
}

}  // namespace window
