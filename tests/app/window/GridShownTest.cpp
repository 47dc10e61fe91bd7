#include "GridWindowFixture.h"
#include "windows/Text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

using driver::GridWindow;
using testing::ElementsAre;

namespace
{

TEST_F(GridWindow, NoRowIsShownAsSelectedBeforeOneIsChosen)
{
    fillWith(10);
    EXPECT_THAT(marked(), ElementsAre());
    EXPECT_EQ(view->selectedCount(), 0);
    EXPECT_EQ(grid.Row, 1) << "the grid itself always has a current row";

    click(3);
    EXPECT_THAT(marked(), ElementsAre(3));
    EXPECT_EQ(view->selectedCount(), 1);
}

TEST_F(GridWindow, AfterTheGridWasFilledNoneIsShownAsSelectedAgain)
{
    fillWith(10);
    click(3);

    grid.AddItem("Another\t1");
    view->update();
    EXPECT_THAT(marked(), ElementsAre());
    EXPECT_EQ(grid.Row, 4);
    press(VK_DOWN);
    EXPECT_EQ(marked().size(), 1U);
    grid.sortByName();
    view->update();
    EXPECT_THAT(marked(), ElementsAre());
    view->selectAll();
    EXPECT_EQ(marked().size(), 11U);
}

TEST_F(GridWindow, RowsThatOnlyChangedOrWentLeaveTheSelectionShown)
{
    fillWith(10);
    click(3);

    grid.setText(2, 1, "7");
    grid.RemoveItem(9);
    view->update();

    EXPECT_THAT(marked(), ElementsAre(3));
}

TEST_F(GridWindow, WhatSelectsNothingShowsNoSelection)
{
    fillWith(3);

    click(8);  // below the rows
    press(VK_DELETE);
    pressWith(VK_CONTROL, 'C');

    EXPECT_THAT(marked(), ElementsAre());
}

TEST_F(GridWindow, EveryColumnHasAHeadingThatLooksAsIfNothingCouldBePressed)
{
    std::vector<std::string> headings;
    for (int column = 0; column < grid.Cols(); ++column) {
        wchar_t text[64]{};
        LVCOLUMNW info{};
        info.mask = LVCF_TEXT;
        info.pszText = text;
        info.cchTextMax = 64;
        SendMessageW(list(), LVM_GETCOLUMNW, WPARAM(column), reinterpret_cast<LPARAM>(&info));
        headings.push_back(windows::fromWide(text));
    }

    EXPECT_THAT(headings, ElementsAre("Variable Name", "Value", "Type", "ID", "Member", "Index"));
    EXPECT_EQ(GetWindowLongW(ListView_GetHeader(list()), GWL_STYLE) & HDS_BUTTONS, 0);
    EXPECT_EQ(grid.text(0, 2), "");
}

TEST_F(GridWindow, AColumnIsAsWideAsItWasDraggedAlsoAtAnotherResolution)
{
    ListView_SetColumnWidth(list(), 4, 150);
    const NMHDR dragged{ListView_GetHeader(list()), 0, HDN_ENDTRACKW};
    view->notify(dragged);
    view->setResolution(window::Pixels(2 * USER_DEFAULT_SCREEN_DPI));

    EXPECT_EQ(grid.ColWidth[4], 150 * 15);
    EXPECT_EQ(ListView_GetColumnWidth(list(), 4), 300);
    EXPECT_EQ(grid.ColWidth[5], 0) << "nobody dragged that one";
}

TEST_F(GridWindow, ARowHasTheMarkThatIsLastInRankAndIsAskedOnlyWhenItIsDrawn)
{
    fillWith(100000);
    std::set<int> asked;
    const auto isAsked = [&](int row) {
        asked.insert(row);
        return row % 2 == 0;
    };
    view->setMarks({{window::Mark::New, [](int row) { return row % 3 == 0; }},
                    {window::Mark::NotApplied, isAsked}});
    const auto markAt = [&](int item) {
        LVITEMW info{};
        info.mask = LVIF_IMAGE;
        info.iItem = item;
        SendMessageW(list(), LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&info));
        return static_cast<window::Mark>(info.iImage);
    };

    UpdateWindow(list());
    EXPECT_LT(asked.size(), 100U);
    EXPECT_EQ(markAt(0), window::Mark::None);
    EXPECT_EQ(markAt(1), window::Mark::NotApplied);
    EXPECT_EQ(markAt(2), window::Mark::New);
    EXPECT_EQ(markAt(5), window::Mark::New);
}

TEST_F(GridWindow, RowsThatAreBroughtIntoSightMoveNoSelection)
{
    fillWith(1000);

    view->bringIntoSight({500, 501, 502});
    const int top = ListView_GetTopIndex(list());

    EXPECT_LE(top, 499);
    EXPECT_GT(top + ListView_GetCountPerPage(list()), 501);
    EXPECT_THAT(marked(), ElementsAre());
    EXPECT_EQ(grid.Row, 1);

    view->bringIntoSight({100, 900});
    EXPECT_LE(ListView_GetTopIndex(list()), 99) << "the first one, when not all have room";
    press(VK_DOWN);
    EXPECT_THAT(marked(), ElementsAre(100));
}

}  // namespace
