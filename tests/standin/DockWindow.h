// A window of the stand-in into which a form goes as a pane, as into FEMAP's main window.
#pragma once

#include <windows.h>

namespace standin
{

class DockWindow
{
public:
    explicit DockWindow(HWND pane);
    ~DockWindow();
    DockWindow(const DockWindow&) = delete;
    DockWindow& operator=(const DockWindow&) = delete;

    /// How many questions for help, for a menu and turns of the wheel came to it.
    int heard() const { return heard_; }

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    int heard_ = 0;
    HWND window_;
    WNDPROC previous_;
};

}  // namespace standin
