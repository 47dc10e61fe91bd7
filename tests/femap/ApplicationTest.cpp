#include "femap/Application.h"

#include <gtest/gtest.h>

#include <string>

using femap::cutToMessage;

namespace
{

TEST(CutToMessage, LeavesATextThatFitsAsItIs)
{
    const std::string longest(159, 'x');

    EXPECT_EQ(cutToMessage(""), "");
    EXPECT_EQ(cutToMessage("Written: 100 %"), "Written: 100 %");
    EXPECT_EQ(cutToMessage(longest), longest);
}

TEST(CutToMessage, CutsALongerTextToTheLongestThatFemapTakes)
{
    EXPECT_EQ(cutToMessage(std::string(160, 'x')), std::string(159, 'x'));
    EXPECT_EQ(cutToMessage(std::string(40'000, 'x')), std::string(159, 'x'));
}

TEST(CutToMessage, CountsCharactersAndNeverCutsInsideOne)
{
    std::string text;
    std::string cut;
    for (int i = 0; i < 200; ++i) {
        text += "梁";
        cut += i < 159 ? "梁" : "";
    }

    EXPECT_EQ(cutToMessage(text), cut);
}

}  // namespace
