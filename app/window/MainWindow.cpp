#include "app/window/MainWindow.h"

#include "app/window/AccessKeys.h"
#include "app/window/SentMessages.h"
#include "form/Layout.h"
#include "system/Memory.h"
#include "windows/Text.h"

#include <algorithm>
#include <stdexcept>

namespace window
{

using windows::toWide;

namespace
{

constexpr const wchar_t* frameClass = L"VelmarFemapInterface";
constexpr int iconResource = 1;  // as in app.rc
constexpr UINT_PTR lookTimer = 1;
constexpr UINT lookInterval = 2000;  // milliseconds between two looks for a FEMAP that was lost

void registerClass(const wchar_t* name, WNDPROC procedure)
{
    WNDCLASSEXW info{};
    info.cbSize = sizeof info;
    info.lpfnWndProc = procedure;
    info.hInstance = GetModuleHandleW(nullptr);
    info.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    info.hIcon = LoadIconW(info.hInstance, MAKEINTRESOURCEW(iconResource));
    info.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    info.lpszClassName = name;
    RegisterClassExW(&info);
}

}  // namespace

MainWindow::MainWindow(femap::Connector& connector, sys::System& system)
    : propertyList_([this] { return window_; }),
      program_(connector, *this, propertyList_, system),
      hook_([this](WPARAM code) { guarded([&] { raiseFemapEvent(code); }); })
{}

MainWindow::~MainWindow()
{
    if (window_ != nullptr)
        DestroyWindow(window_);
}

bool MainWindow::open(const std::string& arguments, int showCommand)
{
    INITCOMMONCONTROLSEX classes{sizeof classes, ICC_LISTVIEW_CLASSES | ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&classes);
    registerClass(frameClass, frameProcedure);
    registerClass(panelClass, panelProcedure);

    form::MainForm& form = program_.form();
    window_ = CreateWindowExW(WS_EX_CONTROLPARENT, frameClass, toWide(form.Caption).c_str(),
                              WS_OVERLAPPEDWINDOW, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT,
                              CW_USEDEFAULT, nullptr, nullptr, GetModuleHandleW(nullptr), this);
    if (window_ == nullptr)
        throw std::runtime_error("Windows refused the main window");
    createControls();
    ready_ = true;

    const UINT dotsPerInch = GetDpiForWindow(window_);
    applyResolution(dotsPerInch);
    setStartBounds(dotsPerInch);

    if (program_.start(arguments) == app::Started::FemapNotFound)
        return false;
    if (window_ == nullptr)
        return true;  // FEMAP had the form unloaded meanwhile
    // Start-up gave the columns their widths.
    inputs_->setResolution(pixels_);
    outputs_->setResolution(pixels_);
    sizeSeen_ = {};
    resized();
    afterEvent();
    if (window_ == nullptr)
        return true;
    SetTimer(window_, lookTimer, lookInterval, nullptr);
    ShowWindow(window_, showCommand);
    return true;
}

// Keeps the position that Windows chose, but lets no part of the window lie beyond the screen.
void MainWindow::setStartBounds(UINT dotsPerInch)
{
    RECT frame{0, 0, pixels_.fromTwips(form::startWidth), pixels_.fromTwips(form::startHeight)};
    AdjustWindowRectExForDpi(&frame, WS_OVERLAPPEDWINDOW, FALSE, WS_EX_CONTROLPARENT, dotsPerInch);
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(window_, MONITOR_DEFAULTTONEAREST), &monitor);
    const RECT& screen = monitor.rcWork;
    const LONG width = std::min(frame.right - frame.left, screen.right - screen.left);
    const LONG height = std::min(frame.bottom - frame.top, screen.bottom - screen.top);
    RECT bounds{};
    GetWindowRect(window_, &bounds);
    SetWindowPos(window_, nullptr, std::clamp(bounds.left, screen.left, screen.right - width),
                 std::clamp(bounds.top, screen.top, screen.bottom - height), width, height,
                 SWP_NOZORDER);
}

int MainWindow::run()
{
    const AccessKeys accessKeys([this](std::string_view name) {
        for (const form::MainForm::NamedControl& each : program_.form().controls())
            if (each.name == name)
                return idOf(*each.control);
        throw std::logic_error("No control is named " + std::string(name));
    });
    MSG message{};
    while (mistake_ == nullptr && GetMessageW(&message, nullptr, 0, 0) > 0) {
        const bool isDone = window_ != nullptr && (accessKeys.translate(window_, message) ||
                                                   IsDialogMessageW(window_, &message) != FALSE);
        if (!isDone) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        guarded([this] { followFocus(); });
    }
    if (mistake_ != nullptr)
        std::rethrow_exception(mistake_);
    return static_cast<int>(message.wParam);
}

void MainWindow::showProgress()
{
    const HWND status = windows_.at(&program_.form().StatusLine);
    setWindowText(status, program_.form().StatusLine.Caption);
    UpdateWindow(status);
}

void MainWindow::showStatus(const std::string& text)
{
    program_.form().status.showWaiting(text);
    if (ready_)
        showProgress();
}

void MainWindow::unload()
{
    propertyList_.cancel();
    if (window_ != nullptr)
        DestroyWindow(window_);
}

