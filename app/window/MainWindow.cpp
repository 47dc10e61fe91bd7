#include "app/window/MainWindow.h"

#include "app/window/AccessKeys.h"
#include "app/window/SentMessages.h"
#include "form/Layout.h"
#include "system/Memory.h"
#include "windows/Text.h"

#include <algorithm>
#include <stdexcept>
#include <utility>
#include <windowsx.h>

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
    catch (const std::exception& mistake) {
        mistake_ = std::current_exception();
        program_.tellMistake(mistake.what());
        PostQuitMessage(EXIT_FAILURE);
    }
    return 0;
}

MainWindow::MainWindow(femap::Connector& connector, sys::System& system)
    : propertyList_([this] { return window_; }),
      findings_([this](std::size_t number) { guarded([&] { goToFinding(number); }); }),
      preview_(system.codePage,
               [this](const std::string& name) { guarded([&] { choosePreviewed(name); }); }),
      program_(connector, *this, propertyList_, system),
      system_(system),
      hook_([this](WPARAM code) { guarded([&] { raiseFemapEvent(code); }); })
{
    program_.watchStudy();
}

MainWindow::~MainWindow()
{
    if (window_ == nullptr)
        return;
    DestroyWindow(window_);
    guarded([this] { program_.close(); });
}

bool MainWindow::open(const std::string& arguments, int showCommand)
{
    INITCOMMONCONTROLSEX classes{sizeof classes, ICC_LISTVIEW_CLASSES | ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&classes);
    registerClass(frameClass, frameProcedure);
    registerClass(panelClass, panelProcedure);
    showCommand_ = showCommand;
    findKept();
    createWindow();
    takeKeptPlace();
    starting_ = true;
    const app::Started started = program_.start(arguments);
    starting_ = false;
    if (started == app::Started::FemapNotFound)
        return false;
    if (ready_)
        dropInput(window_);
    takeKeptWidths();
    takeIntoUse();
    return true;
}

void MainWindow::createWindow()
{
    window_ =
        CreateWindowExW(WS_EX_CONTROLPARENT, frameClass, toWide(program_.form().Caption).c_str(),
                        WS_OVERLAPPEDWINDOW, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT,
                        CW_USEDEFAULT, nullptr, nullptr, GetModuleHandleW(nullptr), this);
    if (window_ == nullptr)
        throw std::runtime_error("Windows refused the main window");
    // These belonged to the controls of a window before this one.
    typing_ = nullptr;
    choosing_ = nullptr;
    focusBefore_ = nullptr;
    focusSeen_ = nullptr;
    createControls();
    const HMENU menu = GetSystemMenu(window_, FALSE);
    AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
    addCommands(menu);
    isShown_ = false;
    ready_ = true;

    const UINT dotsPerInch = GetDpiForWindow(window_);
    applyResolution(dotsPerInch);
    setStartBounds(dotsPerInch);
}

// The program has its FEMAP, or has lost it: brings the window up to date and shows it.
void MainWindow::takeIntoUse()
{
    if (window_ == nullptr)
        return;  // FEMAP had the form unloaded meanwhile, or ended together with the pane
    // Start-up gave the columns their widths.
    for (const auto& [grid, view] : grids_)
        view->setResolution(pixels_);
    sizeSeen_ = {};
    resized();
    afterEvent();
    if (window_ == nullptr)
        return;
    SetTimer(window_, lookTimer, lookInterval, nullptr);
    show();
    if (GetFocus() == window_)
        restoreFocus();  // start-up kept all controls off
}

