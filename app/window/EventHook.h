// Replaces the window procedure of the main form's window by one that sees FEMAP's event message
// first. There is one such hook, for FEMAP knows one window.
#pragma once

#include <windows.h>

#include <functional>

namespace window
{

class EventHook
{
public:
    /// onEvent gets the code of each event of FEMAP's.
    explicit EventHook(std::function<void(WPARAM)> onEvent) : onEvent_(std::move(onEvent)) {}
    ~EventHook() { restore(); }
    EventHook(const EventHook&) = delete;
    EventHook& operator=(const EventHook&) = delete;

    /// Installing twice and restoring twice do nothing more.
    void install(HWND window);
    /// Puts the previous window procedure back.
    void restore();
    bool isInstalled() const { return previous_ != nullptr; }

private:
    static LRESULT CALLBACK FormWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    std::function<void(WPARAM)> onEvent_;
    HWND window_ = nullptr;
    UINT message_ = 0;
    WNDPROC previous_ = nullptr;
    static EventHook* installed_;
};

}  // namespace window
