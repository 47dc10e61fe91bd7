#include "selection/ParameterRows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace selection
{
namespace
{

TEST(Without, RemovesEveryOneOfTheCharacters)
{
    EXPECT_EQ(without(" a-b/c d--", " -/"), "abcd");
    EXPECT_EQ(without("abc", " -/"), "abc");
    EXPECT_EQ(without(" - ", " -/"), "");
}

TEST(RemoveBlankFirstRow, RemovesTheRowOfAnEmptyGridOnceThereAreOthers)
{
    form::ParameterGrid grid(5);
    grid.AddItem("a\t1");

    EXPECT_TRUE(removeBlankFirstRow(grid));

    EXPECT_EQ(grid.Rows(), 2);
    EXPECT_EQ(grid.text(1, 0), "a");
}

TEST(RemoveBlankFirstRow, KeepsTheOnlyRow)
{
    form::ParameterGrid grid(5);

    EXPECT_FALSE(removeBlankFirstRow(grid));

    EXPECT_EQ(grid.Rows(), 2);
}

TEST(RemoveBlankFirstRow, KeepsAFirstRowWithAName)
{
    form::ParameterGrid grid(5);
    grid.setText(1, 0, "a");
    grid.AddItem("\t2");

    EXPECT_FALSE(removeBlankFirstRow(grid));

    EXPECT_EQ(grid.Rows(), 3);
}

}  // namespace
}  // namespace selection
