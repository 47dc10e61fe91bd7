#include "standin/DockWindow.h"

namespace standin
{

namespace
{

constexpr int dockLeft = 40;  // pixels
constexpr int dockTop = 20;
constexpr int dockWidth = 1000;
constexpr int dockHeight = 760;

}  // namespace

DockWindow::DockWindow(HWND pane)
    : window_(CreateWindowExW(0, L"STATIC", L"Stand-in for FEMAP",
                              WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN | WS_VISIBLE, dockLeft, dockTop,
                              dockWidth, dockHeight, nullptr, nullptr, GetModuleHandleW(nullptr),
                              nullptr)),
      previous_(reinterpret_cast<WNDPROC>(SetWindowLongPtrW(
          window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&DockWindow::procedure))))
{
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    const LONG_PTR style = GetWindowLongPtrW(pane, GWL_STYLE);
    SetWindowLongPtrW(pane, GWL_STYLE,
                      (style & ~static_cast<LONG_PTR>(WS_OVERLAPPEDWINDOW)) | WS_CHILD);
    SetParent(pane, window_);
    RECT inside{};
    GetClientRect(window_, &inside);
    SetWindowPos(pane, nullptr, 0, 0, inside.right, inside.bottom, SWP_NOZORDER | SWP_FRAMECHANGED);
}

DockWindow::~DockWindow()
{
    SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(previous_));
    DestroyWindow(window_);
}

LRESULT CALLBACK DockWindow::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    auto* const self = reinterpret_cast<DockWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self == nullptr)
        return DefWindowProcW(window, message, wParam, lParam);
    if (message == WM_HELP || message == WM_CONTEXTMENU || message == WM_MOUSEWHEEL ||
        message == WM_MOUSEHWHEEL)
        ++self->heard_;
    return CallWindowProcW(self->previous_, window, message, wParam, lParam);
}

}  // namespace standin
