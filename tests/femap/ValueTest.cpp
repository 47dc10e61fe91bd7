#include "femap/Value.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <optional>
#include <string>

using femap::firstCharacters;
using femap::realOf;
using femap::toText;
using femap::Value;
using femap::withoutControlCharacters;

namespace
{

TEST(ToText, GivesEmptyTextForNothing)
{
    EXPECT_EQ(toText(Value()), "");
}

TEST(ToText, SpellsBooleansOut)
{
    EXPECT_EQ(toText(Value(true)), "True");
    EXPECT_EQ(toText(Value(false)), "False");
}

TEST(ToText, GivesWholeNumbersNoPoint)
{
    EXPECT_EQ(toText(Value(std::int64_t{12})), "12");
    EXPECT_EQ(toText(Value(std::int64_t{-7})), "-7");
    EXPECT_EQ(toText(Value(std::numeric_limits<std::int64_t>::min())), "-9223372036854775808");
}

TEST(ToText, UsesTheShortestDigitsOfTheNumbersOwnPrecision)
{
    EXPECT_EQ(toText(Value(0.1)), "0.1");
    EXPECT_EQ(toText(Value(0.1F)), "0.1");
    EXPECT_EQ(toText(Value(static_cast<double>(0.1F))), "0.10000000149011612");
}

TEST(ToText, KeepsTextButForControlCharacters)
{
    EXPECT_EQ(toText(Value(std::string("Träger Ø12"))), "Träger Ø12");
    EXPECT_EQ(toText(Value(std::string("a\tb"))), "a b");
}

TEST(RealOf, IsTheFiniteNumberThatAValueIsOrShows)
{
    EXPECT_EQ(realOf(Value(std::int64_t{-7})), -7.0);
    EXPECT_EQ(realOf(Value(0.1)), 0.1);
    EXPECT_EQ(realOf(Value(0.5F)), 0.5);
    EXPECT_EQ(realOf(Value(std::string(" 1E-3 "))), 0.001);
}

TEST(RealOf, IsNothingForWhatIsNoNumber)
{
    for (const Value& value : {Value(), Value(true), Value(std::string("wide")),
                               Value(std::string()), Value(std::numeric_limits<double>::infinity()),
                               Value(std::numeric_limits<float>::quiet_NaN())})
        EXPECT_EQ(realOf(value), std::nullopt) << toText(value);
}

TEST(WithoutControlCharacters, MakesEachOfThemOneBlank)
{
    for (int code = 0; code < 128; ++code) {
        const char c = static_cast<char>(code);
        const bool isControl = code < 32 || code == 127;

        EXPECT_EQ(withoutControlCharacters(std::string{'a', c, c, 'b'}),
                  isControl ? "a  b" : (std::string{'a', c, c, 'b'}))
            << code;
    }
}

TEST(WithoutControlCharacters, LeavesCharactersOutsideAsciiAlone)
{
    EXPECT_EQ(withoutControlCharacters("Träger Ø12 梁 €"), "Träger Ø12 梁 €");
    EXPECT_EQ(withoutControlCharacters(""), "");
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

}  // namespace
