// A parameter grid on the screen: a list view that asks the grid for the cells it shows, so that a
// million rows cost nothing. A selection is one run of adjacent rows, as in the grid, which always
// has one; here it is shown only once the engineer has selected something.
#pragma once

#include "app/window/Controls.h"
#include "app/window/Pixels.h"
#include "app/window/RowMarks.h"
#include "app/window/SelectedRuns.h"
#include "form/ParameterGrid.h"

#include <windows.h>

#include <commctrl.h>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace window
{

class GridView
{
public:
    /// furtherHeadings: of the columns that have none in the grid itself.
    /// onKey gets the code of each key that is pressed in the grid.
    /// onSelect is called when the engineer selected other rows.
    GridView(HWND parent, int id, form::ParameterGrid& grid,
             std::span<const std::string_view> furtherHeadings, std::function<void(int)> onKey,
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
    /// None while nothing was selected by hand since the grid was filled.
    int selectedCount() const { return shownSelection().count; }
    /// An empty grid is one blank row.
    bool isEmpty() const;
    /// Rows that several of these are on for get the mark that is the last in rank.
    void setMarks(std::vector<MarkRule> rules) { markRules_ = std::move(rules); }
    /// What there is to tell of a row; empty: what the list view itself tells.
    void setTips(std::function<std::string(int row)> tipOf) { tipOf_ = std::move(tipOf); }
    /// Scrolls to these rows, which ascend: to the first of them when not all have room.
    void bringIntoSight(const std::vector<int>& rows);
    /// Goes to the next row whose name has the text anywhere, from the current row on and round;
    /// further: from the row behind it. False: there is none, and all stays as it is.
    bool find(std::string_view text, bool further);
    /// Selects this row alone and brings it into sight.
    void goTo(int row);
    void selectAll();
    void copySelection(bool withHeadings) const;
    /// Where a menu that keys ask for belongs, on the screen.
    POINT menuPlace() const;
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
    std::string heading(int column) const;
    void addColumns();
    int widthOf(int column) const;
    Mark markOf(int row) const;
    void drawMarks();
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
    void giveTip(NMLVGETINFOTIPW& info) const;
    template <class Info>
    void giveCell(Info& info);

    HWND window_;
    form::ParameterGrid& grid_;
    std::span<const std::string_view> furtherHeadings_;
    std::function<void(int)> onKey_;
    std::function<void()> onSelect_;
    std::vector<MarkRule> markRules_;
    std::function<std::string(int row)> tipOf_;
    std::unique_ptr<MarkPictures> pictures_;
    Pixels pixels_{USER_DEFAULT_SCREEN_DPI};
    SelectedRuns selected_;  // in the list view
    std::wstring cell_;      // lives until the list view has drawn it
    std::string narrowCell_;
    std::uint64_t fillsSeen_ = 0;
    bool isChosen_ = false;       // the engineer selected something since the grid was filled
    bool updating_ = false;       // the program selects rows, not the engineer
    bool settingWidths_ = false;  // the program sets widths, not the engineer
};

}  // namespace window
