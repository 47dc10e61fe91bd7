// A small window, modal to the form, that tells the version and where the log is.
#pragma once

#include "app/window/Controls.h"

#include <windows.h>

#include <memory>
#include <string>

namespace window
{

class AboutWindow
{
public:
    // Fixed numbers of its controls.
    static constexpr int idVersion = 2101;
    static constexpr int idLogHeading = 2102;
    static constexpr int idLog = 2103;
    static constexpr int idClose = IDCANCEL;  // Esc, and Enter for it is the only button

    AboutWindow() = default;
    AboutWindow(const AboutWindow&) = delete;
    AboutWindow& operator=(const AboutWindow&) = delete;

    /// log: its path, which can be copied from there; or why there is none.
    void showModal(HWND owner, const std::string& version, const std::string& log);
    /// Closes it, if it is open.
    void cancel();

private:
    static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    INT_PTR handle(UINT message, WPARAM wParam, LPARAM lParam);
    void initialise();
    void applyResolution(UINT dotsPerInch);
    void layOut();

    HWND owner_ = nullptr;
    HWND window_ = nullptr;
    std::string version_;
    std::string log_;
    std::unique_ptr<Font> font_;
    UINT dotsPerInch_ = USER_DEFAULT_SCREEN_DPI;
};

}  // namespace window
