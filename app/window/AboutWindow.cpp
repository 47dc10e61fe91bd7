#include "app/window/AboutWindow.h"

namespace window
{

namespace
{

// Twips.
constexpr int aboutMargin = 150;
constexpr int aboutLine = 375;
constexpr int aboutButtonWidth = 1350;
constexpr int aboutWidth = 7500;
constexpr int aboutHeight = 2 * aboutMargin + 4 * aboutLine + aboutMargin;

}  // namespace

void AboutWindow::showModal(HWND owner, const std::string& version, const std::string& log)
{
    owner_ = owner;
    version_ = version;
    log_ = log;
    showModalTo(owner);
    window_ = nullptr;
}

void AboutWindow::cancel()
{
    if (window_ != nullptr)
        EndDialog(window_, idClose);
}

INT_PTR AboutWindow::handle(UINT message, WPARAM wParam, LPARAM /*lParam*/)
{
    if (message != WM_COMMAND)
        return FALSE;
    if (LOWORD(wParam) == idClose || LOWORD(wParam) == IDOK)
        cancel();
    return TRUE;
}

void AboutWindow::initialise()
{
    SetWindowTextW(window_, L"About");
    createControl(window_, L"STATIC", version_, SS_LEFT | SS_NOPREFIX, 0, idVersion);
    createControl(window_, L"STATIC", "Log:", SS_LEFT | SS_NOPREFIX, 0, idLogHeading);
    createControl(window_, L"EDIT", log_, WS_TABSTOP | ES_READONLY | ES_AUTOHSCROLL,
                  WS_EX_CLIENTEDGE, idLog);
    const HWND close =
        createControl(window_, L"BUTTON", "Close", WS_TABSTOP | BS_DEFPUSHBUTTON, 0, idClose);
    applyResolution(GetDpiForWindow(window_));

    const SIZE size = windowSize(window_, aboutWidth, aboutHeight, pixels_.dotsPerInch());
    const form::ScreenPlace middle = form::centredOn(placeOf(owner_), size.cx, size.cy);
    moveTo(window_, form::keptWithin(middle, workAreaOf(owner_)));
    layOut();
    SetFocus(close);
}

void AboutWindow::layOut()
{
    RECT inside{};
    GetClientRect(window_, &inside);
    const int width = pixels_.toTwips(inside.right);
    int top = aboutMargin;
    const auto place = [&](int id, int left, int controlWidth) {
        MoveWindow(control(id), pixels_.fromTwips(left), pixels_.fromTwips(top),
                   pixels_.fromTwips(controlWidth), pixels_.fromTwips(aboutLine), TRUE);
        top += aboutLine;
    };
    place(idVersion, aboutMargin, width - 2 * aboutMargin);
    place(idLogHeading, aboutMargin, width - 2 * aboutMargin);
    place(idLog, aboutMargin, width - 2 * aboutMargin);
    top += aboutMargin;
    place(idClose, width - aboutMargin - aboutButtonWidth, aboutButtonWidth);
}

}  // namespace window
