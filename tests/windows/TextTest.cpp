#include "windows/Text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

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

// What a text becomes in a page, and whether that is all of it.
struct Written
{
    std::string bytes;
    bool isWhole;

    bool operator==(const Written&) const = default;
};

Written writtenIn(UINT page, const std::string& text)
{
    Written result{"before ", false};
    result.isWhole = windows::appendAnsi(text, result.bytes, page);
    result.bytes.erase(0, 7);
    return result;
}

constexpr UINT western = 1252;
constexpr UINT japanese = 932;
constexpr UINT noPage = 12345;

TEST(TextInACodePage, HasAQuestionMarkForWhatThePageLacks)
{
    EXPECT_EQ(writtenIn(western, "Träger Ø"), (Written{"Tr\xE4ger \xD8", true}));
    EXPECT_EQ(writtenIn(western, "a\u6881z"), (Written{"a?z", false}));
    EXPECT_EQ(writtenIn(western, "a\xFFz"), (Written{"a?z", false}));
    EXPECT_EQ(writtenIn(western, "\u2122\u0100"), (Written{"\x99?", false}))
        << "no letter that only looks alike";
    EXPECT_EQ(writtenIn(western, ""), (Written{"", true}));
}

TEST(TextInACodePage, IsWholeInAPageOfOneAndTwoBytes)
{
    const std::string beam = "\u6881";
    std::string thousand;
    std::string thousandBytes;
    for (int i = 0; i < 1000; ++i) {
        thousand += beam + "\u00F8x";
        thousandBytes += "\x97\xC0?x";
    }

    EXPECT_EQ(writtenIn(japanese, "a" + beam + "z"), (Written{"a\x97\xC0z", true}));
    EXPECT_EQ(writtenIn(japanese, thousand), (Written{thousandBytes, false}));
}

TEST(TextInACodePage, IsAsItWasInAPageThatHasEverything)
{
    const std::string text = "Träger \u6881 \xF0\x9F\x9A\x80";

    EXPECT_EQ(writtenIn(CP_UTF8, text), (Written{text, true}));
    EXPECT_EQ(writtenIn(CP_UTF8, "a\xFFz"), (Written{"a\xEF\xBF\xBDz", false}));
    EXPECT_EQ(windows::fromAnsi(text, CP_UTF8), text);
}

TEST(TextInACodePage, ComesBackFromIt)
{
    EXPECT_EQ(windows::fromAnsi("Tr\xE4ger", western), "Träger");
    EXPECT_EQ(windows::fromAnsi("a\x97\xC0z", japanese), "a\u6881z");
    EXPECT_EQ(windows::fromAnsi("", japanese), "");
    EXPECT_EQ(windows::fromAnsi("plain"), "plain");
}

TEST(TextInACodePage, IsRefusedByAPageThatWindowsLacksAndNothingIsAppended)
{
    std::string bytes = "before";

    EXPECT_THROW(windows::appendAnsi("text", bytes, noPage), std::runtime_error);
    EXPECT_THROW(windows::fromAnsi("text", noPage), std::runtime_error);

    EXPECT_EQ(bytes, "before");
    EXPECT_EQ(writtenIn(noPage, ""), (Written{"", true}));
}

}  // namespace
