#include "femap/neutral/NeutralLines.h"

#include <algorithm>
#include <array>
#include <cfloat>
#include <charconv>
#include <optional>

namespace femap::neutral
{

namespace
{

// A product or quotient of two numbers that a double holds exactly is rounded once, so it is the
// double nearest to the decimal number; but only where intermediate results have no extra digits.
constexpr bool roundsOnce = FLT_EVAL_METHOD == 0;
constexpr std::uint64_t largestExact = std::uint64_t{1} << 53;
constexpr std::array<double, 23> powersOfTen = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr long long largestPower = 22;

constexpr std::ptrdiff_t mostDigits = 18;  // more may not fit in 64 bits

/// The number mantissa x 10^exponent.
struct Decimal
{
    bool negative = false;
    bool complete = true;  // all digits are in the mantissa
    std::uint64_t mantissa = 0;
    std::ptrdiff_t exponent = 0;
    const char* end = nullptr;
};

unsigned digitValue(char c)
{
    return static_cast<unsigned>(c) - '0';
}

bool isSign(char c)
{
    return c == '-' || c == '+';
}

bool isExponentLetter(char c)
{
    return c == 'E' || c == 'e' || c == 'D' || c == 'd';
}

// Adds digits to the mantissa, which may overflow, and returns where they end.
const char* readDigits(const char* at, const char* end, std::uint64_t& mantissa)
{
    for (; at != end && digitValue(*at) < 10; ++at)
        mantissa = mantissa * 10 + digitValue(*at);
    return at;
}

// The power of ten after E or, as Fortran writes it, D. False when the letter has no digits.
bool readExponent(const char* at, const char* end, Decimal& decimal)
{
    ++at;
    const bool negative = at != end && *at == '-';
    if (at != end && isSign(*at))
        ++at;
    constexpr std::ptrdiff_t farOutside = 100'000'000;
    std::ptrdiff_t value = 0;
    const char* const digits = at;
    for (; at != end && digitValue(*at) < 10; ++at)
        value = std::min<std::ptrdiff_t>(value * 10 + digitValue(*at), farOutside);
    decimal.exponent += negative ? -value : value;
    decimal.end = at;
    return at != digits;
}

// False when the text does not begin with a number.
bool readDecimal(const char* at, const char* end, Decimal& decimal)
{
    decimal.negative = at != end && *at == '-';
    if (at != end && isSign(*at))
        ++at;
    const char* const whole = at;
    at = readDigits(at, end, decimal.mantissa);
    std::ptrdiff_t digits = at - whole;
    if (at != end && *at == '.') {
        const char* const fraction = ++at;
        at = readDigits(at, end, decimal.mantissa);
        decimal.exponent = fraction - at;
        digits += at - fraction;
    }
    decimal.complete = digits <= mostDigits;
    decimal.end = at;
    if (digits == 0)
        return false;
    const bool hasExponent = at != end && isExponentLetter(*at);
    return !hasExponent || readExponent(at, end, decimal);
}

// Whether one product or quotient gives the nearest double.
bool isQuick(const Decimal& decimal)
{
    return roundsOnce && decimal.complete && decimal.mantissa <= largestExact &&
           decimal.exponent >= -largestPower && decimal.exponent <= largestPower;
}

double quickReal(const Decimal& decimal)
{
    const auto digits = static_cast<double>(decimal.mantissa);
    const double value = decimal.exponent < 0
                             ? digits / powersOfTen[static_cast<std::size_t>(-decimal.exponent)]
                             : digits * powersOfTen[static_cast<std::size_t>(decimal.exponent)];
    return decimal.negative ? -value : value;
}

// Whether a number outside the range of double is too large; otherwise it is too close to 0.
bool isLarge(const char* number, const Decimal& decimal)
{
    const char* const digits = std::find_if(
        number, decimal.end, [](char c) { return digitValue(c) > 0 && digitValue(c) < 10; });
    const char* const digitsEnd = std::find_if(digits, decimal.end, isExponentLetter);
    return digitsEnd - digits + decimal.exponent > 0;
}

// The number as std::from_chars reads it, which knows neither a plus sign nor the letter D.
// Nothing when it is too large for a double.
std::optional<double> exactReal(const char* number, const Decimal& decimal)
{
    if (isSign(*number))
        ++number;
    const auto length = static_cast<std::size_t>(decimal.end - number);
    std::array<char, 64> small{};
    std::string large;
    char* copy = small.data();
    if (length > small.size()) {
        large.resize(length);
        copy = large.data();
    }
    std::transform(number, decimal.end, copy, [](char c) { return isExponentLetter(c) ? 'E' : c; });
    double value = 0;
    const auto result = std::from_chars(copy, copy + length, value);
    if (result.ec == std::errc::result_out_of_range) {
        if (isLarge(number, decimal))
            return std::nullopt;
        value = 0;
    }
    return decimal.negative ? -value : value;
}

}  // namespace

double Fields::real()
{
    Decimal decimal;
    if (!readDecimal(at_, end_, decimal))
        failField("is not a number");
    const char* const field = at_;
    at_ = decimal.end;
    if (!skipSeparator()) {
        at_ = field;
        failField("is not a number");
    }
    if (isQuick(decimal))
        return quickReal(decimal);
    const std::optional<double> value = exactReal(field, decimal);
    if (!value)
        fail("a number is too large");
    return *value;
}

int Fields::id()
{
    const int value = integer();
    if (value <= 0)
        fail("the ID " + std::to_string(value) + " is not greater than 0");
    return value;
}

int Fields::count() const
{
    int fields = 0;
    for (const char* at = at_; at != end_; ++fields) {
        while (at != end_ && *at != ',' && !isBlank(*at))
            ++at;
        Fields rest(std::string_view(at, static_cast<std::size_t>(end_ - at)));
        rest.skipSeparator();
        at = rest.at_;
    }
    return fields;
}

void Fields::expectEnd() const
{
    if (!atEnd())
        fail("the line holds more than fits");
}

void Fields::failField(const char* problem) const
{
    const std::string_view before(begin_, static_cast<std::size_t>(at_ - begin_));
    const std::string field = "field " + std::to_string(Fields(before).count() + 1);
    fail(field + (atEnd() ? " is missing" : std::string(" ") + problem));
}

bool Lines::atListEnd() const
{
    const char* at = at_;
    while (at != end_ && (*at == ' ' || *at == '\t'))
        ++at;
    constexpr std::string_view endMark = "-1";
    const std::string_view rest(at, static_cast<std::size_t>(end_ - at));
    if (rest.substr(0, endMark.size()) != endMark)
        return false;
    constexpr std::string_view separators = ", \t\r\n";
    return rest.size() == endMark.size() ||
           separators.find(rest[endMark.size()]) != std::string_view::npos;
}

bool Lines::takeListEnd()
{
    if (!atListEnd())
        return false;
    text();
    return true;
}

void Lines::skipText(int count)
{
    for (int i = 0; i < count; ++i)
        text();
}

void Lines::skipNumbers(int count)
{
    for (int i = 0; i < count; ++i)
        record().real();
}

int Lines::count()
{
    Fields fields = record();
    const int count = fields.integer();
    fields.expectEnd();
    if (count < 0)
        fields.fail("a count is less than 0");
    return count;
}

std::vector<double> Lines::countedReals()
{
    const auto size = static_cast<std::size_t>(count());
    constexpr std::size_t usual = 1000;  // a count may be wrong: no memory for it beforehand
    std::vector<double> numbers;
    numbers.reserve(std::min(size, usual));
    while (numbers.size() < size) {
        Fields fields = record();
        do
            numbers.push_back(fields.real());
        while (numbers.size() < size && !fields.atEnd());
        fields.expectEnd();
    }
    return numbers;
}

}  // namespace femap::neutral
