// MainWindow: what it shows while a procedure waits for FEMAP, how the engineer ends that, and the
// looks for a FEMAP that is back or answers again.
#include "app/window/MainWindow.h"
#include "app/window/WaitEnd.h"

namespace window
{

void MainWindow::showProgress()
{
    status_->show(program_.form().StatusLine.Caption);
    UpdateWindow(status_->window());
}

void MainWindow::showStatus(const std::string& text)
{
    program_.form().status.showWaiting(text);
    if (!ready_)
        return;
    show();
    showProgress();
}

bool MainWindow::endsWait()
{
    const WaitEnd end = takeWaitEnd(window_);
    if (end == WaitEnd::Close)
        SendMessageW(window_, WM_CLOSE, 0, 0);
    return end == WaitEnd::Escape || program_.isToClose();
}

void MainWindow::lookForFemap()
{
    paneOwner_.look(window_);
    if (ready_ && program_.lookForFemap() && ready_) {
        dropInput(window_);
        afterEvent();
    }
    program_.keepRows();
    if (ready_ && program_.lookAtStudy())
        afterEvent();
}

}  // namespace window
