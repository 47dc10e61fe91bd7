#include "GridWindowFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

using driver::GridWindow;
using testing::ElementsAre;

namespace
{

constexpr UINT byLetters = LVFI_STRING | LVFI_PARTIAL;
constexpr UINT around = byLetters | LVFI_WRAP;
constexpr UINT anyPart = 4;  // LVFI_SUBSTRING, another word for LVFI_PARTIAL

TEST_F(GridWindow, LettersFindTheNextRowThatBeginsWithThem)
{
    fill({"Alpha", "beta", "Bravo", "Charlie"});

    EXPECT_EQ(find(L"b", around, 0), 1);
    EXPECT_EQ(find(L"b", around, 2), 2);
    EXPECT_EQ(find(L"br", around, 0), 2);
    EXPECT_EQ(find(L"c", byLetters, 3), 3);
    EXPECT_EQ(find(L"b", LVFI_STRING | anyPart, 2), 2);
}

TEST_F(GridWindow, TheSearchGoesOnAtTheFirstRowWhereItMay)
{
    fill({"Alpha", "beta", "Bravo", "Charlie"});

    EXPECT_EQ(find(L"b", around, 3), 1);
    EXPECT_EQ(find(L"b", byLetters, 3), -1);
    EXPECT_EQ(find(L"a", around, 4), 0) << "from beyond the last row";
    EXPECT_EQ(find(L"a", byLetters, 4), -1);
    EXPECT_EQ(find(L"a", byLetters, -1), 0);
}

TEST_F(GridWindow, LettersThatNoRowBeginsWithFindNone)
{
    fill({"Alpha", "beta"});

    EXPECT_EQ(find(L"x", around), -1);
    EXPECT_EQ(find(L"lpha", around), -1);
    EXPECT_EQ(find(L"Alphas", around), -1);
}

TEST_F(GridWindow, AnEmptyGridHasNothingToFind)
{
    view->update();

    EXPECT_EQ(find(L"a", around), -1);
}

TEST_F(GridWindow, CapitalAndSmallLettersAreTheSameToASearch)
{
    fill({"Alpha", "\xC3\xA4hre",
          "Tr\xC3\xA4ger \xC3\x98"
          "12"});

    EXPECT_EQ(find(L"AL", around), 0);
    EXPECT_EQ(find(L"\u00C4", around), 1);
    EXPECT_EQ(find(L"TR\u00C4GER \u00F8", around), 2);
    EXPECT_EQ(find(L"tra", around), -1);
}

TEST_F(GridWindow, WithoutLeaveForPartsTheWholeNameMustBeTheSame)
{
    fill({"Alpha", "beta", "betatron"});

    EXPECT_EQ(find(L"BETA", LVFI_STRING), 1);
    EXPECT_EQ(find(L"betatro", LVFI_STRING), -1);
    EXPECT_EQ(find(L"betatron", LVFI_STRING, 1), 2);
    EXPECT_EQ(find(L"beta", LVFI_WRAP, 2), 1) << "to go round means to look for a text";
}

TEST_F(GridWindow, ASearchForAnythingButTextFindsNone)
{
    fill({"Alpha"});

    EXPECT_EQ(find(L"Alpha", LVFI_PARAM | LVFI_STRING), -1);
    EXPECT_EQ(find(L"Alpha", LVFI_NEARESTXY | LVFI_STRING), -1);
    EXPECT_EQ(find(L"Alpha", 0), -1);
}

TEST_F(GridWindow, AProgramThatAsksInTheAnsiCodePageIsAnsweredToo)
{
    fill({"Alpha", "\xC3\xA4hre"});
    NMLVFINDITEMA question{};
    question.hdr = {list(), 1, LVN_ODFINDITEMA};
    question.lvfi.flags = around;
    question.lvfi.psz = "\xE4h";  // as Windows-1252 has it

    EXPECT_EQ(view->notify(question.hdr), 1);
}

TEST_F(GridWindow, ATypedLetterSelectsTheRowItFindsAndAnotherNone)
{
    fill({"Alpha", "beta", "Bravo", "Charlie"});
    click(3);

    SendMessageW(list(), WM_CHAR, 'b', 1);
    const std::vector<int> found = marked();
    const int row = grid.Row;
    SendMessageW(list(), WM_CHAR, 'x', 1);

    EXPECT_THAT(found, ElementsAre(1));
    EXPECT_EQ(row, 2);
    EXPECT_THAT(marked(), ElementsAre(1));
    EXPECT_EQ(grid.Row, 2);
}

TEST_F(GridWindow, KeysAndClicksLookForNoSelectedRowAmongMany)
{
    constexpr int rows = 100000;
    fillWith(rows);
    click(3);
    toList.clear();

    click(5);
    press(VK_DOWN);
    const int down = grid.Row;
    press(VK_END);
    const int end = grid.Row;
    view->update();
    press(VK_UP, true);
    const form::RowRange two = grid.selectedRows();
    view->update();
    press(VK_HOME);
    SendMessageW(list(), WM_CHAR, 'e', 1);

    EXPECT_EQ(searches(), 0);
    EXPECT_EQ(down, 7);
    EXPECT_EQ(end, rows);
    EXPECT_EQ(two.first, rows - 1);
    EXPECT_EQ(two.count, 2);
    EXPECT_EQ(grid.Row, 2);
}

TEST_F(GridWindow, KeysAndClicksNeverMakeTheListGoThroughAllItsItems)
{
    fillWith(1000);
    click(3);
    ofAllItems = 0;
    const auto changesBy = [&](auto action) {
        changes = 0;
        action();
        return changes;
    };

    EXPECT_LE(changesBy([&] { click(5); }), 5);
    EXPECT_LE(changesBy([&] { click(5); }), 5) << "on the selected row";
    for (const WPARAM key : {VK_DOWN, VK_UP, VK_NEXT, VK_PRIOR, VK_END, VK_HOME, VK_SPACE})
        EXPECT_LE(changesBy([&] { press(key); }), 5) << key;
    EXPECT_LE(changesBy([&] { press(VK_DOWN, true); }), 5);
    EXPECT_LE(changesBy([&] { press(VK_DOWN, true); }), 5);
    const form::RowRange stretch = grid.selectedRows();
    SendMessageW(list(), WM_CHAR, 'e', 1);
    SendMessageW(list(), WM_CHAR, 'q', 1);
    grid.Row = grid.RowSel = 8;
    view->update();

    EXPECT_EQ(ofAllItems, 0);
    EXPECT_EQ(stretch.first, 1);
    EXPECT_EQ(stretch.count, 3);
    EXPECT_THAT(marked(), ElementsAre(7));
}

TEST_F(GridWindow, WhatSelectsNothingLeavesTheSelectionAndItsMark)
{
    fillWith(10);
    click(2);
    press(VK_DOWN, true);
    press(VK_DOWN, true);

    pressWith(VK_CONTROL, VK_DOWN);
    const std::vector<int> afterFocus = marked();
    const int focus = ListView_GetNextItem(list(), -1, LVNI_FOCUSED);
    SendMessageW(list(), WM_CHAR, 'q', 1);
    click(20);
    pump();

    EXPECT_THAT(afterFocus, ElementsAre(2, 3, 4));
    EXPECT_EQ(focus, 5);
    EXPECT_THAT(marked(), ElementsAre(2, 3, 4));
    EXPECT_EQ(grid.selectedRows().first, 3);
    EXPECT_EQ(grid.selectedRows().count, 3);
    EXPECT_EQ(ListView_GetSelectionMark(list()), 2);
}

TEST_F(GridWindow, AKeyAfterAllWereSelectedLeavesOneRow)
{
    fillWith(2000);
    click(3);

    pressWith(VK_CONTROL, 'A');
    const UINT all = ListView_GetSelectedCount(list());
    press(VK_DOWN);

    EXPECT_EQ(all, 2000U);
    EXPECT_EQ(marked().size(), 1U);
    EXPECT_EQ(grid.selectedRows().count, 1);
}

TEST_F(GridWindow, AStretchIsTakenFromWhereverItBegan)
{
    fillWith(20);
    click(8);

    press(VK_DOWN, true);
    press(VK_DOWN, true);
    const int downRow = grid.Row;
    const int downEnd = grid.RowSel;
    click(8);
    press(VK_UP, true);

    EXPECT_EQ(downRow, 9);
    EXPECT_EQ(downEnd, 11);
    EXPECT_EQ(grid.Row, 9);
    EXPECT_EQ(grid.RowSel, 8);
    EXPECT_EQ(grid.selectedRows().count, 2);
}

TEST_F(GridWindow, RowsThatWentTakeTheirSelectionAlong)
{
    fillWith(20);
    click(8);
    press(VK_END, true);
    const int before = grid.selectedRows().count;

    grid.removeRows({11, 10});
    grid.Row = 9;
    grid.RowSel = 10;
    view->update();
    const std::vector<int> left = marked();
    press(VK_HOME);

    EXPECT_EQ(before, 12);
    EXPECT_THAT(left, ElementsAre(8, 9));
    EXPECT_THAT(marked(), ElementsAre(0));
    EXPECT_EQ(grid.Row, 1);
    EXPECT_EQ(grid.selectedRows().count, 1);
}

TEST_F(GridWindow, ASelectionWithHolesBecomesTheRowInFocus)
{
    fillWith(20);
    click(8);
    press(VK_DOWN, true);
    press(VK_DOWN, true);

    mark(9, false);

    EXPECT_EQ(marked().size(), 1U);
    EXPECT_EQ(grid.selectedRows().count, 1);
}

TEST_F(GridWindow, WhatTheListSelectedWithoutAWordIsSeenAtTheNextChange)
{
    fillWith(20);
    click(8);
    const auto hideChanges = [](HWND window, UINT message, WPARAM wParam,
                                LPARAM lParam) -> LRESULT {
        return DefWindowProcW(window, message, wParam, lParam);
    };
    const LONG_PTR heard = SetWindowLongPtrW(
        parent, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(static_cast<WNDPROC>(hideChanges)));
    mark(9, true);
    SetWindowLongPtrW(parent, GWLP_WNDPROC, heard);

    mark(10, true);

    EXPECT_EQ(grid.selectedRows().first, 9);
    EXPECT_EQ(grid.selectedRows().count, 3);
}

}  // namespace
