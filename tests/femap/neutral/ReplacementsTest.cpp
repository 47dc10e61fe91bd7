#include "femap/neutral/Replacements.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

using femap::neutral::Replacements;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

std::vector<std::string> piecesOf(const Replacements& replacements)
{
    std::vector<std::string> pieces;
    replacements.write([&](std::string_view piece) { pieces.emplace_back(piece); });
    return pieces;
}

}  // namespace

TEST(Replacements, KeepWhatStandsAroundThem)
{
    const std::string_view text = "one two three";
    Replacements replacements(text);

    replacements.replace(text.substr(8), "3");
    replacements.replace(text.substr(0, 3), "a first");

    EXPECT_THAT(piecesOf(replacements), ElementsAre("a first two 3"));
}

TEST(Replacements, OfAnEmptyTextWriteNothing)
{
    EXPECT_THAT(piecesOf(Replacements("")), IsEmpty());
}

TEST(Replacements, GatherSmallPiecesAndHandLargeOnesOnInOne)
{
    const std::string large(1'000'000, 'x');
    const std::string text = "1,2," + large + ",3,4";
    Replacements replacements(text);

    replacements.replace(std::string_view(text).substr(2, 1), "two");
    replacements.replace(std::string_view(text).substr(text.size() - 1), "four");

    EXPECT_THAT(piecesOf(replacements), ElementsAre("1,two", ',' + large + ",3,", "four"));
}

TEST(Replacements, TellOfLinesThatGrowBeyondALength)
{
    const std::string_view text = "12345\r\nx\n12345\n1234";
    Replacements replacements(text);
    replacements.replace(text.substr(0, 1), "ab");
    replacements.replace(text.substr(1, 1), "");
    replacements.replace(text.substr(9, 1), "ab");
    replacements.replace(text.substr(15, 1), "ab");

    EXPECT_THAT(replacements.linesLongerThan(5), ElementsAre(text.data() + 9));
    EXPECT_THAT(replacements.linesLongerThan(4),
                ElementsAre(text.data(), text.data() + 9, text.data() + 15));
}
