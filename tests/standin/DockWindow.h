// A window of the stand-in into which a form goes as a pane, as into FEMAP's main window.
#pragma once

#include <windows.h>

namespace standin
{

class DockWindow
{
public:
    explicit DockWindow(HWND pane);
    ~DockWindow() { DestroyWindow(window_); }
    DockWindow(const DockWindow&) = delete;
    DockWindow& operator=(const DockWindow&) = delete;

private:
    HWND window_;
};

}  // namespace standin
