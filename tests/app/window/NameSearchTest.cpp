#include "GridWindowFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

using driver::GridWindow;
using testing::ElementsAre;

namespace
{

TEST_F(GridWindow, TextAnywhereInANameIsFoundFromTheCurrentRowOnAndRound)
{
    fill({"AreaAtProp1", "ExAtMatl1", "NuAtMatl1", "exAtMatl2"});
    const auto goTo = [&](const char* text, bool further) {
        return view->find(text, further) ? marked() : std::vector<int>{};
    };

    EXPECT_THAT(goTo("prop", true), ElementsAre(0)) << "none is selected, so the first one counts";
    EXPECT_THAT(goTo("EXAT", false), ElementsAre(1));
    EXPECT_THAT(goTo("EXAT", false), ElementsAre(1));
    EXPECT_THAT(goTo("EXAT", true), ElementsAre(3));
    EXPECT_THAT(goTo("EXAT", true), ElementsAre(1)) << "round";
    EXPECT_EQ(grid.Row, 2);
    EXPECT_EQ(grid.RowSel, 2);
}

TEST_F(GridWindow, ASearchWithoutAHitLeavesTheSelection)
{
    fill({"AreaAtProp1", "ExAtMatl1", "NuAtMatl1"});
    click(1);
    press(VK_DOWN, true);

    EXPECT_FALSE(view->find("xyz", false));
    EXPECT_FALSE(view->find("", false));
    EXPECT_FALSE(view->find("AreaAtProp12", true));

    EXPECT_THAT(marked(), ElementsAre(1, 2));
}

TEST_F(GridWindow, ASearchKnowsCapitalsBeyondAscii)
{
    fill({"Alpha", "Tr\xC3\xA4ger \xC3\x98", "\xC3\xA4hre"});

    EXPECT_TRUE(view->find("\xC3\x84GER \xC3\xB8", false));
    EXPECT_THAT(marked(), ElementsAre(1));
    EXPECT_TRUE(view->find("\xC3\x84", true));
    EXPECT_THAT(marked(), ElementsAre(2));
    EXPECT_TRUE(view->find("LPH", true));
    EXPECT_THAT(marked(), ElementsAre(0));
}

TEST_F(GridWindow, AmongManyNamesTheFoundOneComesIntoSight)
{
    constexpr int rows = 1000000;
    for (int row = 0; row < rows; ++row)
        grid.AddItem("Ex" + std::to_string(row) + "\t1");
    view->update();

    const ULONGLONG before = GetTickCount64();
    EXPECT_TRUE(view->find("x999998", false));
    EXPECT_FALSE(view->find("nothing has this", true));
    const ULONGLONG taken = GetTickCount64() - before;

    EXPECT_EQ(grid.Row, rows);
    const int top = ListView_GetTopIndex(list());
    EXPECT_GT(top + ListView_GetCountPerPage(list()), rows - 2);
    EXPECT_LT(taken, 5000U);
}

}  // namespace
