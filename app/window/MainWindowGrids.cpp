// MainWindow: what it does with the lists beyond showing them: the marks of rows, the search for
// names, the share of the height that each has, and that nothing goes that nobody selected.
#include "app/window/MainWindow.h"
#include "form/FormProcedures.h"
#include "form/ListControls.h"

#include <algorithm>
#include <string_view>
#include <windowsx.h>

namespace window
{

using form::ParameterGrid;

namespace
{

constexpr int shareStep = 25;

}  // namespace

// The grid behind a list has a current row from the start; the list shows it only when the engineer
// has selected something.
bool MainWindow::removesNothing(const form::Event& event, int argument)
{
    if (program_.isBusy())
        return false;
    const form::MainForm& form = program_.form();
    return std::ranges::any_of(form::listControls, [&](const form::ListControls& each) {
        const ParameterGrid& grid = form.*each.grid;
        const bool removes =
            event == form::click(form.named(form.*each.remove).name) ||
            (event == eventOf(grid, form::What::KeyDown) && argument == form::deleteKey);
        return removes && !hasSelection(grid);
    });
}

void MainWindow::tellNothingSelected()
{
    constexpr std::string_view message =
        "No row is selected. Select rows by mouse or keys, and try again";
    tellItself(std::string(message));
}

std::vector<MarkRule> MainWindow::marksOf(const ParameterGrid& grid)
{
    const auto isNotApplied = [this, &grid](int row) {
        return modelLine_.isNotApplied(program_.form(), grid, row);
    };
    const auto isNew = [this, &grid](int row) { return program_.newRows(grid).contains(row); };
    std::vector<MarkRule> marks = marksOfFindings(grid);
    marks.insert(marks.begin(), {{Mark::NotApplied, isNotApplied}, {Mark::New, isNew}});
    return marks;
}

void MainWindow::showNewRows()
{
    if (!ready_)
        return;
    for (const auto& [grid, view] : grids_)
        view->bringIntoSight(program_.newRows(*grid).rows());
}

// The list that has the focus or the field, else the one that was searched last or the first one.
ParameterGrid& MainWindow::gridToSearch()
{
    form::MainForm& form = program_.form();
    const HWND focus = GetFocus();
    ParameterGrid* const focused =
        focus == findField_.textWindow() ? findField_.list() : gridAt(focus);
    if (focused != nullptr)
        searched_ = focused;
    return searched_ == nullptr ? form.InputsList : *searched_;
}

void MainWindow::openFind()
{
    findIn(gridToSearch());
}

void MainWindow::findIn(ParameterGrid& grid)
{
    searched_ = &grid;
    findField_.open(grid, grids_.at(&grid)->window());
    layOut();
}

void MainWindow::findCommand(int notification)
{
    const std::string text = findField_.text();
    if (notification == FindField::entered && !text.empty()) {
        find(text == sought_);
    }
    else if (notification == FindField::left) {
        SetFocus(grids_.at(&gridToSearch())->window());
        findField_.close();
        layOut();
    }
}

void MainWindow::find(bool further)
{
    const bool isOpen = findField_.list() != nullptr;
    if (isOpen && !findField_.text().empty())
        sought_ = findField_.text();
    if (sought_.empty()) {
        openFind();
        return;
    }
    const bool isFound = grids_.at(&gridToSearch())->find(sought_, further);
    tellItself(isFound ? std::string() : "No name has this text: " + sought_);
}

void MainWindow::shareLists(int inputShare)
{
    inputShare_ = inputShare;
    if (!ready_)
        return;
    form::MainForm& form = program_.form();
    form::layOutContent(form, inputShare_);
    const int both = form.Inputs.Height + form.Outputs.Height;
    inputShare_ =
        MulDiv(form.Inputs.Height, form::wholeShare, both);  // as far as the layout followed
    layOut();
}

void MainWindow::giveMoreToInputs()
{
    shareLists(inputShare_ + shareStep);
}

void MainWindow::giveMoreToOutputs()
{
    shareLists(inputShare_ - shareStep);
}

// The gap between the two frames, over the whole width.
bool MainWindow::isOnDivider(HWND window, POINT place)
{
    const form::MainForm& form = program_.form();
    return ready_ && window == windows_.at(&form.pbInner) &&
           place.y >= pixels_.fromTwips(form.Inputs.Top + form.Inputs.Height) &&
           place.y < pixels_.fromTwips(form.Outputs.Top);
}

// Whether the message is done with. While the divider is held, its share follows the mouse.
bool MainWindow::moveDivider(HWND window, UINT message, LPARAM lParam)
{
    const form::MainForm& form = program_.form();
    POINT place{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    switch (message) {
    case WM_SETCURSOR:
        GetCursorPos(&place);
        ScreenToClient(window, &place);
        if (LOWORD(lParam) != HTCLIENT || isBusy() || !isOnDivider(window, place))
            return false;
        SetCursor(LoadCursorW(nullptr, IDC_SIZENS));
        return true;
    case WM_LBUTTONDOWN:
        if (!isOnDivider(window, place))
            return false;
        dividerGrip_ = place.y - pixels_.fromTwips(form.Inputs.Top + form.Inputs.Height);
        SetCapture(window);
        return true;
    case WM_MOUSEMOVE:
        if (dividerGrip_ && ready_)
            shareLists(MulDiv(pixels_.toTwips(place.y - *dividerGrip_) - form.Inputs.Top,
                              form::wholeShare, form.Inputs.Height + form.Outputs.Height));
        return dividerGrip_.has_value();
    case WM_LBUTTONUP:
        if (dividerGrip_)
            ReleaseCapture();
        return false;
    case WM_CAPTURECHANGED:
        dividerGrip_.reset();
        return false;
    default:
        return false;
    }
}

}  // namespace window
