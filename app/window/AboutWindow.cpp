#include "app/window/AboutWindow.h"

#include "app/window/Pixels.h"
#include "windows/Dialog.h"

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
    windows::showEmptyDialog(owner, WS_EX_CONTROLPARENT, procedure, this);
    window_ = nullptr;
    font_.reset();
}

void AboutWindow::cancel()
{
    if (window_ != nullptr)
        EndDialog(window_, idClose);
}

INT_PTR CALLBACK AboutWindow::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(window, DWLP_USER, lParam);
        auto& self = *reinterpret_cast<AboutWindow*>(lParam);
        self.window_ = window;
        self.initialise();
        return FALSE;  // the focus is set
    }
    auto* const self = reinterpret_cast<AboutWindow*>(GetWindowLongPtrW(window, DWLP_USER));
    return self == nullptr ? FALSE : self->handle(message, wParam, lParam);
}

INT_PTR AboutWindow::handle(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_COMMAND:
        if (LOWORD(wParam) == idClose || LOWORD(wParam) == IDOK)
            cancel();
        return TRUE;
    case WM_SIZE:
        layOut();
        return TRUE;
    // Not for the owner, which is FEMAP's window where the form is a pane.
    case WM_HELP:
    case WM_MOUSEWHEEL:
    case WM_MOUSEHWHEEL:
        return TRUE;
    case WM_DPICHANGED: {
        const RECT& bounds = *reinterpret_cast<const RECT*>(lParam);
        applyResolution(HIWORD(wParam));
        moveTo(window_, {bounds.left, bounds.top, bounds.right, bounds.bottom});
        return TRUE;
    }
    default:
        return FALSE;
    }
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

    const SIZE size = windowSize(window_, aboutWidth, aboutHeight, dotsPerInch_);
    const form::ScreenPlace middle = form::centredOn(placeOf(owner_), size.cx, size.cy);
    moveTo(window_, form::keptWithin(middle, workAreaOf(owner_)));
    layOut();
    SetFocus(close);
}

void AboutWindow::applyResolution(UINT dotsPerInch)
{
    dotsPerInch_ = dotsPerInch;
    auto font = std::make_unique<Font>(dotsPerInch);
    for (const int id : {idVersion, idLogHeading, idLog, idClose})
        setFont(GetDlgItem(window_, id), *font);
    font_ = std::move(font);  // the old one goes when nothing uses it any more
}

void AboutWindow::layOut()
{
    RECT inside{};
    GetClientRect(window_, &inside);
    const Pixels pixels(dotsPerInch_);
    const int width = pixels.toTwips(inside.right);
    int top = aboutMargin;
    const auto place = [&](int id, int left, int controlWidth) {
        MoveWindow(GetDlgItem(window_, id), pixels.fromTwips(left), pixels.fromTwips(top),
                   pixels.fromTwips(controlWidth), pixels.fromTwips(aboutLine), TRUE);
        top += aboutLine;
    };
    place(idVersion, aboutMargin, width - 2 * aboutMargin);
    place(idLogHeading, aboutMargin, width - 2 * aboutMargin);
    place(idLog, aboutMargin, width - 2 * aboutMargin);
    top += aboutMargin;
    place(idClose, width - aboutMargin - aboutButtonWidth, aboutButtonWidth);
}

}  // namespace window
