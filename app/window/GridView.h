// A parameter grid on the screen: a list view that asks the grid for the cells it shows, so that a
// million rows cost nothing. A selection is always one run of adjacent rows, as in the grid.
#pragma once

#include "app/window/Controls.h"
#include "app/window/Pixels.h"
#include "app/window/SelectedRuns.h"
#include "form/ParameterGrid.h"

#include <windows.h>

#include <commctrl.h>
#include <functional>
#include <string>

namespace window
{

class GridView
{
public:
    /// onKey gets the code of each key that is pressed in the grid.
    /// onSelect is called when the engineer selected other rows.
    GridView(HWND parent, int id, form::ParameterGrid& grid, std::function<void(int)> onKey,
             std::function<void()> onSelect);
    ~GridView() { RemoveWindowSubclass(window_, listProcedure, 1); }
    GridView(const GridView&) = delete;
    GridView& operator=(const GridView&) = delete;

    HWND window() const { return window_; }

    /// Shows what the grid holds now.
    void update();
    void setResolution(Pixels pixels);
    /// In the colours of Windows for what can be used, or for what is off.
    void showColours(bool isOn);
    int selectedCount() const { return shownSelection().count; }
    /// The answer to a notification of the list view or of its header.
    LRESULT notify(const NMHDR& header);
    bool sends(const NMHDR& header) const;

private:
    static constexpr UINT showSelectionMessage = WM_APP + 1;

    // The list view counts parameter rows from 0, the grid from 1.
    static int rowOf(int item) { return item + 1; }
    static int itemOf(int row) { return row - 1; }
    static LRESULT CALLBACK listProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                          UINT_PTR id, DWORD_PTR self);
    void addColumns();
    void takeColumnWidths();
    void followSelection(int first, int last, UINT before, UINT now);
    void agreeOnSelection();
    void takeSelection();
    form::RowRange shownSelection() const;
    void showSelection();
    void select(const form::RowRange& rows);
    void setItems(const SelectedRuns& items, UINT state);
    void setItemState(int item, UINT state, UINT mask);
    bool isAboutToSelect(UINT message, WPARAM wParam, LPARAM lParam) const;
    LRESULT passOn(UINT message, WPARAM wParam, LPARAM lParam);
    void selectAll();
    void copySelection();
    template <class Info>
    void giveCell(Info& info);

    HWND window_;
    form::ParameterGrid& grid_;
    std::function<void(int)> onKey_;
    std::function<void()> onSelect_;
    Pixels pixels_{USER_DEFAULT_SCREEN_DPI};
    SelectedRuns selected_;  // in the list view
    std::wstring cell_;      // lives until the list view has drawn it
    std::string narrowCell_;
    bool updating_ = false;       // the program selects rows, not the engineer
    bool settingWidths_ = false;  // the program sets widths, not the engineer
};

}  // namespace window
