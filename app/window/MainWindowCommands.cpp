// MainWindow: keys that are none of a control's, and the menu of the window, which is that of its
// content, too, for a pane has no other.
#include "app/Version.h"
#include "app/window/MainWindow.h"
#include "generate/ModelPath.h"
#include "system/RuntimeError.h"
#include "windows/Text.h"

#include <algorithm>
#include <utility>

namespace window
{

using windows::toWide;

namespace
{

// What cannot be opened.
struct Missed
{
    std::string_view failure;
    std::string_view cure;
};

constexpr Missed missedGuide = {.failure = "The guide cannot be opened: ",
                                .cure = "See that guide.html is beside the program"};
constexpr Missed missedFolder = {.failure = "The folder cannot be opened: ",
                                 .cure = "See that the folder is still there"};
constexpr Missed missedLog = {.failure = "The log cannot be opened: ",
                              .cure = "See that Windows has a program for .log files"};

std::string guidePath()
{
    std::wstring path(32768, L'\0');  // the longest that Windows has
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return generate::modelFolder(windows::fromWide(path)) + "guide.html";
}

void append(HMENU menu, int id, std::string_view caption)
{
    AppendMenuW(menu, MF_STRING, static_cast<UINT_PTR>(id), toWide(caption).c_str());
}

}  // namespace

// clang-format off
const MainWindow::Command MainWindow::commands[] = {
    {idRefresh, VK_F5, "",            &MainWindow::refreshBoth},
    {idGuide,   VK_F1, "",            &MainWindow::openGuide},
    {idFolder,  0,     "Open folder", &MainWindow::openFolder},
    {idLog,     0,     "Open log",    &MainWindow::openLog},
    {idAbout,   0,     "About",       &MainWindow::showAbout},
};
// clang-format on

std::vector<ACCEL> MainWindow::keysOfCommands()
{
    std::vector<ACCEL> keys;
    for (const Command& each : commands)
        if (each.key != 0)
            keys.push_back({FVIRTKEY, each.key, static_cast<WORD>(each.id)});
    return keys;
}

void MainWindow::addCommands(HMENU menu)
{
    for (const Command& each : commands)
        if (!each.caption.empty())
            append(menu, each.id, each.caption);
}

bool MainWindow::isCommand(WPARAM id)
{
    return std::ranges::count(commands, static_cast<int>(id), &Command::id) > 0;
}

// While a procedure runs they do nothing, as buttons.
void MainWindow::runCommand(WPARAM id)
{
    if (ready_ && !program_.isBusy() && !block_.has_value())
        (this->*std::ranges::find(commands, static_cast<int>(id), &Command::id)->run)();
}

// The lists have other habits, and fields a menu of their own.
void MainWindow::showMenu(HWND where, POINT place)
{
    constexpr LONG fromKeyboard = -1;
    for (const auto& [grid, view] : grids_)
        if (view->window() == where || IsChild(view->window(), where) != FALSE)
            return;
    if (place.x == fromKeyboard && place.y == fromKeyboard) {
        const form::ScreenPlace control = placeOf(where);
        place = {control.left, control.bottom};
    }
    const HMENU menu = CreatePopupMenu();
    addCommands(menu);
    const BOOL chosen = TrackPopupMenu(menu, TPM_RETURNCMD | TPM_RIGHTBUTTON, place.x, place.y, 0,
                                       window_, nullptr);
    DestroyMenu(menu);
    if (chosen != 0)
        runCommand(static_cast<WPARAM>(chosen));
}

// What was told of the inputs stays beside what is told of the outputs.
void MainWindow::refreshBoth()
{
    form::MainForm& form = program_.form();
    press(form.named(form.RefreshInputs));
    if (ready_ && form.RefreshOutputs.Enabled)
        carryOut([&] {
            return program_.raiseFurther(form::click(form.named(form.RefreshOutputs).name));
        });
}

void MainWindow::openGuide()
{
    view(guidePath(), missedGuide.failure, missedGuide.cure);
}

void MainWindow::openFolder()
{
    constexpr std::string_view message =
        "There is no folder to open: FEMAP has no model that has a file. Open one or save the "
        "model, and try again";
    const std::string path = generate::modelFolder(program_.form().openModel.value_or(""));
    if (path.empty())
        tellNotOpened(std::string(message));
    else
        view(path, missedFolder.failure, missedFolder.cure);
}

void MainWindow::openLog()
{
    constexpr std::string_view message =
        "There is no log to open. Start the tool from the Start menu, or with the argument "
        "$$ALWAYS, to have one";
    const std::string path = program_.logPath();
    const std::string& reason = program_.logFailure();
    if (!path.empty())
        view(path, missedLog.failure, missedLog.cure);
    else
        tellNotOpened(reason.empty() ? std::string(message) : reason);
}

void MainWindow::view(const std::string& path, std::string_view failure, std::string_view cure)
{
    sys::PendingError reason;
    if (reason.attempt([&] { viewer_->open(path); }))
        tellNotOpened({});
    else
        tellNotOpened(std::string(failure) + reason.description() + ". " + std::string(cure) +
                      ": " + path);
}

// Or, with an empty text, takes back what was told.
void MainWindow::tellNotOpened(const std::string& text)
{
    form::Status& status = program_.form().status;
    status.withdraw(notOpened_);
    notOpened_ = text;
    if (!text.empty())
        status.tellFailure(text);
    afterEvent();
}

void MainWindow::showAbout()
{
    const std::string log = program_.logPath();
    about_.showModal(window_, program_.form().Caption + " " + std::string(app::version()),
                     log.empty() ? "There is none" : log);
}

}  // namespace window
