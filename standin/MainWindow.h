// The window that the stand-in names when it is asked for FEMAP's main window. Nobody sees it; it
// tells which process the stand-in is.
#pragma once

#include <windows.h>

namespace standin
{

class MainWindow
{
public:
    MainWindow()
        : handle_(CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                  GetModuleHandleW(nullptr), nullptr))
    {}
    ~MainWindow() { DestroyWindow(handle_); }
    MainWindow(const MainWindow&) = delete;
    MainWindow& operator=(const MainWindow&) = delete;

    HWND handle() const { return handle_; }

private:
    HWND handle_;
};

}  // namespace standin
