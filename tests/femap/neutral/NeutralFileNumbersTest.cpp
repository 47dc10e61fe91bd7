#include "femap/neutral/NeutralLines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <random>

using femap::neutral::Fields;
using femap::neutral::FormatError;

namespace
{

double realOf(const std::string& text)
{
    return Fields(text).real();
}

std::string problemOf(const std::string& text, void (*read)(Fields&))
{
    Fields fields(text);
    try {
        read(fields);
    }
    catch (const FormatError& error) {
        return error.what();
    }
    return {};
}

std::string realProblem(const std::string& text)
{
    return problemOf(text, [](Fields& fields) { fields.real(); });
}

std::string integerProblem(const std::string& text)
{
    return problemOf(text, [](Fields& fields) { fields.integer(); });
}

double libraryValue(const std::string& text)
{
    double value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

}  // namespace

class NeutralReal : public testing::TestWithParam<std::pair<const char*, double>>
{};

TEST_P(NeutralReal, IsRead)
{
    EXPECT_EQ(realOf(GetParam().first), GetParam().second);
}

INSTANTIATE_TEST_SUITE_P(
    NeutralFile, NeutralReal,
    testing::Values(std::pair("0.", 0.0), std::pair("5", 5.0), std::pair(".5", 0.5),
                    std::pair("-12.25", -12.25), std::pair("+3.", 3.0), std::pair("+1E+300", 1e300),
                    std::pair("9.9900002E+30", 9.9900002E+30), std::pair("1e3", 1000.0),
                    std::pair("1.0000000000000001D-01", 0.1), std::pair("2.5d+02", 250.0),
                    std::pair("-1.D300", -1e300), std::pair("0.0000000111642", 1.11642e-8),
                    std::pair("9007199254740993.", 9007199254740992.0), std::pair("1E23", 1e23),
                    std::pair("+1.5", 1.5), std::pair("1D3", 1000.0), std::pair("1d-3", 0.001),
                    std::pair("1.", 1.0), std::pair(" \t 1.5 ", 1.5), std::pair("0., ", 0.0),
                    std::pair("0.25,", 0.25), std::pair("1E-400", 0.0),
                    std::pair("0E99999999999", 0.0), std::pair("5E-324", 5e-324),
                    std::pair("1.7976931348623157E308", 1.7976931348623157e308),
                    std::pair("1E-99999999999999999999", 0.0),
                    std::pair("123456789012345678901234567890", 123456789012345678901234567890.0)));

TEST(NeutralNumbers, ZeroKeepsItsSign)
{
    EXPECT_TRUE(std::signbit(realOf("-0.")));
    EXPECT_TRUE(std::signbit(realOf("-1E-400")));
    EXPECT_TRUE(std::signbit(realOf("-1D-400")));
    EXPECT_FALSE(std::signbit(realOf("+1E-400")));
    EXPECT_FALSE(std::signbit(realOf("0.")));
}

TEST(NeutralNumbers, RealsMayBeLongerThanAnyUsualNumber)
{
    EXPECT_EQ(realOf("1" + std::string(200, '0')), 1e200);
    EXPECT_EQ(realOf("0." + std::string(400, '0') + "1"), 0);
    EXPECT_EQ(realOf("0." + std::string(100, '0') + "25D0"), 0.25e-100);
    EXPECT_EQ(realProblem("1" + std::string(400, '0')), "a number is too large");
}

TEST(NeutralNumbers, DigitsAndExponentTogetherTellWhetherARealIsTooLarge)
{
    const std::string zeros(400, '0');

    EXPECT_EQ(realOf("0." + zeros + "1E400"), 0.1);
    EXPECT_EQ(realOf("1" + zeros + "E-400"), 1);
    for (const std::string text : {"1E400", "-1E400", "+1D+400", "1E309", "0.1D310"})
        EXPECT_EQ(realProblem(text), "a number is too large") << text;
    for (const std::string& text : {"0." + zeros + "1E800", "1" + zeros + "E-9", "1" + zeros + "."})
        EXPECT_EQ(realProblem(text), "a number is too large") << text;
    for (const std::string& text :
         {"1" + zeros + "E-800", "0." + zeros + "1E9", "." + zeros + "1", "1E-" + zeros + "999"})
        EXPECT_EQ(realOf(text), 0) << text;
    EXPECT_EQ(realOf("0.1E-" + std::string(400, '9')), 0);
    EXPECT_EQ(realProblem("0.1E" + std::string(400, '9')), "a number is too large");
}

TEST(NeutralNumbers, ARealThatIsNoneIsRefused)
{
    for (const std::string text :
         {"x",     ".",       "-",     "+",    "+-1",  "-+1",    "++1", "-inf",
          "1D3E5", "1E",      "1E+",   "1D-,", "--1",  "1.2.3",  "1x",  "inf",
          "nan",   "1.#QNAN", "1_000", "0x10", "\xE4", "1.5e3e3"})
        EXPECT_EQ(realProblem(text), "field 1 is not a number") << text;
    EXPECT_EQ(realProblem(""), "field 1 is missing");
    EXPECT_EQ(realProblem(","), "field 1 is not a number");
    EXPECT_EQ(realProblem("1E+999"), "a number is too large");
    EXPECT_EQ(realProblem("-1E99999999999999999999"), "a number is too large");
}

TEST(NeutralNumbers, RealsAreTheNearestDoublesToTheirDigits)
{
    std::mt19937_64 random(1);
    std::uniform_int_distribution<int> digits(1, 19);
    std::uniform_int_distribution<int> exponents(-30, 30);
    std::uniform_int_distribution<std::uint64_t> mantissas;
    for (int i = 0; i < 200'000; ++i) {
        std::string text =
            std::to_string(mantissas(random)).substr(0, static_cast<std::size_t>(digits(random)));
        text.insert(text.size() * static_cast<std::size_t>(i % 5) / 4, ".");
        if (i % 3 == 0)
            text += "E" + std::to_string(exponents(random));
        ASSERT_EQ(realOf(text), libraryValue(text)) << text;
    }
}

TEST(NeutralNumbers, EveryDoubleWithAllItsDigitsReadsBackTheSame)
{
    std::mt19937_64 random(2);
    for (int i = 0; i < 200'000; ++i) {
        const std::uint64_t bits = random();
        double value = 0;
        std::memcpy(&value, &bits, sizeof value);
        if (!std::isfinite(value))
            continue;
        std::array<char, 40> text{};
        const auto end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
        ASSERT_EQ(realOf(std::string(text.data(), end)), value);
    }
}

TEST(NeutralNumbers, AWholeNumberFitsThirtyTwoBits)
{
    EXPECT_EQ(Fields("2147483647").integer(), 2147483647);
    EXPECT_EQ(Fields("-2147483647,").integer(), -2147483647);
    EXPECT_EQ(Fields("+12 ").integer(), 12);
    EXPECT_EQ(Fields("00000000000000000012").integer(), 12);
    for (const std::string text :
         {"2147483648", "-2147483648", "99999999999999999999999", "-", "1.", "1E2", "1a", "- 1"})
        EXPECT_EQ(integerProblem(text), "field 1 is not a whole number") << text;
}

TEST(NeutralNumbers, FieldsAreSeparatedByCommasOrBlanks)
{
    Fields fields("  1 ,2,  3\t4 , 5 ,\r");

    EXPECT_EQ(fields.count(), 5);
    EXPECT_EQ(fields.integer(), 1);
    EXPECT_EQ(fields.integer(), 2);
    EXPECT_EQ(fields.real(), 3);
    EXPECT_EQ(fields.integer(), 4);
    EXPECT_EQ(fields.count(), 1);
    EXPECT_EQ(fields.integerOr(9), 5);
    EXPECT_TRUE(fields.atEnd());
    EXPECT_EQ(fields.integerOr(9), 9);
    EXPECT_EQ(fields.realOr(0.5), 0.5);
}

TEST(NeutralNumbers, AnEmptyFieldBetweenCommasIsNoNumber)
{
    Fields fields("1,,3,,");

    EXPECT_EQ(fields.count(), 4);
    EXPECT_EQ(fields.integer(), 1);
    EXPECT_THROW(fields.integer(), FormatError);
}
