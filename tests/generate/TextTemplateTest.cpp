#include "generate/TextTemplate.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace generate
{

TEST(WordBehind, IsThatOfTheLine)
{
    EXPECT_EQ(wordBehind("low: 0.01  high:   5.0 x\n", "low:"), "0.01");
    EXPECT_EQ(wordBehind("low: 0.01  high:   5.0\nx", "high:"), "5.0");
}

TEST(FillIn, KeepsTextWithoutSlotsAsItIs)
{
    EXPECT_EQ(fillIn("one\n\n    two\n", {}), "one\n\n    two\n");
}

TEST(FillIn, DropsOnlyTheLineFeedThatFollowsTheOpeningOfALiteral)
{
    EXPECT_EQ(fillIn("\n\none\n", {}), "\none\n");
}

TEST(FillIn, EndsALastLineThatHasNoEnd)
{
    EXPECT_EQ(fillIn("one\ntwo", {}), "one\ntwo\n");
}

TEST(FillIn, MakesNothingOfNothing)
{
    EXPECT_EQ(fillIn("", {}), "");
}

TEST(FillIn, PutsAValueIntoItsPlace)
{
    EXPECT_EQ(fillIn("del @model@.Log\n", {{"model", {"beam"}}}), "del beam.Log\n");
}

TEST(FillIn, RemovesTheLineOfASlotThatStandsForNothing)
{
    EXPECT_EQ(fillIn("a\n    @none@\nb\n", {{"none", {}}}), "a\nb\n");
}

TEST(FillIn, LeavesTheIndentForAnEmptyText)
{
    EXPECT_EQ(fillIn("    @empty@\n", {{"empty", {""}}}), "    \n");
}

TEST(FillIn, RepeatsTheLineWithItsIndentForSeveralLines)
{
    EXPECT_EQ(fillIn("  set x(@i@) 1\n", {{"i", {"1", "2"}}}), "  set x(1) 1\n  set x(2) 1\n");
}

TEST(FillIn, TakesSeveralSlotsInALine)
{
    EXPECT_EQ(fillIn("@a@-@b@@c@\n", {{"a", {"1"}}, {"b", {"2", "3"}}, {"c", {"!"}}}),
              "1-2!\n1-3!\n");
}

TEST(FillIn, NeverLooksAtWhatItFilledIn)
{
    EXPECT_EQ(fillIn("@a@ @b@\n", {{"a", {"@b@"}}, {"b", {"@"}}}), "@b@ @\n");
}

TEST(FillIn, TakesLinesThatAreMadeOneByOne)
{
    const Lines squares([](const LineSink& add) {
        for (int i = 1; i <= 3; ++i)
            add(std::to_string(i * i));
    });

    EXPECT_EQ(fillIn("<@square@>\n", {{"square", squares}}), "<1>\n<4>\n<9>\n");
}

TEST(FillIn, ThrowsForASlotThatIsNotGiven)
{
    EXPECT_THROW(fillIn("@model@\n", {{"mode", {"x"}}}), std::logic_error);
    EXPECT_THROW(fillIn("@none@ @model@\n", {{"none", {}}}), std::logic_error);
}

TEST(FillIn, ThrowsForASlotWithoutAnEnd)
{
    EXPECT_THROW(fillIn("user@host\n", {}), std::logic_error);
}

}  // namespace generate
