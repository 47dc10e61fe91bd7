// MainWindow: what is found in the study: the marks of its rows, their tips, and the window that
// lists it.
#include "app/window/MainWindow.h"

#include <algorithm>
#include <iterator>
#include <string>

namespace window
{

using findings::Grid;
using findings::Place;
using findings::Severity;
using form::ParameterGrid;

Place MainWindow::placeIn(const ParameterGrid& grid, int row)
{
    const bool isInput = &grid == &program_.form().InputsList;
    return {isInput ? Grid::Inputs : Grid::Outputs, row};
}

std::vector<MarkRule> MainWindow::marksOfFindings(const ParameterGrid& grid)
{
    const auto is = [this, &grid](Severity severity) {
        return [this, &grid, severity](int row) {
            return program_.latestFindings().gravestOf(placeIn(grid, row)) == severity;
        };
    };
    return {{Mark::Warning, is(Severity::Warning)}, {Mark::Error, is(Severity::Error)}};
}

std::string MainWindow::tipOf(const ParameterGrid& grid, int row)
{
    return program_.latestFindings().textOf(placeIn(grid, row));
}

// All rules are followed anew, also when the window is there.
void MainWindow::showFindings()
{
    commitTexts();
    carryOut([this] {
        SetCursor(LoadCursorW(nullptr, IDC_WAIT));
        program_.check();
        return app::Ended::Normally;
    });
    if (!ready_)
        return;
    findings_.open(window_);
    looksSeen_.reset();
    listFindings();
}

// A list with many rows in each line is made only when there is another one.
void MainWindow::listFindings()
{
    const findings::LatestFindings& latest = program_.latestFindings();
    if (!findings_.isOpen() || looksSeen_ == latest.looks())
        return;
    looksSeen_ = latest.looks();
    const std::string message =
        latest.isWithFilesAndFemap()
            ? "All is looked at: rows, texts, files and FEMAP. After the next action only rows and "
              "texts are, until F8 is pressed again."
            : "Only rows and texts are looked at. F8 looks at files and FEMAP, too.";
    findings_.show(latest.found(), message);
}

// To the first of its rows; from one of them to the next.
void MainWindow::goToFinding(std::size_t number)
{
    const auto found = program_.latestFindings().found();
    if (!ready_ || isBusy() || number >= found.size() || found[number].places.empty())
        return;
    const form::MainForm& form = program_.form();
    const std::vector<Place>& places = found[number].places;
    const auto last = std::ranges::find(places, goneTo_);
    const bool isRound = last == places.end() || std::next(last) == places.end();
    const Place next = isRound ? places.front() : *std::next(last);
    const ParameterGrid& grid = next.grid == Grid::Inputs ? form.InputsList : form.OutputsList;
    if (next.row >= grid.Rows())
        return;
    goneTo_ = next;
    SetForegroundWindow(window_);
    SetFocus(grids_.at(&grid)->window());
    grids_.at(&grid)->goTo(next.row);
}

}  // namespace window
