#include "app/window/BesideWindow.h"

#include <algorithm>
#include <stdexcept>

namespace window
{

namespace
{

constexpr WPARAM keysOfTheForm[] = {VK_F1, VK_F8, VK_F9};

bool isWithControl()
{
    return GetKeyState(VK_CONTROL) < 0 && GetKeyState(VK_MENU) >= 0;
}

}  // namespace

void BesideWindow::open(HWND owner)
{
    if (window_ == nullptr) {
        if (!createBeside(owner))
            throw std::runtime_error(shape_.refusal);
        SetWindowTextW(window_, shape_.title);
        createControls();
        applyResolution(GetDpiForWindow(window_));
        const SIZE size =
            windowSize(window_, shape_.size.cx, shape_.size.cy, pixels_.dotsPerInch());
        const form::ScreenPlace form = placeOf(owner);
        moveTo(window_, form::keptWithin({form.right, form.top, form.right + int(size.cx),
                                          form.top + int(size.cy)},
                                         workAreaOf(owner)));
        layOut();
    }
    ShowWindow(window_, SW_SHOWNORMAL);
    SetForegroundWindow(window_);
    SetFocus(control(shape_.first));
}

void BesideWindow::close()
{
    if (window_ != nullptr)
        DestroyWindow(window_);
}

// The window's own keys go before those that every dialog has.
bool BesideWindow::translate(MSG& message)
{
    const bool isOurs =
        window_ != nullptr && (message.hwnd == window_ || IsChild(window_, message.hwnd) != FALSE);
    if (!isOurs)
        return false;
    if (message.message == WM_KEYDOWN && std::ranges::count(keysOfTheForm, message.wParam) > 0)
        return false;
    if (message.message == WM_KEYDOWN && isWithControl() && pressed(message.hwnd, message.wParam))
        return true;
    return IsDialogMessageW(window_, &message) != FALSE;
}

INT_PTR BesideWindow::handle(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_COMMAND:
        if (LOWORD(wParam) == IDCANCEL)
            close();
        else
            command(LOWORD(wParam));
        return TRUE;
    case WM_CLOSE:
        close();
        return TRUE;
    case WM_NOTIFY:
        SetWindowLongPtrW(window_, DWLP_MSGRESULT, notify(*reinterpret_cast<const NMHDR*>(lParam)));
        return TRUE;
    case WM_DESTROY:
    case WM_NCDESTROY:  // Wine leaves the other one out when the owner's process ends
        window_ = nullptr;
        forget();
        return TRUE;
    default:
        return FALSE;
    }
}

}  // namespace window
