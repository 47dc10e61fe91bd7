// MainWindow: the menus that a right click or the menu key opens. A list has one of its own; beside
// lists and fields it is that of the window, which a pane does not have.
#include "app/window/MainWindow.h"
#include "form/ListControls.h"
#include "windows/Text.h"

#include <algorithm>

namespace window
{

using form::ParameterGrid;

// clang-format off
const MainWindow::ListCommand MainWindow::listCommands[] = {
    {idCopy,             "Copy\tCtrl+C",
     &MainWindow::hasSelection, &MainWindow::copyRows},
    {idCopyWithHeadings, "Copy with headings\tCtrl+Shift+C",
     &MainWindow::hasSelection, &MainWindow::copyRowsWithHeadings},
    {idSelectAll,        "Select all\tCtrl+A",
     &MainWindow::hasRows,      &MainWindow::selectAllRows},
    {idRemove,           "Remove\tDelete",
     &MainWindow::canRemove,    &MainWindow::removeRows},
    {idRefreshRows,      "Refresh these rows",
     &MainWindow::canRefresh,   &MainWindow::refreshRows},
    {idFindInList,       "Find\tCtrl+F",
     &MainWindow::hasRows,      &MainWindow::findIn},
};
// clang-format on

// Fields have a menu of their own.
void MainWindow::showMenu(HWND where, POINT place)
{
    constexpr LONG fromKeyboard = -1;
    ParameterGrid* const grid = gridAt(where);
    const bool isByKey = place.x == fromKeyboard && place.y == fromKeyboard;
    if (isByKey && grid != nullptr) {
        place = grids_.at(grid)->menuPlace();
    }
    else if (isByKey) {
        const form::ScreenPlace control = placeOf(where);
        place = {control.left, control.bottom};
    }
    const HMENU menu = CreatePopupMenu();
    if (grid != nullptr)
        addListCommands(menu, *grid);
    addCommands(menu);
    const BOOL chosen = TrackPopupMenu(menu, TPM_RETURNCMD | TPM_RIGHTBUTTON, place.x, place.y, 0,
                                       window_, nullptr);
    DestroyMenu(menu);
    if (isCommand(static_cast<WPARAM>(chosen)))
        runCommand(static_cast<WPARAM>(chosen));
    else if (chosen != 0)
        runListCommand(chosen, *grid);
}

void MainWindow::addListCommands(HMENU menu, const ParameterGrid& grid)
{
    for (const ListCommand& each : listCommands)
        AppendMenuW(menu, (this->*each.canRun)(grid) ? MF_STRING : MF_STRING | MF_GRAYED,
                    static_cast<UINT_PTR>(each.id), windows::toWide(each.caption).c_str());
    AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
}

// What could be done when the menu was opened may be too late now.
void MainWindow::runListCommand(int id, ParameterGrid& grid)
{
    const ListCommand& command = *std::ranges::find(listCommands, id, &ListCommand::id);
    if (ready_ && !program_.isBusy() && !block_.has_value() && (this->*command.canRun)(grid))
        (this->*command.run)(grid);
}

// Null when the window is neither a list nor a part of one.
ParameterGrid* MainWindow::gridAt(HWND window)
{
    for (const form::NamedControl& each : program_.form().controls()) {
        auto* const grid = each.as<ParameterGrid>();
        const HWND list = grid == nullptr ? nullptr : grids_.at(grid)->window();
        if (list != nullptr && (list == window || IsChild(list, window) != FALSE))
            return grid;
    }
    return nullptr;
}

bool MainWindow::hasSelection(const ParameterGrid& grid)
{
    return grids_.at(&grid)->selectedCount() > 0;
}

bool MainWindow::hasRows(const ParameterGrid& grid)
{
    return !grids_.at(&grid)->isEmpty();
}

bool MainWindow::canRemove(const ParameterGrid& grid)
{
    const form::MainForm& form = program_.form();
    return hasSelection(grid) && isUsable(form.*form::listOf(form, grid).remove);
}

bool MainWindow::canRefresh(const ParameterGrid& grid)
{
    const form::MainForm& form = program_.form();
    return hasSelection(grid) && isUsable(form.*form::listOf(form, grid).refresh);
}

void MainWindow::copyRows(ParameterGrid& grid)
{
    grids_.at(&grid)->copySelection(false);
}

void MainWindow::copyRowsWithHeadings(ParameterGrid& grid)
{
    grids_.at(&grid)->copySelection(true);
}

void MainWindow::selectAllRows(ParameterGrid& grid)
{
    grids_.at(&grid)->selectAll();
}

void MainWindow::removeRows(ParameterGrid& grid)
{
    const form::MainForm& form = program_.form();
    press(form.named(form.*form::listOf(form, grid).remove));
}

void MainWindow::refreshRows(ParameterGrid& grid)
{
    const form::MainForm& form = program_.form();
    commitTexts();
    raise({form.named(form.*form::listOf(form, grid).refresh).name, form::What::SelectedRows});
}

}  // namespace window
