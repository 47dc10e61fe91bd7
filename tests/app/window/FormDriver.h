#pragma once

#include "form/MainForm.h"

#include <windows.h>

#include <chrono>
#include <commctrl.h>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace driver
{

/// Polls until the condition holds; false when it did not for ten seconds.
bool waitUntil(const std::function<bool()>& condition,
               std::chrono::milliseconds limit = std::chrono::seconds(10));

/// The window of a class that the process shows; null when it shows none.
HWND visibleWindow(DWORD process, const std::wstring& className);
/// A control of the main form by its name there, such as "InputsButton".
HWND controlOf(HWND form, std::string_view name);
/// The text of another process's control.
std::string textOf(HWND window);

/// A program of this build.
std::filesystem::path programPath(std::string_view name);

/// A program in a process of its own, ended with this object at the latest.
class Process
{
public:
    /// The rest follows the program's quoted path letter by letter.
    Process(const std::filesystem::path& program, const std::wstring& rest,
            const std::filesystem::path& folder);
    ~Process();
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    HANDLE handle() const { return info_.hProcess; }
    DWORD id() const { return info_.dwProcessId; }
    bool isRunning() const;
    /// Its exit code; fails the test when it does not end.
    DWORD exitCode();
    void kill();
    /// Ends it as it ends itself, for a program without a window that could be closed.
    void quit();

private:
    PROCESS_INFORMATION info_{};
};

/// A form in another process, driven by window messages as an engineer drives it by mouse and keys.
class FormDriver
{
public:
    explicit FormDriver(Process& process) : process_(process) {}

    /// Waits for the window.
    HWND window();
    bool isOpen();
    HWND control(std::string_view name) { return controlOf(window(), name); }
    RECT placeOf(std::string_view name);  // inside the main window

    std::string text(std::string_view name);
    void choose(std::string_view box, const std::string& item);
    /// Types into a box and presses Enter in it.
    void type(std::string_view box, const std::wstring& text);
    void setText(std::string_view name, const std::wstring& text);
    /// Presses a button and does not wait for what comes of it.
    void press(std::string_view button);
    void key(std::string_view name, WPARAM key);
    /// The window that has the keyboard, and whether it is this control or a part of it.
    HWND focus();
    bool hasFocus(std::string_view name);
    bool isEnabled(std::string_view name) { return IsWindowEnabled(control(name)) != FALSE; }
    /// Waits until all that was posted so far is done.
    void settle(std::chrono::milliseconds limit = std::chrono::seconds(10));
    void sendEvent(WPARAM code);

    /// The parameter rows, cells joined by "|"; none for an empty grid.
    std::vector<std::string> rows(std::string_view grid, int columns = 2);
    int rowCount(std::string_view grid);
    std::string cell(std::string_view grid, int item, int column);
    /// Where a row is, inside the grid's window.
    POINT rowPlace(std::string_view grid, int item);
    /// Presses the mouse button on a row; beyond the last one the click falls beside the rows.
    void click(std::string_view grid, int item);
    /// A click on the first row, and the selection drawn out to the last one.
    void selectRows(std::string_view grid, int first, int last);
    void markRow(std::string_view grid, int item, bool marked);
    std::vector<int> selectedRows(std::string_view grid);

    /// The property list dialog. Waits for it.
    HWND dialog();
    bool isDialogOpen();
    std::string heading();
    HWND list();
    std::vector<std::string> offered();
    /// A click on a line, which is brought into view.
    void tick(int item);
    /// Ticks these and presses Add.
    void add(const std::vector<std::string>& items);
    void pressInDialog(int id);

private:
    LRESULT askList(HWND list, UINT message, WPARAM item, LVITEMW info,
                    std::wstring* text = nullptr);

    Process& process_;
    HWND window_ = nullptr;
    WPARAM settled_ = 100000;
};

}  // namespace driver
