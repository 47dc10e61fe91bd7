#include "app/window/EventHook.h"

#include "app/window/SentMessages.h"

#include <utility>

namespace window
{

namespace
{

WNDPROC setWindowProcedure(HWND window, WNDPROC procedure)
{
    return reinterpret_cast<WNDPROC>(
        SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure)));
}

}  // namespace

EventHook* EventHook::installed_ = nullptr;

void EventHook::install(HWND window)
{
    if (isInstalled() || installed_ != nullptr)
        return;
    message_ = RegisterWindowMessageA("FE_EVENT_MESSAGE");
    window_ = window;
    installed_ = this;
    previous_ = setWindowProcedure(window, FormWindowProc);
}

void EventHook::restore()
{
    if (!isInstalled())
        return;
    setWindowProcedure(window_, std::exchange(previous_, nullptr));
    installed_ = nullptr;
}

LRESULT CALLBACK EventHook::FormWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (installed_ == nullptr)  // a program that hooked the window too may still call this one
        return DefWindowProcA(window, message, wParam, lParam);
    // The handler may take the hook away; the message still goes on to the previous procedure.
    EventHook& hook = *installed_;
    const WNDPROC previous = hook.previous_;
    if (message == femapEventMessage) {
        hook.onEvent_(wParam);
        return 0;
    }
    if (message == hook.message_) {
        if (senderWaits())
            PostMessageA(window, femapEventMessage, wParam, 0);
        else
            hook.onEvent_(wParam);
    }
    return CallWindowProcA(previous, window, message, wParam, lParam);
}

}  // namespace window
