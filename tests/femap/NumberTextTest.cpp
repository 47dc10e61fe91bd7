#include "fake/RandomSeed.h"
#include "femap/NumberText.h"

#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <string>
#include <string_view>

using femap::numberText;
using femap::realNumber;
using femap::signBlankText;
using femap::wholeNumber;

namespace
{

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

struct NumberRow
{
    double number;
    std::string_view text;
    std::string_view signBlank;
};

// clang-format off
constexpr NumberRow numberRows[] = {
    {0.0,                     "0",                       " 0"},
    {-0.0,                    "0",                       " 0"},
    {1.0,                     "1",                       " 1"},
    {-1.0,                    "-1",                      "-1"},
    {12.0,                    "12",                      " 12"},
    {100.0,                   "100",                     " 100"},
    {1.5,                     "1.5",                     " 1.5"},
    {-10.25,                  "-10.25",                  "-10.25"},
    {0.5,                     "0.5",                     " .5"},
    {-0.5,                    "-0.5",                    "-.5"},
    {0.1,                     "0.1",                     " .1"},
    {0.3,                     "0.3",                     " .3"},
    {0.1 + 0.2,               "0.30000000000000004",     " .30000000000000004"},
    {0.0001,                  "0.0001",                  " .0001"},
    {0.00012345,              "0.00012345",              " .00012345"},
    {0.00009999,              "9.999E-05",               " 9.999E-05"},
    {0.00001,                 "1E-05",                   " 1E-05"},
    {-0.00001,                "-1E-05",                  "-1E-05"},
    {0.000012345,             "1.2345E-05",              " 1.2345E-05"},
    {123456789012345.67,      "123456789012345.67",      " 123456789012345.67"},
    {1E14,                    "100000000000000",         " 100000000000000"},
    {999999999999999.0,       "999999999999999",         " 999999999999999"},
    {999999999999999.9,       "999999999999999.9",       " 999999999999999.9"},
    {1E15,                    "1E+15",                   " 1E+15"},
    {1234567890123456.0,      "1.234567890123456E+15",   " 1.234567890123456E+15"},
    {1.5E20,                  "1.5E+20",                 " 1.5E+20"},
    {-1.5E20,                 "-1.5E+20",                "-1.5E+20"},
    {1E100,                   "1E+100",                  " 1E+100"},
    {1E-100,                  "1E-100",                  " 1E-100"},
    {1.7976931348623157E308,  "1.7976931348623157E+308", " 1.7976931348623157E+308"},
    {2.2250738585072014E-308, "2.2250738585072014E-308", " 2.2250738585072014E-308"},
    {2.225073858507201E-308,  "2.225073858507201E-308",  " 2.225073858507201E-308"},
    {5E-324,                  "5E-324",                  " 5E-324"},
    {-5E-324,                 "-5E-324",                 "-5E-324"},
    {infinity,                "1.#INF",                  " 1.#INF"},
    {-infinity,               "-1.#INF",                 "-1.#INF"},
    {notANumber,              "1.#QNAN",                 " 1.#QNAN"},
    {-notANumber,             "1.#QNAN",                 " 1.#QNAN"},
};
// clang-format on

TEST(NumberText, UsesTheClassicLayoutOfTheShortestDigits)
{
    for (const NumberRow& row : numberRows)
        EXPECT_EQ(numberText(row.number), row.text);
}

TEST(SignBlankText, HasABlankForAPlusSignAndNoZeroBeforeThePoint)
{
    for (const NumberRow& row : numberRows)
        EXPECT_EQ(signBlankText(row.number), row.signBlank);
}

TEST(NumberText, ChangesToTheExponentFormExactlyAtTheBounds)
{
    EXPECT_EQ(numberText(std::nextafter(0.0001, 0.0)), "9.999999999999999E-05");
    EXPECT_EQ(numberText(std::nextafter(0.0001, 1.0)), "0.00010000000000000002");
    EXPECT_EQ(numberText(std::nextafter(1E15, 0.0)), "999999999999999.9");
    EXPECT_EQ(numberText(std::nextafter(1E15, 2E15)), "1.0000000000000001E+15");
}

TEST(NumberText, UsesTheShortestDigitsOfASingle)
{
    EXPECT_EQ(numberText(0.1F), "0.1");
    EXPECT_EQ(numberText(-0.25F), "-0.25");
    EXPECT_EQ(numberText(16777216.0F), "16777216");
    EXPECT_EQ(numberText(3.4028235E38F), "3.4028235E+38");
    EXPECT_EQ(numberText(1E-45F), "1E-45");
    EXPECT_EQ(numberText(0.0001F), "0.0001");
    EXPECT_EQ(numberText(1E-5F), "1E-05");
    EXPECT_EQ(numberText(-0.0F), "0");
    EXPECT_EQ(numberText(std::numeric_limits<float>::infinity()), "1.#INF");
    EXPECT_EQ(numberText(std::numeric_limits<float>::quiet_NaN()), "1.#QNAN");
    EXPECT_EQ(signBlankText(0.1F), " .1");
    EXPECT_EQ(signBlankText(-0.1F), "-.1");
}

TEST(NumberText, GivesWholeNumbersNoPoint)
{
    EXPECT_EQ(numberText(std::int64_t{0}), "0");
    EXPECT_EQ(numberText(std::int64_t{1'000'000'000'000'000'000}), "1000000000000000000");
    EXPECT_EQ(numberText(std::int64_t{-12}), "-12");
    EXPECT_EQ(signBlankText(std::int64_t{12}), " 12");
    EXPECT_EQ(signBlankText(std::int64_t{0}), " 0");
    EXPECT_EQ(signBlankText(std::int64_t{-12}), "-12");
}

template <class Real>
Real readBack(std::string_view text)
{
    Real number = 0;
    const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), number);
    EXPECT_TRUE(problem == std::errc() && end == text.data() + text.size()) << text;
    return number;
}

