#include "fake/FormFixture.h"
#include "fake/GridRows.h"
#include "fake/RandomSeed.h"
#include "form/FormProcedures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

using fake::fill;
using fake::FormFixture;
using form::ParameterGrid;
using sys::ErrorNumber;
using sys::RuntimeError;
using testing::ElementsAre;

namespace
{

const std::string rule(70, '-');

void select(ParameterGrid& grid, int row, int end)
{
    grid.Row = row;
    grid.RowSel = end;
}

TEST(ClearAll, LeavesEachGridWithTheHeaderAndOneBlankRow)
{
    FormFixture f;
    fill(f.form.InputsList, {"a\t1\tProp\t12\tpval\t0", "b\t2\tProp\t12\tpval\t1"});
    fill(f.form.OutputsList, {"c\t1\t12\t1\tOutput", "d\t2\t13\t1\tOutput"});

    ClearAll_Click(f.context);

    EXPECT_THAT(f.rows(f.form.InputsList), ElementsAre("\t\t\t\t\t"));
    EXPECT_EQ(f.form.OutputsList.Rows(), 2);
    EXPECT_EQ(f.form.OutputsList.text(0, 0), "Variable Name");
}

TEST(ClearAll, KeepsTheTypeTagOfTheBlankOutputRow)
{
    FormFixture f;
    fill(f.form.OutputsList, {"c\t1\t12\t1\tOutput", "d\t2\t13\t1\tmaxval"});

    ClearAll_Click(f.context);

    EXPECT_THAT(f.rows(f.form.OutputsList), ElementsAre("\t\t\t\tOutput"));
}

TEST(ClearAll, LogsItsStartAndEnd)
{
    FormFixture f;

    ClearAll_Click(f.context);

    EXPECT_THAT(f.log(), ElementsAre("DEBUG: Position at At start of ClearAll_Click",
                                     "DEBUG: Position at At end of ClearAll_Click"));
}

TEST(ClearInputSelection, RemovesTheSelectedInputRowsAndLogsEach)
{
    FormFixture f;
    fill(f.form.InputsList, {"a", "b", "c", "d"});
    fill(f.form.OutputsList, {"x", "y"});
    select(f.form.InputsList, 2, 3);

    ClearInputSelection_Click(f.context);

    EXPECT_THAT(f.names(f.form.InputsList), ElementsAre("a", "d"));
    EXPECT_THAT(f.names(f.form.OutputsList), ElementsAre("x", "y"));
    EXPECT_EQ(f.form.InputsList.Row, 2);
    EXPECT_EQ(f.form.InputsList.RowSel, 2);
    EXPECT_THAT(f.log(), ElementsAre("DEBUG: Position at At start of ClearInputSelection_Click",
                                     "DEBUG: Trying to delete entry: Name=b",
                                     "DEBUG: Trying to delete entry: Name=c",
                                     "DEBUG: Position at At end of ClearInputSelection_Click"));
}

TEST(ClearOutputSelection, RemovesTheSelectedOutputRowsAndLogsEach)
{
    FormFixture f;
    fill(f.form.InputsList, {"x", "y"});
    fill(f.form.OutputsList, {"a", "b", "c"});
    select(f.form.OutputsList, 1, 2);

    ClearOutputSelection_Click(f.context);

    EXPECT_THAT(f.names(f.form.OutputsList), ElementsAre("c"));
    EXPECT_THAT(f.names(f.form.InputsList), ElementsAre("x", "y"));
    EXPECT_THAT(f.log(), ElementsAre("DEBUG: Position at At start of ClearOutputSelection_Click",
                                     "DEBUG: Trying to delete entry: Name=a",
                                     "DEBUG: Trying to delete entry: Name=b",
                                     "DEBUG: Position at At end of ClearOutputSelection_Click"));
}

TEST(ClearInputSelection, RemovesTheSameRowsForASelectionMadeFromBottomToTop)
{
    FormFixture f;
    fill(f.form.InputsList, {"a", "b", "c", "d"});
    select(f.form.InputsList, 3, 2);

    ClearInputSelection_Click(f.context);

    EXPECT_THAT(f.names(f.form.InputsList), ElementsAre("a", "d"));
    EXPECT_EQ(f.form.InputsList.RowSel, f.form.InputsList.Row);
}

TEST(ClearInputSelection, RemovesAllRowsButTheLastAndReportsItsRefusal)
{
    FormFixture f;
    fill(f.form.InputsList, {"a", "b"});
    select(f.form.InputsList, 1, 2);

    ClearInputSelection_Click(f.context);

    EXPECT_THAT(f.names(f.form.InputsList), ElementsAre("b"));
    EXPECT_FALSE(f.context.error.isPending());
    EXPECT_THAT(f.log(),
                ElementsAre("DEBUG: Position at At start of ClearInputSelection_Click",
                            "DEBUG: Trying to delete entry: Name=a",
                            "DEBUG: Trying to delete entry: Name=b",
                            "ERROR: --------------------In DeleteSelection--------------------",
                            "DEBUG: Error occured In DeleteSelection", rule,
                            "The last parameter row cannot be removed", rule,
                            "ERROR: The last parameter row cannot be removed",
                            "DEBUG: Position at At end of ClearInputSelection_Click"));
}

TEST(DeleteSelection, StopsAndReportsWhereTheSelectionRunsPastTheEnd)
{
    FormFixture f;
    fill(f.form.InputsList, {"a", "b", "c"});

    DeleteSelection(f.context, f.form.InputsList, 3, 2);

    EXPECT_THAT(f.names(f.form.InputsList), ElementsAre("a", "b"));
    EXPECT_THAT(f.log(),
                ElementsAre("DEBUG: Trying to delete entry: Name=c",
                            "ERROR: --------------------In DeleteSelection--------------------",
                            "DEBUG: Error occured In DeleteSelection", rule,
                            "The grid has no row 3", rule, "ERROR: The grid has no row 3"));
}

TEST(DeleteSelection, RefusesTheHeader)
{
    FormFixture f;
    fill(f.form.InputsList, {"a", "b", "c"});

    DeleteSelection(f.context, f.form.InputsList, 0, 2);

    EXPECT_THAT(f.names(f.form.InputsList), ElementsAre("a", "b", "c"));
    EXPECT_FALSE(f.context.error.isPending());
}

TEST(DeleteSelection, LeavesAnEarlierErrorForItsOwnReport)
{
    FormFixture f;
    fill(f.form.InputsList, {"a", "b"});
    f.context.error.attempt([] { throw RuntimeError(ErrorNumber::ObjectFailed, "earlier"); });

    DeleteSelection(f.context, f.form.InputsList, 1, 1);

    EXPECT_EQ(f.context.error.description(), "earlier");
    EXPECT_THAT(f.log(), ElementsAre("DEBUG: Trying to delete entry: Name=a"));
}

// Row by row, as an engineer would say it.
std::vector<std::string> deleteOneByOne(std::vector<std::string>& names, int first, int count)
{
    std::vector<std::string> tried;
    for (int i = 0; i < count; ++i) {
        const int last = static_cast<int>(names.size());
        if (first > last)
            break;
        tried.push_back(names[static_cast<std::size_t>(first - 1)]);
        if (last == 1)
            break;
        names.erase(names.begin() + (first - 1));
    }
    return tried;
}

TEST(DeleteSelection, DoesWhatRemovingOneRowAfterTheOtherWouldDo)
{
    std::mt19937 random(fake::randomSeed());
    const auto below = [&](int bound) {
        return std::uniform_int_distribution<>(0, bound - 1)(random);
    };

    for (int round = 0; round < 500 && !HasFailure(); ++round) {
        FormFixture f;
        std::vector<std::string> expected;
        for (int i = 1 + below(6); i > 0; --i)
            expected.push_back("name" + std::to_string(i));
        fill(f.form.InputsList, expected);
        const int first = 1 + below(8);
        const int count = below(8);

        DeleteSelection(f.context, f.form.InputsList, first, count);

        std::vector<std::string> tried;
        const std::string start = "DEBUG: Trying to delete entry: Name=";
        for (const std::string& line : f.log())
            if (line.starts_with(start))
                tried.push_back(line.substr(start.size()));
        EXPECT_EQ(tried, deleteOneByOne(expected, first, count)) << first << " " << count;
        EXPECT_EQ(f.names(f.form.InputsList), expected) << first << " " << count;
    }
}

TEST(GridKeyDown, RemovesTheSelectedRowsForTheDeleteKey)
{
    FormFixture f;
    fill(f.form.InputsList, {"a", "b"});
    fill(f.form.OutputsList, {"c", "d"});
    select(f.form.InputsList, 2, 2);

    InputsList_KeyDown(f.context, 46);
    OutputsList_KeyDown(f.context, 46);

    EXPECT_THAT(f.names(f.form.InputsList), ElementsAre("a"));
    EXPECT_THAT(f.names(f.form.OutputsList), ElementsAre("d"));
    EXPECT_THAT(f.log(), ElementsAre("DEBUG: Position at At start of InputsList_KeyDown",
                                     "DEBUG: Position at At start of ClearInputSelection_Click",
                                     "DEBUG: Trying to delete entry: Name=b",
                                     "DEBUG: Position at At end of ClearInputSelection_Click",
                                     "DEBUG: Position at At end of InputsList_KeyDown",
                                     "DEBUG: Position at At start of OutputsList_KeyDown",
                                     "DEBUG: Position at At start of ClearOutputSelection_Click",
                                     "DEBUG: Trying to delete entry: Name=c",
                                     "DEBUG: Position at At end of ClearOutputSelection_Click",
                                     "DEBUG: Position at At end of OutputsList_KeyDown"));
}

TEST(GridKeyDown, IgnoresEveryOtherKey)
{
    FormFixture f;
    fill(f.form.InputsList, {"a", "b"});
    fill(f.form.OutputsList, {"c", "d"});

    for (int key = 0; key < 256; ++key)
        if (key != 46) {
            InputsList_KeyDown(f.context, key);
            OutputsList_KeyDown(f.context, key);
        }

    EXPECT_THAT(f.names(f.form.InputsList), ElementsAre("a", "b"));
    EXPECT_THAT(f.names(f.form.OutputsList), ElementsAre("c", "d"));
}

TEST(ScrollBars, MoveTheContentAgainstTheirValue)
{
    FormFixture f;
    f.form.HScroll1.Value = 250;
    f.form.VScroll1.Value = 2500;

    HScroll1_Change(f.context);
    VScroll1_Change(f.context);

    EXPECT_EQ(f.form.pbInner.Left, -250);
    EXPECT_EQ(f.form.pbInner.Top, -2500);
    EXPECT_THAT(f.log(), ElementsAre("DEBUG: Position at At start of HScroll1_Change",
                                     "DEBUG: Position at At End of HScroll1_Change",
                                     "DEBUG: Position at At Start of VScroll1_Change",
                                     "DEBUG: Position at At End of VScroll1_Change"));
}

class FormResize : public testing::Test
{
protected:
    FormResize()
    {
        f.form.VScroll1.Width = 255;
        f.form.HScroll1.Height = 240;
        f.form.pbInner.Width = 13000;
        f.form.pbInner.Height = 9000;
    }

