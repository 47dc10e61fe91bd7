#include "windows/Text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{

TEST(Text, SurvivesTheWayToWindowsAndBack)
{
    const std::string text = "Ø € \xF0\x9F\x9A\x80 plain";

    EXPECT_EQ(windows::fromWide(windows::toWide(text)), text);
}

TEST(Text, BecomesAReplacementCharacterWhereItIsMalformed)
{
    EXPECT_EQ(windows::fromWide(windows::toWide("a\xFF")), "a\xEF\xBF\xBD");
}

TEST(Text, DescribesAResultWithItsNumber)
{
    EXPECT_THAT(windows::describe(static_cast<HRESULT>(0x80020005)),
                testing::HasSubstr("0x80020005"));
}

}  // namespace
