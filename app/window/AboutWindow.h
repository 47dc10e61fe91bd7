// A small window, modal to the form, that tells the version and where the log is.
#pragma once

#include "app/window/DialogWindow.h"

#include <windows.h>

#include <string>

namespace window
{

class AboutWindow : public DialogWindow
{
public:
    // Fixed numbers of its controls.
    static constexpr int idVersion = 2101;
    static constexpr int idLogHeading = 2102;
    static constexpr int idLog = 2103;
    static constexpr int idClose = IDCANCEL;  // Esc, and Enter for it is the only button

    /// log: its path, which can be copied from there; or why there is none.
    void showModal(HWND owner, const std::string& version, const std::string& log);
    /// Closes it, if it is open.
    void cancel();

private:
    void initialise() override;
    INT_PTR handle(UINT message, WPARAM wParam, LPARAM lParam) override;
    void layOut() override;

    HWND owner_ = nullptr;
    std::string version_;
    std::string log_;
};

}  // namespace window
