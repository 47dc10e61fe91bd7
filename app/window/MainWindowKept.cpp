// MainWindow: what is kept from run to run, in files below the user's local application data.
#include "app/window/KeptPlaces.h"
#include "app/window/MainWindow.h"

namespace window
{

namespace
{

constexpr std::string_view folderName = "Velmar-Femap Interface";

// On a screen that is there no more, the window stays where Windows put it.
bool isOnAScreen(const form::ScreenPlace& place)
{
    const RECT area{place.left, place.top, place.right, place.bottom};
    return MonitorFromRect(&area, MONITOR_DEFAULTTONULL) != nullptr;
}

}  // namespace

void MainWindow::findKept()
{
    const std::string data = system_.environment("LOCALAPPDATA");
    if (data.empty())
        return;
    dataFolder_ = data + sys::pathSeparator + std::string(folderName) + sys::pathSeparator;
    placesKept_ = readPlaces(system_.files, dataFolder_ + "Window.txt");
    program_.keepRowsIn(dataFolder_ + "Rows" + sys::pathSeparator);
}

void MainWindow::takeKeptPlace()
{
    if (!placesKept_.window || !isOnAScreen(*placesKept_.window))
        return;
    moveTo(window_, *placesKept_.window);
    moveTo(window_, form::keptWithin(*placesKept_.window, workAreaOf(window_)));
    const bool isAsUsual = showCommand_ == SW_SHOWNORMAL || showCommand_ == SW_SHOWDEFAULT;
    if (placesKept_.isMaximised && isAsUsual)
        showCommand_ = SW_SHOWMAXIMIZED;
}

// After start-up, which gives the columns their widths.
void MainWindow::takeKeptWidths()
{
    form::MainForm& form = program_.form();
    const auto take = [](form::ParameterGrid& grid, const std::vector<int>& widths) {
        if (widths.size() == grid.ColWidth.size())
            grid.ColWidth = widths;
    };
    take(form.InputsList, placesKept_.inputWidths);
    take(form.OutputsList, placesKept_.outputWidths);
    inputShare_ = placesKept_.inputShare.value_or(inputShare_);
}

// FEMAP decides where a pane is.
void MainWindow::keepPlaces()
{
    if (dataFolder_.empty() || !isShown_)
        return;
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    if (!PaneOwner::isPane(window_) && GetWindowPlacement(window_, &placement) != FALSE) {
        placesKept_.isMaximised = placement.showCmd == SW_SHOWMAXIMIZED;
        if (placement.showCmd == SW_SHOWNORMAL)
            placesKept_.window = placeOf(window_);
    }
    const form::MainForm& form = program_.form();
    placesKept_.inputWidths = form.InputsList.ColWidth;
    placesKept_.outputWidths = form.OutputsList.ColWidth;
    placesKept_.inputShare = inputShare_;
    writePlaces(system_.files, dataFolder_ + "Window.txt", placesKept_);
}

// Leaves fields, so that Ctrl+Z takes that back and not what was typed there.
void MainWindow::bringBackKept()
{
    program_.bringBackKept();
    form::ParameterGrid& list = program_.form().InputsList;
    if (list.Enabled)
        SetFocus(windows_.at(&list));
}

}  // namespace window
