#include "fake/RandomSeed.h"
#include "femap/NumberText.h"
#include "property/Generators.h"

#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <cmath>
#include <limits>
#include <locale>

namespace reliability
{

namespace
{

double readBack(std::string_view text)
{
    if (text.starts_with(' '))
        text.remove_prefix(1);
    double number = std::numeric_limits<double>::quiet_NaN();
    const auto end = std::from_chars(text.data(), text.data() + text.size(), number).ptr;
    return end == text.data() + text.size() ? number : std::numeric_limits<double>::quiet_NaN();
}

std::vector<double> oddNumbers()
{
    using limits = std::numeric_limits<double>;
    std::vector<double> numbers = {
        0.0,  -0.0, limits::denorm_min(), limits::min(), limits::max(), limits::epsilon(), 0.1,
        1e15, 1e22, 123456789012345.67};
    for (std::size_t i = numbers.size(); i-- > 0;)
        numbers.push_back(-numbers[i]);
    return numbers;
}

class CommaAndGroups : public std::numpunct<char>
{
protected:
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

}  // namespace

TEST(EveryDoubleOfAMillion, ReadsBackToTheSameDouble)
{
    constexpr std::uint64_t withoutExponent = 0x800F'FFFF'FFFF'FFFF;
    property::Random random(fake::randomSeed());
    std::vector<double> numbers = oddNumbers();
    while (numbers.size() < 1'000'000) {
        const std::uint64_t bits = random.bits();
        const auto number =
            std::bit_cast<double>(numbers.size() % 8 == 0 ? bits & withoutExponent : bits);
        if (std::isfinite(number))
            numbers.push_back(number);
    }

    for (const double number : numbers) {
        const std::string text = femap::numberText(number);
        const std::string signBlank = femap::signBlankText(number);
        ASSERT_EQ(readBack(text), number) << text;
        ASSERT_EQ(readBack(signBlank), number) << signBlank;
    }
}

TEST(ANumberAsText, HasAPointAndNoGroupsWhateverTheLocale)
{
    const std::locale before =
        std::locale::global(std::locale(std::locale::classic(), new CommaAndGroups));

    const std::string real = femap::numberText(1234567.5);
    const std::string load = femap::signBlankText(-1234567.25);
    const std::string whole = femap::signBlankText(std::int64_t{1234567});

    std::locale::global(before);
    EXPECT_EQ(real, "1234567.5");
    EXPECT_EQ(load, "-1234567.25");
    EXPECT_EQ(whole, " 1234567");
}

}  // namespace reliability
