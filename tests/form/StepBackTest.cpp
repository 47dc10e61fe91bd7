#include "fake/GridRows.h"
#include "form/StepBack.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

namespace form
{
namespace
{

using fake::fill;
using fake::rowsOf;
using testing::ElementsAre;

using Texts = std::vector<std::string>;

struct StepBackTest : testing::Test
{
    ParameterGrid inputs{2};
    ParameterGrid outputs{2};
    StepBack steps{{&inputs, &outputs}};

    StepBackTest() { fill(inputs, {"a\t1", "b\t2", "c\t3", "d\t4"}); }
    void removing(const std::function<void()>& action)
    {
        steps.begin(false);
        action();
        steps.end();
    }
    void selecting(const std::function<void()>& action)
    {
        steps.begin(true);
        action();
        steps.end();
    }
    void clear(ParameterGrid& grid)
    {
        grid.setRows(2);
        grid.setText(1, 0, "");
        grid.setText(1, 1, "");
    }
};

TEST_F(StepBackTest, BringsRemovedRowsBackToTheirPlaces)
{
    const Texts before = rowsOf(inputs);
    for (const RowRange rows : {RowRange{1, 2}, RowRange{2, 2}, RowRange{3, 2}, RowRange{4, 1}}) {
        removing([&] { inputs.removeRows(rows); });
        const StepBack::Result result = steps.goBack();

        EXPECT_EQ(rowsOf(inputs), before);
        EXPECT_EQ(result.back, static_cast<std::size_t>(rows.count));
    }
}

TEST_F(StepBackTest, FillsEmptiedGridsAgainWithoutTheBlankRow)
{
    fill(outputs, {"z\t9"});
    removing([&] {
        clear(inputs);
        clear(outputs);
    });

    const StepBack::Result result = steps.goBack();

    EXPECT_THAT(rowsOf(inputs), ElementsAre("a\t1", "b\t2", "c\t3", "d\t4"));
    EXPECT_THAT(rowsOf(outputs), ElementsAre("z\t9"));
    EXPECT_EQ(result.back, 5);
}

TEST_F(StepBackTest, BringsTheOnlyRowBack)
{
    fill(inputs, {"a\t1"});
    removing([&] { clear(inputs); });
    steps.goBack();

    EXPECT_THAT(rowsOf(inputs), ElementsAre("a\t1"));
}

TEST_F(StepBackTest, TakesOutWhatASelectionAddedAndBringsBackWhatItTookAway)
{
    selecting([&] {
        inputs.removeRowsNamed("b");
        inputs.AddItem("aa\t5");
        inputs.sortByName();
    });
    const StepBack::Result result = steps.goBack();

    EXPECT_THAT(rowsOf(inputs), ElementsAre("a\t1", "b\t2", "c\t3", "d\t4"));
    EXPECT_EQ(result.back, 1);
    EXPECT_EQ(result.takenOut, 1);
}

TEST_F(StepBackTest, BringsBackAReplacedRowWithItsFormerCells)
{
    selecting([&] {
        inputs.removeRowsNamed("b");
        inputs.AddItem("b\t20");
    });
    steps.goBack();

    EXPECT_THAT(rowsOf(inputs), ElementsAre("a\t1", "b\t2", "c\t3", "d\t4"));
}

TEST_F(StepBackTest, BringsTheFormerOrderBackWhereASelectionSorted)
{
    fill(inputs, {"d\t4", "a\t1", "c\t3"});
    selecting([&] {
        inputs.removeRowsNamed("a");
        inputs.sortByName();
    });
    steps.goBack();

    EXPECT_THAT(rowsOf(inputs), ElementsAre("d\t4", "a\t1", "c\t3"));
}

TEST_F(StepBackTest, LeavesRowsThatWereAddedSinceBehindThoseThatComeBack)
{
    removing([&] { inputs.removeRows({3, 2}); });
    selecting([&] { inputs.AddItem("e\t5"); });
    steps.goBack();

    EXPECT_THAT(rowsOf(inputs), ElementsAre("a\t1", "b\t2", "c\t3", "d\t4", "e\t5"));
}

TEST_F(StepBackTest, LeavesANameThatIsThereAgainAsItIsAndCountsIt)
{
    removing([&] { inputs.removeRows({1, 2}); });
    selecting([&] { inputs.AddItem("b\t20"); });
    const StepBack::Result result = steps.goBack();

    EXPECT_THAT(rowsOf(inputs), ElementsAre("a\t1", "c\t3", "d\t4", "b\t20"));
    EXPECT_EQ(result.back, 1);
    EXPECT_EQ(result.alreadyThere, 1);
}

TEST_F(StepBackTest, KeepsValuesThatWereReadSinceInTheRowsThatStayed)
{
    removing([&] { inputs.removeRows({2, 1}); });
    inputs.setText(1, 1, "10");
    steps.goBack();

    EXPECT_THAT(rowsOf(inputs), ElementsAre("a\t10", "b\t2", "c\t3", "d\t4"));
}

TEST_F(StepBackTest, BringsOneOfTwoRowsOfOneNameBack)
{
    fill(inputs, {"f\t1", "f\t2"});
    removing([&] { inputs.removeRows({1, 1}); });
    steps.goBack();

    EXPECT_THAT(rowsOf(inputs), ElementsAre("f\t1", "f\t2"));
}

TEST_F(StepBackTest, IsThatOfTheLatestActionThatTookRowsAway)
{
    removing([&] { inputs.removeRows({1, 1}); });
    removing([&] { inputs.removeRows({1, 1}); });
    removing([] {});
    EXPECT_TRUE(steps.isThere());
    steps.goBack();

    EXPECT_THAT(rowsOf(inputs), ElementsAre("b\t2", "c\t3", "d\t4"));
    EXPECT_FALSE(steps.isThere());
}

TEST_F(StepBackTest, HasNothingOfARemovalThatWasRefused)
{
    fill(inputs, {"a\t1"});
    removing([&] { EXPECT_ANY_THROW(inputs.RemoveItem(1)); });

    EXPECT_FALSE(steps.isThere());
}

}  // namespace
}  // namespace form
