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

TEST(FirstCharacters, CutAfterSoManyCharacters)
{
    EXPECT_EQ(firstCharacters("abcdef", 4), "abcd");
    EXPECT_EQ(firstCharacters("abcd", 4), "abcd");
    EXPECT_EQ(firstCharacters("abc", 4), "abc");
    EXPECT_EQ(firstCharacters("abc", 0), "");
    EXPECT_EQ(firstCharacters("", 4), "");
}

TEST(FirstCharacters, NeverSplitACharacter)
{
    EXPECT_EQ(firstCharacters("Träger Ø12", 3), "Trä");
    EXPECT_EQ(firstCharacters("Träger Ø12", 8), "Träger Ø");
    EXPECT_EQ(firstCharacters("€uro", 1), "€");
    EXPECT_EQ(firstCharacters("😀😀", 1), "😀");
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