void MainWindow::show()
{
    if (window_ == nullptr || std::exchange(isShown_, true))
        return;
    mirror();
    ShowWindow(window_, showCommand_);
    // FEMAP may keep the program waiting from now on.
    RedrawWindow(window_, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

// Keeps the position that Windows chose, but lets no part of the window lie beyond the screen.
void MainWindow::setStartBounds(UINT dotsPerInch)
{
    RECT frame{0, 0, pixels_.fromTwips(form::startWidth), pixels_.fromTwips(form::startHeight)};
    AdjustWindowRectExForDpi(&frame, WS_OVERLAPPEDWINDOW, FALSE, WS_EX_CONTROLPARENT, dotsPerInch);
    form::ScreenPlace wanted = placeOf(window_);
    wanted.right = wanted.left + frame.right - frame.left;
    wanted.bottom = wanted.top + frame.bottom - frame.top;
    moveTo(window_, form::keptWithin(wanted, workAreaOf(window_)));
}

bool MainWindow::takeStepBack(const MSG& message)
{
    if (!isStepBack(message))
        return false;
    guarded([this] {
        if (GetKeyState(VK_SHIFT) < 0)
            bringBackKept();
        else
            program_.stepBack();
        afterEvent();
    });
    return true;
}

int MainWindow::run()
{
    const AccessKeys accessKeys(keysOfCommands());
    MSG message{};
    while (mistake_ == nullptr && GetMessageW(&message, nullptr, 0, 0) > 0) {
        const bool isDone = window_ != nullptr &&
                            (findings_.translate(message) || preview_.translate(message) ||
                             accessKeys.translate(window_, message) || takeStepBack(message) ||
                             IsDialogMessageW(window_, &message) != FALSE);
        if (!isDone) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        guarded([this] {
            if (window_ == nullptr)
                windowIsGone();
            else
                followFocus();
        });
    }
    if (mistake_ != nullptr)
        std::rethrow_exception(mistake_);
    return static_cast<int>(message.wParam);
}

void MainWindow::unload()
{
    closeWindows();
    if (window_ == nullptr)
        return;
    keepPlaces();
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
    case WM_SYSCOMMAND:
        if (isCommand(wParam))
            return guarded([&] { runCommand(wParam); });
        break;
    case WM_HSCROLL:
        return guarded([&] { scroll(form.HScroll1, LOWORD(wParam)); });
    case WM_VSCROLL:
        return guarded([&] { scroll(form.VScroll1, LOWORD(wParam)); });
    case WM_MOUSEWHEEL:
    case WM_MOUSEHWHEEL:
        return guarded([&] { turnWheel(message, GET_WHEEL_DELTA_WPARAM(wParam)); });
    case WM_HELP:  // here, and above, end what Windows hands on to the window that a pane is in
        return TRUE;
    case WM_CONTEXTMENU:
        if (PaneOwner::isPane(window))
            return 0;
        break;
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
    case WM_WINDOWPOSCHANGED:  // comes when FEMAP takes the form into its own window, too
        paneOwner_.look(window);
        break;
    case WM_SYSCOLORCHANGE:
        return guarded([&] { takeColours(); });
    case takeTextsMessage:
        return guarded([&] { commitTexts(); });
    case WM_TIMER:
        return guarded([&] { lookForFemap(); });
    case WM_CLOSE:
        return guarded([&] { closeByHand(); });
    case WM_DESTROY:
    case WM_NCDESTROY:  // Wine leaves the other one out when FEMAP's process ends
        return guarded([&] { destroyed(); });
    default:
        break;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

void MainWindow::closeByHand()
{
    program_.closeByHand();
    if (!program_.isBusy() && !program_.isClosed())
        afterEvent();
}

// Comes also when FEMAP destroyed the window together with its own. Then run() decides what becomes
// of the form, for a procedure may be at work.
void MainWindow::destroyed()
{
    if (std::exchange(window_, nullptr) == nullptr)
        return;
    ready_ = false;
    hook_.restore();
    closeWindows();
    if (program_.isClosed())
        PostQuitMessage(EXIT_SUCCESS);
    else
        PostThreadMessageW(GetCurrentThreadId(), WM_NULL, 0, 0);  // wakes run()
}

void MainWindow::windowIsGone()
{
    if (!program_.isClosed() && paneOwner_.hasEnded()) {
        program_.loseFemapAndPane();
        createWindow();
        bounds_.clear();
        takeIntoUse();
        return;
    }
    program_.close();
    PostQuitMessage(EXIT_SUCCESS);
}

LRESULT MainWindow::handlePanel(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_COMMAND:
        return guarded([&] { command(LOWORD(wParam), HIWORD(wParam)); });
    case WM_CONTEXTMENU:
        return guarded([&] {
            showMenu(reinterpret_cast<HWND>(wParam), {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
        });
    case WM_NOTIFY: {
        const NMHDR& header = *reinterpret_cast<const NMHDR*>(lParam);
        LRESULT answer = 0;
        for (const auto& [grid, view] : grids_)
            if (ready_ && view->sends(header))
                guarded([&, sender = view.get()] { answer = sender->notify(header); });
        return answer;
    }
    case WM_DRAWITEM:
        (wParam == idModelLine ? modelLineView_ : status_)
            ->draw(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
        return TRUE;
    case WM_CTLCOLORSTATIC: {
        const auto device = reinterpret_cast<HDC>(wParam);
        const bool isOn = IsWindowEnabled(reinterpret_cast<HWND>(lParam)) != FALSE;
        SetBkMode(device, TRANSPARENT);
        SetTextColor(device, GetSysColor(isOn ? COLOR_BTNTEXT : COLOR_GRAYTEXT));
        return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_BTNFACE));
    }
    default: {
        bool isDone = false;
        guarded([&] { isDone = moveDivider(window, message, lParam); });
        return isDone ? TRUE : DefWindowProcW(window, message, wParam, lParam);
    }
    }
}

const form::NamedControl* MainWindow::controlWithID(int id)
{
    const auto& controls = program_.form().controls();
    const auto found = std::ranges::find(controls, id, &form::NamedControl::id);
    return found == controls.end() ? nullptr : &*found;
}

}  // namespace window