    void resize(int width, int height)
    {
        f.form.ScaleWidth = width;
        f.form.ScaleHeight = height;
        Form_Resize(f.context);
    }

    FormFixture f;
};

TEST_F(FormResize, PutsTheBarsAtTheEdgesAndTheViewportIntoTheRest)
{
    resize(10255, 6240);

    const form::MainForm& form = f.form;
    EXPECT_EQ(form.VScroll1.Left, 10000);
    EXPECT_EQ(form.VScroll1.Top, 0);
    EXPECT_EQ(form.VScroll1.Width, 255);
    EXPECT_EQ(form.VScroll1.Height, 6000);
    EXPECT_EQ(form.HScroll1.Left, 0);
    EXPECT_EQ(form.HScroll1.Top, 6000);
    EXPECT_EQ(form.HScroll1.Width, 10000);
    EXPECT_EQ(form.HScroll1.Height, 240);
    EXPECT_EQ(form.pbOuter.Left, 0);
    EXPECT_EQ(form.pbOuter.Top, 0);
    EXPECT_EQ(form.pbOuter.Width, 10000);
    EXPECT_EQ(form.pbOuter.Height, 6000);
    EXPECT_THAT(f.log(),
                ElementsAre("DEBUG: Position at At start of Form_Resize", "DEBUG: Form resized",
                            "DEBUG: Position at At end of Form_Resize"));
}

TEST_F(FormResize, LetsTheBarsReachTheWholeContent)
{
    resize(10255, 6240);

    for (const form::ScrollBar* bar :
         std::initializer_list<const form::ScrollBar*>{&f.form.VScroll1, &f.form.HScroll1}) {
        EXPECT_TRUE(bar->Visible);
        EXPECT_EQ(bar->Max, 3000);
        EXPECT_EQ(bar->LargeChange, 2500);
        EXPECT_EQ(bar->SmallChange, 250);
    }
}

TEST_F(FormResize, HidesABarWhoseDirectionFits)
{
    resize(10255, 9240);
    const bool exactHeight = f.form.VScroll1.Visible;
    resize(13255, 9239);

    EXPECT_FALSE(exactHeight);
    EXPECT_TRUE(f.form.VScroll1.Visible);
    EXPECT_EQ(f.form.VScroll1.Max, 1);
    EXPECT_FALSE(f.form.HScroll1.Visible);
}

TEST_F(FormResize, ShowsAHiddenBarAgainWhenTheWindowShrinksBelowTheContent)
{
    resize(20000, 20000);
    const bool hidden = !f.form.VScroll1.Visible;
    resize(20000, 5240);

    EXPECT_TRUE(hidden);
    EXPECT_TRUE(f.form.VScroll1.Visible);
    EXPECT_EQ(f.form.VScroll1.Max, 4000);
    EXPECT_FALSE(f.form.HScroll1.Visible);
}

TEST_F(FormResize, DoesNothingInATinyOrMinimisedWindow)
{
    resize(10255, 6240);
    const std::size_t linesBefore = f.log().size();

    for (const auto& [width, height] : {std::pair(255, 6240), {10255, 240}, {0, 0}, {100, 100}}) {
        resize(width, height);

        EXPECT_EQ(f.form.pbOuter.Width, 10000);
        EXPECT_EQ(f.form.pbOuter.Height, 6000);
        EXPECT_EQ(f.form.VScroll1.Left, 10000);
        EXPECT_EQ(f.form.HScroll1.Top, 6000);
    }
    const std::vector<std::string> log = f.log();
    EXPECT_EQ(std::count(log.begin() + static_cast<std::ptrdiff_t>(linesBefore), log.end(),
                         "DEBUG: Form resized"),
              0);
}

TEST_F(FormResize, FitsTheSmallestWindowThatHasRoom)
{
    resize(256, 241);

    EXPECT_EQ(f.form.pbOuter.Width, 1);
    EXPECT_EQ(f.form.pbOuter.Height, 1);
    EXPECT_EQ(f.form.HScroll1.Max, 12999);
}

TEST_F(FormResize, KeepsTheContentInReachWhenTheViewportGrows)
{
    resize(10255, 6240);
    f.form.VScroll1.Value = 3000;
    f.form.HScroll1.Value = 3000;
    VScroll1_Change(f.context);
    HScroll1_Change(f.context);

    resize(12255, 20000);

    EXPECT_EQ(f.form.HScroll1.Value, 1000);
    EXPECT_EQ(f.form.pbInner.Left, -1000);
    EXPECT_EQ(f.form.VScroll1.Value, 0);
    EXPECT_EQ(f.form.pbInner.Top, 0);
}

}  // namespace
