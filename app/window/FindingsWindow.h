// A window beside the form that lists what is found in the study; it follows the form until it is
// closed.
#pragma once

#include "app/window/Controls.h"
#include "findings/Finding.h"

#include <windows.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace window
{

class FindingsWindow
{
public:
    // Fixed numbers of its controls, in the order of Tab.
    static constexpr int idList = 2201;
    static constexpr int idWhole = 2202;  // the whole text of the finding that is selected
    static constexpr int idNote = 2203;

    /// What the window asks of the form; each runs while Windows' own code waits, so nothing may be
    /// raised. onGo gets the number of a finding in the list; onCheck is called for F8.
    FindingsWindow(std::function<void(std::size_t)> onGo, std::function<void()> onCheck)
        : onGo_(std::move(onGo)), onCheck_(std::move(onCheck))
    {}
    ~FindingsWindow() { close(); }
    FindingsWindow(const FindingsWindow&) = delete;
    FindingsWindow& operator=(const FindingsWindow&) = delete;

    /// Opens it beside its owner, if it is not open, and gives it the keyboard.
    void open(HWND owner);
    bool isOpen() const { return window_ != nullptr; }
    void close();
    /// Lists these; the finding that is selected stays so while it is there, else the first one is.
    /// note: what they go by.
    void show(std::span<const findings::Finding> found, const std::string& note);
    /// Whether the message was for a key of this window, and is done with.
    bool translate(MSG& message);

private:
    static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    INT_PTR handle(UINT message, WPARAM wParam, LPARAM lParam);
    void createControls();
    void applyResolution(UINT dotsPerInch);
    void layOut();
    void fill();
    void notify(const NMHDR& header);
    int selected() const;
    void goTo(int finding);
    void showWhole();
    void copySelected() const;
    HWND control(int id) const { return GetDlgItem(window_, id); }

    // A finding as the list shows it.
    using Cells = std::vector<std::string>;

    std::function<void(std::size_t)> onGo_;
    std::function<void()> onCheck_;
    HWND window_ = nullptr;
    std::vector<Cells> rows_;
    std::unique_ptr<Font> font_;
    UINT dotsPerInch_ = USER_DEFAULT_SCREEN_DPI;
};

}  // namespace window
