// MainWindow: the window that shows what "Apply" would write, and whether a study sheet comes with
// it.
#include "app/window/MainWindow.h"
#include "preview/PreviewText.h"

#include <string>
#include <utility>

namespace window
{

namespace
{

std::string timeOfDay(const sys::LocalTime& time)
{
    const auto twoDigits = [](int number) { return std::to_string(100 + number).substr(1); };
    return twoDigits(time.hour) + ':' + twoDigits(time.minute) + ':' + twoDigits(time.second);
}

}  // namespace

preview::Preview MainWindow::previewNow(const std::string& name)
{
    preview::Preview made;
    carryOut([&] {
        SetCursor(LoadCursorW(nullptr, IDC_WAIT));
        made = program_.preview(name);
        previewed_ = program_.studyChanges();
        return app::Ended::Normally;
    });
    return made;
}

// Where that file would not be written, of the first one that would not stay as it is.
preview::Preview MainWindow::previewOf(std::string& name)
{
    preview::Preview made = previewNow(name);
    const preview::File* const first = made.firstToLookAt();
    if (!ready_ || first == nullptr || made.find(name) != nullptr)
        return made;
    name = first->name();
    return previewNow(name);
}

void MainWindow::showPreview()
{
    commitTexts();
    std::string name = preview_.shownFile();
    preview::Preview made = previewOf(name);
    if (!ready_)
        return;
    preview_.open(window_);
    listPreview(std::move(made), name);
}

// The engineer may close the window while FEMAP is waited for.
void MainWindow::choosePreviewed(const std::string& name)
{
    if (!ready_ || isBusy() || block_.has_value())
        return;
    std::string wanted = name;
    preview::Preview made = previewOf(wanted);
    if (ready_ && preview_.isOpen())
        listPreview(std::move(made), wanted);
}

void MainWindow::listPreview(preview::Preview made, const std::string& name)
{
    preview_.tell(noteOf(made));
    preview_.show(std::move(made), name);
}

std::string MainWindow::noteOf(const preview::Preview& made) const
{
    if (!made.problem.empty())
        return preview::problemOf(made);
    const std::string message = "Nothing is written yet. \"Apply\" would have written this at " +
                                timeOfDay(system_.localTime()) + "; F9 looks anew.";
    return program_.keepsProvenance() ? message + " The study sheet comes besides." : message;
}

// A long study is not looked at after each action.
void MainWindow::followPreview()
{
    const std::string message = "Out of date: something was done in the form since. F9 looks anew.";
    if (preview_.isOpen() && previewed_ != program_.studyChanges())
        preview_.tell(message);
}

void MainWindow::toggleStudySheet()
{
    const bool keeps = !program_.keepsProvenance();
    program_.keepProvenance(keeps);
    CheckMenuItem(GetSystemMenu(window_, FALSE), idStudySheet, keeps ? MF_CHECKED : MF_UNCHECKED);
    previewed_.reset();
    followPreview();
}

}  // namespace window
