#include "system/CodePage.h"

#include <gtest/gtest.h>

#include <string>

using sys::windows1252;

namespace
{

struct Encoded
{
    std::string bytes;
    bool complete;
};

Encoded encode(const std::string& text)
{
    Encoded result;
    result.complete = windows1252().encode(text, result.bytes);
    return result;
}

TEST(Utf8, KeepsEveryCharacter)
{
    std::string bytes = "a";
    EXPECT_TRUE(sys::utf8().encode("b\u00e4\u20ac\U0001F600c", bytes));
    EXPECT_EQ(bytes, "ab\u00e4\u20ac\U0001F600c");
    EXPECT_EQ(sys::utf8().decode(bytes), bytes);
}

TEST(Utf8, IsAppendedCharacterByCharacter)
{
    std::string text;
    for (const char32_t character : {U'a', U'\u007f', U'\u0080', U'\u07ff', U'\u0800', U'\uffff',
                                     U'\U00010000', U'\U0010FFFF'})
        sys::appendUtf8(character, text);

    EXPECT_EQ(text, "a\u007f\u0080\u07ff\u0800\uffff\U00010000\U0010FFFF");
}

TEST(Windows1252, KeepsAllBytesOnTheWayToTextAndBack)
{
    std::string all;
    for (int byte = 0; byte < 256; ++byte)
        all += static_cast<char>(byte);

    const Encoded back = encode(windows1252().decode(all));

    EXPECT_EQ(back.bytes, all);
    EXPECT_TRUE(back.complete);
}

TEST(Windows1252, HasItsOwnCharactersFrom80To9F)
{
    const std::string bytes =
        "\x80\x81\x82\x83\x84\x85\x86\x87\x88\x89\x8A\x8B\x8C\x8D\x8E\x8F"
        "\x90\x91\x92\x93\x94\x95\x96\x97\x98\x99\x9A\x9B\x9C\x9D\x9E\x9F";
    const std::string text =
        "€\xC2\x81‚ƒ„…†‡ˆ‰Š‹Œ\xC2\x8DŽ\xC2\x8F"
        "\xC2\x90‘’“”•–—˜™š›œ\xC2\x9DžŸ";

    EXPECT_EQ(windows1252().decode(bytes), text);
    EXPECT_EQ(encode(text).bytes, bytes);
}

TEST(Windows1252, HasTheLatinCharactersFromA0ToFF)
{
    EXPECT_EQ(windows1252().decode("\xA0\xB5\xC4\xD8\xDF\xE4\xF6\xFC\xFF"), "\xC2\xA0µÄØßäöüÿ");
}

TEST(Windows1252, KeepsATitleWithUmlautsUnchanged)
{
    const Encoded encoded = encode("Träger Ø12");

    EXPECT_EQ(encoded.bytes,
              "Tr\xE4ger \xD8"
              "12");
    EXPECT_TRUE(encoded.complete);
    EXPECT_EQ(windows1252().decode(encoded.bytes), "Träger Ø12");
}

TEST(Windows1252, AppendsToTheBytesThatAreThere)
{
    std::string bytes = "before ";

    windows1252().encode("ä", bytes);
    windows1252().encode("", bytes);

    EXPECT_EQ(bytes, "before \xE4");
}

TEST(Windows1252, WritesOneQuestionMarkForEachCharacterThatItLacks)
{
    for (const std::string lacking : {"σ", "Ж", "梁", "\xF0\x9F\x94\xA9", "\xCC\x81", "\xC2\x80",
                                      "\xEF\xBB\xBF", "\xF4\x8F\xBF\xBF"}) {
        const Encoded encoded = encode("a" + lacking + "ä");

        EXPECT_EQ(encoded.bytes, "a?\xE4") << lacking;
        EXPECT_FALSE(encoded.complete) << lacking;
    }
}

TEST(Windows1252, GuessesNoSimilarCharacter)
{
    EXPECT_EQ(encode("ａ∞ā").bytes, "???");
}

struct MalformedText
{
    std::string what;
    std::string text;
    std::size_t questionMarks;
    std::string rest;
};

class MalformedUtf8 : public testing::TestWithParam<MalformedText>
{};

TEST_P(MalformedUtf8, BecomesOneQuestionMarkAByte)
{
    const Encoded encoded = encode("[" + GetParam().text);

    EXPECT_EQ(encoded.bytes, "[" + std::string(GetParam().questionMarks, '?') + GetParam().rest);
    EXPECT_FALSE(encoded.complete);
    std::string inUtf8;
    EXPECT_FALSE(sys::utf8().encode("[" + GetParam().text, inUtf8));
    EXPECT_EQ(inUtf8, encoded.bytes);
}

// clang-format off
const MalformedText malformedTexts[] = {
    {"LoneContinuation",        "\x80]",                 1, "]"},
    {"NeverALead",              "\xFF\xFE]",             2, "]"},
    {"LeadOfFiveBytes",         "\xF8\x88\x80\x80\x80]", 5, "]"},
    {"LeadAtTheEnd",            "\xC3",                  1, ""},
    {"ThreeBytesCutAfterTwo",   "\xE2\x82",              2, ""},
    {"FourBytesCutAfterThree",  "\xF0\x9F\x94",          3, ""},
    {"LeadWithoutContinuation", "\xC3(]",                1, "(]"},
    {"BrokenInTheThirdByte",    "\xE2\x82(]",            2, "(]"},
    {"OverlongTwo",             "\xC0\xAF]",             2, "]"},
    {"OverlongThree",           "\xE0\x80\xAF]",         3, "]"},
    {"OverlongFour",            "\xF0\x80\x80\xAF]",     4, "]"},
    {"FirstSurrogate",          "\xED\xA0\x80]",         3, "]"},
    {"LastSurrogate",           "\xED\xBF\xBF]",         3, "]"},
    {"BeyondUnicode",           "\xF4\x90\x80\x80]",     4, "]"},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Windows1252, MalformedUtf8, testing::ValuesIn(malformedTexts),
                         [](const auto& row) { return row.param.what; });

}  // namespace
