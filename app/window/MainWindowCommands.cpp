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

}  // namespace

// clang-format off
const MainWindow::Command MainWindow::commands[] = {
    {idRefresh,     0,        VK_F5,    "",            &MainWindow::refreshBoth},
    {idFind,        FCONTROL, 'F',      "",            &MainWindow::openFind},
    {idFindNext,    0,        VK_F3,    "",            &MainWindow::findNext},
    {idMoreInputs,  FALT,     VK_NEXT,  "",            &MainWindow::giveMoreToInputs},
    {idMoreOutputs, FALT,     VK_PRIOR, "",            &MainWindow::giveMoreToOutputs},
    {idFindings,    0,        VK_F8,    "Findings",    &MainWindow::showFindings},
    {idPreview,     0,        VK_F9,    "Preview",     &MainWindow::showPreview},
    {idStudySheet,  0,        0,        "Write study sheet with Apply", &MainWindow::toggleStudySheet,
     &app::Program::keepsProvenance},
    {idGuide,       0,        VK_F1,    "Open guide",  &MainWindow::openGuide},
    {idFolder,      0,        0,        "Open folder", &MainWindow::openFolder},
    {idLog,         0,        0,        "Open log",    &MainWindow::openLog},
    {idAbout,       0,        0,        "About",       &MainWindow::showAbout},
};
// clang-format on

std::vector<ACCEL> MainWindow::keysOfCommands()
{
    std::vector<ACCEL> keys;
    for (const Command& each : commands)
        if (each.key != 0)
            keys.push_back({static_cast<BYTE>(FVIRTKEY | each.modifiers), each.key,
                            static_cast<WORD>(each.id)});
    return keys;
}

void MainWindow::addCommands(HMENU menu) const
{
    for (const Command& each : commands) {
        const bool isOn = each.isOn != nullptr && (program_.*each.isOn)();
        if (!each.caption.empty())
            AppendMenuW(menu, isOn ? MF_STRING | MF_CHECKED : MF_STRING,
                        static_cast<UINT_PTR>(each.id), toWide(each.caption).c_str());
    }
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
        tellItself(std::string(message));
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
        tellItself(reason.empty() ? std::string(message) : reason);
}

void MainWindow::view(const std::string& path, std::string_view failure, std::string_view cure)
{
    sys::PendingError reason;
    if (reason.attempt([&] { viewer_->open(path); }))
        tellItself({});
    else
        tellItself(std::string(failure) + reason.description() + ". " + std::string(cure) + ": " +
                   path);
}

// What no procedure tells. It takes the place of what was told so before, and an empty text just
// takes that back.
void MainWindow::tellItself(const std::string& text)
{
    form::Status& status = program_.form().status;
    status.withdraw(told_);
    told_ = text;
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

void MainWindow::closeWindows()
{
    propertyList_.cancel();
    about_.cancel();
    findings_.close();
    preview_.close();
}

}  // namespace window
