#include "fake/GridRows.h"
#include "form/ParameterGrid.h"
#include "system/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <limits>
#include <optional>
#include <string>
#include <vector>

using fake::fill;
using fake::namesOf;
using fake::rowsOf;
using form::ParameterGrid;
using form::RowRange;
using sys::ErrorNumber;
using sys::RuntimeError;
using testing::ElementsAre;

namespace
{

// Number of the error that the step raises; nothing when it raises none.
std::optional<ErrorNumber> errorOf(const std::function<void()>& step)
{
    try {
        step();
    }
    catch (const RuntimeError& error) {
        return error.number();
    }
    return std::nullopt;
}

TEST(ParameterGridTest, IsAHeaderAndOneBlankRowAtFirst)
{
    const ParameterGrid grid(6);

    EXPECT_EQ(grid.Rows(), 2);
    EXPECT_EQ(grid.Cols(), 6);
    EXPECT_EQ(grid.text(0, 0), "Variable Name");
    EXPECT_EQ(grid.text(0, 1), "Value");
    EXPECT_EQ(grid.text(0, 2), "");
    EXPECT_EQ(grid.text(0, 5), "");
    EXPECT_EQ(grid.rowText(1), "\t\t\t\t\t");
    EXPECT_EQ(grid.ColWidth.size(), 6U);
    EXPECT_EQ(grid.Row, 1);
    EXPECT_EQ(grid.RowSel, 1);
}

TEST(AddItem, PutsTheCellsIntoConsecutiveColumns)
{
    ParameterGrid grid(6);

    grid.AddItem("ThicknessAtProp12\t0.25\tProp\t12\tpval\t0");

    EXPECT_EQ(grid.Rows(), 3);
    EXPECT_EQ(grid.text(2, 0), "ThicknessAtProp12");
    EXPECT_EQ(grid.text(2, 1), "0.25");
    EXPECT_EQ(grid.text(2, 2), "Prop");
    EXPECT_EQ(grid.text(2, 3), "12");
    EXPECT_EQ(grid.text(2, 4), "pval");
    EXPECT_EQ(grid.text(2, 5), "0");
}

TEST(AddItem, LeavesMissingCellsEmpty)
{
    ParameterGrid grid(6);

    grid.AddItem("ColorAtProp12\t110\tProp\t12\tcolor");
    grid.AddItem("");
    grid.AddItem("name");

    EXPECT_EQ(grid.rowText(2), "ColorAtProp12\t110\tProp\t12\tcolor\t");
    EXPECT_EQ(grid.text(2, 5), "");
    EXPECT_EQ(grid.rowText(3), "\t\t\t\t\t");
    EXPECT_EQ(grid.rowText(4), "name\t\t\t\t\t");
}

TEST(AddItem, DropsSurplusCells)
{
    ParameterGrid grid(5);

    grid.AddItem("a\tb\tc\td\te\tf\tg");
    grid.AddItem("a\tb\tc\td\te\t");

    EXPECT_EQ(grid.rowText(2), "a\tb\tc\td\te");
    EXPECT_EQ(grid.rowText(3), "a\tb\tc\td\te");
    EXPECT_EQ(grid.text(2, 4), "e");
}

TEST(ParameterGridTest, RaisesForRowsAndColumnsThatAreNotThere)
{
    ParameterGrid grid(5);
    const auto outside = ErrorNumber::SubscriptOutOfRange;

    EXPECT_EQ(errorOf([&] { grid.text(2, 0); }), outside);
    EXPECT_EQ(errorOf([&] { grid.text(-1, 0); }), outside);
    EXPECT_EQ(errorOf([&] { grid.text(1, 5); }), outside);
    EXPECT_EQ(errorOf([&] { grid.text(0, -1); }), outside);
    EXPECT_EQ(errorOf([&] { grid.rowText(2); }), outside);
    EXPECT_EQ(errorOf([&] { grid.rowText(0); }), outside);
    EXPECT_EQ(errorOf([&] { grid.setText(2, 0, "x"); }), outside);
    EXPECT_EQ(errorOf([&] { grid.setText(0, 0, "x"); }), outside);
    EXPECT_EQ(errorOf([&] { grid.setText(1, 5, "x"); }), outside);
}

TEST(SetText, ChangesOneCellWhateverItsPlaceInTheRow)
{
    ParameterGrid grid(5);
    fill(grid, {"a\tb\tc\td\te"});

    grid.setText(1, 0, "name");
    grid.setText(1, 2, "");
    grid.setText(1, 4, "last one");

    EXPECT_EQ(grid.rowText(1), "name\tb\t\td\tlast one");
}

TEST(SetText, MakesATabABlankSoThatTheRowKeepsItsColumns)
{
    ParameterGrid grid(5);

    grid.setText(1, 1, "a\tb");

    EXPECT_EQ(grid.rowText(1), "\ta b\t\t\t");
}

TEST(RemoveItem, MovesTheRowsBelowUp)
{
    ParameterGrid grid(5);
    fill(grid, {"a", "b", "c"});

    grid.RemoveItem(2);

    EXPECT_THAT(namesOf(grid), ElementsAre("a", "c"));
}

TEST(RemoveItem, RefusesTheLastParameterRowTheHeaderAndRowsThatAreNotThere)
{
    ParameterGrid grid(5);
    fill(grid, {"a\tb\tc\td\te"});
    const std::vector<std::string> before = rowsOf(grid);

    EXPECT_EQ(errorOf([&] { grid.RemoveItem(1); }), ErrorNumber::CannotRemoveRow);
    EXPECT_EQ(errorOf([&] { grid.RemoveItem(0); }), ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(errorOf([&] { grid.RemoveItem(2); }), ErrorNumber::SubscriptOutOfRange);

    EXPECT_EQ(rowsOf(grid), before);
}

TEST(RemoveRows, RemovesARangeAtOnce)
{
    ParameterGrid grid(5);
    fill(grid, {"a", "b", "c", "d"});

    grid.removeRows({2, 2});

    EXPECT_THAT(namesOf(grid), ElementsAre("a", "d"));
}

TEST(RemoveRows, DoesNothingForAnEmptyRange)
{
    ParameterGrid grid(5);
    fill(grid, {"a", "b"});

    grid.removeRows({7, 0});
    grid.removeRows({1, -1});

    EXPECT_THAT(namesOf(grid), ElementsAre("a", "b"));
}

TEST(RemoveRows, ChangesNothingWhenOneOfTheRowsCannotGo)
{
    ParameterGrid grid(5);
    fill(grid, {"a", "b", "c"});

    EXPECT_EQ(errorOf([&] { grid.removeRows({1, 3}); }), ErrorNumber::CannotRemoveRow);
    EXPECT_EQ(errorOf([&] { grid.removeRows({2, 3}); }), ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(errorOf([&] { grid.removeRows({0, 1}); }), ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(errorOf([&] {
                  grid.removeRows({2, std::numeric_limits<int>::max()});
              }),
              ErrorNumber::SubscriptOutOfRange);

    EXPECT_THAT(namesOf(grid), ElementsAre("a", "b", "c"));
}

TEST(ParameterGridTest, KeepsTheSelectionInsideWhenRowsGo)
{
    ParameterGrid grid(5);
    fill(grid, {"a", "b", "c", "d"});
    grid.Row = 4;
    grid.RowSel = 2;

    grid.removeRows({3, 2});

    EXPECT_EQ(grid.Row, 2);
    EXPECT_EQ(grid.RowSel, 2);
}

TEST(SetRows, CutsOrExtendsWithBlankRowsAndKeepsTheOthers)
{
    ParameterGrid grid(5);
    fill(grid, {"a\t1", "b", "c"});
    grid.Row = 3;

    grid.setRows(2);
    const std::vector<std::string> cut = rowsOf(grid);
    const int currentRow = grid.Row;
    grid.setRows(4);

    EXPECT_THAT(cut, ElementsAre("a\t1\t\t\t"));
    EXPECT_EQ(currentRow, 1);
    EXPECT_THAT(rowsOf(grid), ElementsAre("a\t1\t\t\t", "\t\t\t\t", "\t\t\t\t"));
}

TEST(SetRows, LeavesAtLeastOneParameterRow)
{
    ParameterGrid grid(5);
    fill(grid, {"a", "b"});

    grid.setRows(0);

    EXPECT_THAT(namesOf(grid), ElementsAre("a"));
}

TEST(SortByName, IsOrdinalWithTheEmptyNameFirst)
{
    ParameterGrid grid(5);
    fill(grid, {"ThicknessAtProp9", "ä", "b", "ThicknessAtProp10", "", "B", "a b", "a", "Ж"});

    grid.sortByName();

    EXPECT_THAT(namesOf(grid), ElementsAre("", "B", "ThicknessAtProp10", "ThicknessAtProp9", "a",
                                           "a b", "b", "ä", "Ж"));
}

TEST(SortByName, FillsTheGridAnewOnlyWhereRowsMove)
{
    ParameterGrid grid(2);
    fill(grid, {"b\t1", "a\t2"});
    const auto fillsBy = [&](auto action) {
        const std::uint64_t before = grid.fills();
        action();
        return grid.fills() - before;
    };

    EXPECT_EQ(fillsBy([&] { grid.sortByName(); }), 1U);
    EXPECT_EQ(fillsBy([&] { grid.sortByName(); }), 0U);
    EXPECT_EQ(fillsBy([&] { grid.AddItem("c\t3"); }), 1U);
    EXPECT_EQ(fillsBy([&] { grid.setText(1, 1, "4"); }), 0U);
    EXPECT_EQ(fillsBy([&] { grid.RemoveItem(1); }), 0U);
    EXPECT_EQ(fillsBy([&] { grid.replaceRows({"z\t"}); }), 1U);
}

TEST(SortByName, KeepsTheOrderOfRowsWithTheSameName)
{
    ParameterGrid grid(5);
    fill(grid, {"b\t1", "a\t2", "b\t3", "a\t4", "a\t5"});

    grid.sortByName();

    EXPECT_THAT(rowsOf(grid),
                ElementsAre("a\t2\t\t\t", "a\t4\t\t\t", "a\t5\t\t\t", "b\t1\t\t\t", "b\t3\t\t\t"));
}

TEST(SortByName, LooksAtTheNameAloneWhenOneNameBeginsAnother)
{
    ParameterGrid grid(5);
    fill(grid, {"aa\t0", "a\t9", "a\x01\t5"});

    grid.sortByName();

    EXPECT_THAT(namesOf(grid), ElementsAre("a", "a\x01", "aa"));
}

TEST(SelectedRows, AreTheSameWhicheverWayTheSelectionWasMade)
{
    ParameterGrid grid(5);
    fill(grid, {"a", "b", "c", "d"});

    grid.Row = 2;
    grid.RowSel = 4;
    const RowRange down = grid.selectedRows();
    grid.Row = 4;
    grid.RowSel = 2;
    const RowRange up = grid.selectedRows();

    EXPECT_EQ(down.first, 2);
    EXPECT_EQ(down.count, 3);
    EXPECT_EQ(up.first, 2);
    EXPECT_EQ(up.count, 3);
}

}  // namespace