// Positional without a superfluous zero, or one digit before the point and an exponent of two
// digits or more.
bool hasClassicLayout(std::string_view text)
{
    if (text.starts_with('-'))
        text.remove_prefix(1);
    const std::size_t exponent = text.find('E');
    const std::string_view digits = text.substr(0, exponent);
    const std::size_t point = digits.find('.');
    const std::string_view whole = digits.substr(0, point);
    if (digits.find_first_not_of("0123456789.") != std::string_view::npos || whole.empty() ||
        (point != std::string_view::npos && (digits.ends_with('0') || digits.ends_with('.'))))
        return false;
    if (exponent == std::string_view::npos)
        return whole.size() <= 15 && (whole == "0" || !whole.starts_with('0'));
    const std::string_view power = text.substr(exponent + 1);
    return whole.size() == 1 && whole != "0" && power.size() >= 3 &&
           (power[0] == '+' || power[0] == '-') && (power.size() == 3 || power[1] != '0');
}

TEST(NumberText, ReadsBackToTheSameDoubleForAMillionRandomOnes)
{
    std::mt19937_64 random(fake::randomSeed());

    int different = 0;
    for (int i = 0; i < 1'000'000; ++i) {
        const double number = std::bit_cast<double>(random());
        if (!std::isfinite(number))
            continue;
        const std::string text = numberText(number);
        if (readBack<double>(text) == number && (i % 16 != 0 || hasClassicLayout(text)))
            continue;
        ++different;
        ADD_FAILURE() << text << " is not " << std::hexfloat << number;
        ASSERT_LT(different, 10);
    }

    EXPECT_EQ(different, 0);
}

TEST(NumberText, ReadsBackToTheSameNumberInTheRangeOfEverydayValues)
{
    std::mt19937_64 random(fake::randomSeed());
    std::uniform_real_distribution<double> exponents(-8, 18);

    for (int i = 0; i < 20'000; ++i) {
        const double number = std::pow(10.0, exponents(random)) * ((i & 1) == 0 ? 1 : -1);
        const auto single = static_cast<float>(number);

        ASSERT_EQ(readBack<double>(numberText(number)), number);
        ASSERT_EQ(readBack<float>(numberText(single)), single);
        ASSERT_TRUE(hasClassicLayout(numberText(number))) << numberText(number);
        ASSERT_TRUE(hasClassicLayout(numberText(single))) << numberText(single);
    }
}

TEST(WholeNumber, IsReadWithBlanksAroundIt)
{
    EXPECT_EQ(wholeNumber("12"), 12);
    EXPECT_EQ(wholeNumber(" 12"), 12);
    EXPECT_EQ(wholeNumber("  -7  "), -7);
    EXPECT_EQ(wholeNumber("+7"), 7);
    EXPECT_EQ(wholeNumber("007"), 7);
    EXPECT_EQ(wholeNumber("2147483647"), 2147483647);
    EXPECT_EQ(wholeNumber("-2147483648"), std::numeric_limits<int>::min());
}

TEST(WholeNumber, IsNothingForAnyOtherText)
{
    for (const std::string_view text :
         {"", " ", "x", "12x", "1 2", "1.5", "1E3", "+", "-", "+-5", "--5", "- 5", "\t12", "0x10",
          "2147483648", "-2147483649", "99999999999999999999"})
        EXPECT_EQ(wholeNumber(text), std::nullopt) << text;
}

TEST(RealNumber, IsReadInEveryFormThatRowsShow)
{
    EXPECT_EQ(realNumber("12"), 12);
    EXPECT_EQ(realNumber(" .5"), 0.5);
    EXPECT_EQ(realNumber("-.5 "), -0.5);
    EXPECT_EQ(realNumber("+7."), 7);
    EXPECT_EQ(realNumber(numberText(1.5E+20)), 1.5E+20);
    EXPECT_EQ(realNumber(signBlankText(1E-05)), 1E-05);
}

TEST(RealNumber, IsNothingForAnyOtherText)
{
    for (const std::string_view text : {"", " ", "x", "1.5x", "1 2", "1,5", "True", "X-Y Values",
                                        "inf", "nan", "1E999", "0x10", "+-5"})
        EXPECT_EQ(realNumber(text), std::nullopt) << text;
    EXPECT_EQ(realNumber(numberText(std::numeric_limits<double>::infinity())), std::nullopt);
}

}  // namespace