// The form stays, so that its rows can still be applied. Too little for the message itself leaves
// what stands there.
void MainWindow::tellNoMemory()
{
    try {
        program_.form().status.tellFailure(sys::noMemory);
        if (ready_)
            showProgress();
    }
    catch (const std::bad_alloc&) {
        return;
    }
}

// Keeps an exception for run(), for none may pass through Windows' own code in between.
template <class Step>
LRESULT MainWindow::guarded(Step&& step)
{
    try {
        step();
    }
    catch (const std::bad_alloc&) {
        tellNoMemory();
    }
    catch (const std::exception&) {
        mistake_ = std::current_exception();
        PostQuitMessage(EXIT_FAILURE);
    }
    return 0;
}

MainWindow* MainWindow::instanceOf(HWND window, UINT message, LPARAM lParam)
{
    if (message == WM_NCCREATE) {
        const auto& creation = *reinterpret_cast<const CREATESTRUCTW*>(lParam);
        SetWindowLongPtrW(window, GWLP_USERDATA,
                          reinterpret_cast<LONG_PTR>(creation.lpCreateParams));
    }
    return reinterpret_cast<MainWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
}

LRESULT CALLBACK MainWindow::frameProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    MainWindow* const self = instanceOf(window, message, lParam);
    return self == nullptr ? DefWindowProcW(window, message, wParam, lParam)
                           : self->handleFrame(window, message, wParam, lParam);
}

LRESULT CALLBACK MainWindow::panelProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    MainWindow* const self = instanceOf(window, message, lParam);
    return self == nullptr ? DefWindowProcW(window, message, wParam, lParam)
                           : self->handlePanel(window, message, wParam, lParam);
}

LRESULT MainWindow::handleFrame(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    form::MainForm& form = program_.form();
    switch (message) {
    case WM_SIZE:
        return wParam == SIZE_MINIMIZED ? 0 : guarded([&] { resized(); });
    case WM_COMMAND:
        return guarded([&] { pressKey(LOWORD(wParam)); });
    case WM_HSCROLL:
        return guarded([&] { scroll(form.HScroll1, "HScroll1_Change", LOWORD(wParam)); });
    case WM_VSCROLL:
        return guarded([&] { scroll(form.VScroll1, "VScroll1_Change", LOWORD(wParam)); });
    case WM_MOUSEWHEEL:
        return guarded([&] { turnWheel(GET_WHEEL_DELTA_WPARAM(wParam)); });
    case WM_SETCURSOR:
        // The content passes this on to the frame before it looks at the pointer itself.
        if (LOWORD(lParam) == HTCLIENT && isBusy()) {
            showPointer();
            return TRUE;
        }
        break;
    case WM_ACTIVATE:
        if (LOWORD(wParam) == WA_INACTIVE && IsChild(window, GetFocus()) != FALSE)
            focusBefore_ = GetFocus();
        break;
    case WM_SETFOCUS:
        return guarded([&] { restoreFocus(); });
    case WM_DPICHANGED:
        return guarded(
            [&] { resolutionChanged(HIWORD(wParam), *reinterpret_cast<const RECT*>(lParam)); });
    case WM_DPICHANGED_AFTERPARENT:  // as a pane of FEMAP's
        return guarded([&] { resized(); });
    case takeTextsMessage:
        return guarded([&] { commitTexts(); });
    case WM_TIMER:
        return guarded([&] {
            if (ready_ && program_.lookForFemap()) {
                dropInput(window);
                afterEvent();
            }
        });
    case WM_CLOSE:
        return guarded([&] { program_.close(); });
    case WM_DESTROY:
        return guarded([&] { destroyed(); });
    default:
        break;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

// Comes also when FEMAP destroyed the window together with its own.
void MainWindow::destroyed()
{
    ready_ = false;
    window_ = nullptr;
    PostQuitMessage(EXIT_SUCCESS);
    program_.close();
}

LRESULT MainWindow::handlePanel(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_COMMAND:
        return guarded([&] { command(LOWORD(wParam), HIWORD(wParam)); });
    case WM_NOTIFY: {
        const NMHDR& header = *reinterpret_cast<const NMHDR*>(lParam);
        LRESULT answer = 0;
        for (GridView* const view : {inputs_.get(), outputs_.get()})
            if (ready_ && view->sends(header))
                guarded([&] { answer = view->notify(header); });
        return answer;
    }
    case WM_CTLCOLORSTATIC:
        SetBkMode(reinterpret_cast<HDC>(wParam), TRANSPARENT);
        return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_BTNFACE));
    default:
        return DefWindowProcW(window, message, wParam, lParam);
    }
}

int MainWindow::idOf(const form::Control& control)
{
    const auto& controls = program_.form().controls();
    const auto found = std::find_if(controls.begin(), controls.end(),
                                    [&](const auto& each) { return each.control == &control; });
    return firstControlID + static_cast<int>(found - controls.begin());
}

const form::MainForm::NamedControl* MainWindow::controlWithID(int id)
{
    const auto& controls = program_.form().controls();
    const int index = id - firstControlID;
    return index >= 0 && index < static_cast<int>(controls.size())
               ? &controls[static_cast<std::size_t>(index)]
               : nullptr;
}

}  // namespace window
