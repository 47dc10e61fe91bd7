#include "femap/NumberText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <system_error>

namespace femap
{

namespace
{

constexpr int smallestPositionalExponent = -4;
constexpr int largestPositionalExponent = 14;

// The significant digits and the decimal exponent of the first one: "1234" and 1 for 12.34.
struct Digits
{
    std::string_view digits;
    int exponent = 0;
};

using Buffer = std::array<char, 64>;

template <class Real>
Digits shortestDigits(Real magnitude, Buffer& buffer)
{
    char* first = buffer.data();
    const char* const end =
        std::to_chars(first, first + buffer.size(), magnitude, std::chars_format::scientific).ptr;
    const char* const letter = std::find(static_cast<const char*>(first), end, 'e');
    if (letter - first > 1) {  // overwrite the point with the first digit
        first[1] = first[0];
        ++first;
    }
    Digits result{{first, static_cast<std::size_t>(letter - first)}};
    std::from_chars(letter[1] == '+' ? letter + 2 : letter + 1, end, result.exponent);
    return result;
}

void appendPositional(std::string& text, const Digits& number)
{
    if (number.exponent < 0) {
        text.append("0.").append(static_cast<std::size_t>(-number.exponent - 1), '0');
        text.append(number.digits);
        return;
    }
    const std::size_t whole = static_cast<std::size_t>(number.exponent) + 1;
    text.append(number.digits.substr(0, whole));
    if (number.digits.size() <= whole)
        text.append(whole - number.digits.size(), '0');
    else
        text.append(".").append(number.digits.substr(whole));
}

void appendScientific(std::string& text, const Digits& number)
{
    text.append(number.digits.substr(0, 1));
    if (number.digits.size() > 1)
        text.append(".").append(number.digits.substr(1));
    const std::string exponent = std::to_string(std::abs(number.exponent));
    text.append(number.exponent < 0 ? "E-" : "E+");
    text.append(exponent.size() < 2 ? 1 : 0, '0').append(exponent);
}

template <class Real>
std::string realText(Real number)
{
    if (std::isnan(number))
        return "1.#QNAN";
    if (std::isinf(number))
        return number < 0 ? "-1.#INF" : "1.#INF";
    if (number == 0)
        return "0";
    Buffer buffer{};
    const Digits digits = shortestDigits(std::abs(number), buffer);
    const bool isPositional = digits.exponent >= smallestPositionalExponent &&
                              digits.exponent <= largestPositionalExponent;
    std::string text(number < 0 ? 1 : 0, '-');
    if (isPositional)
        appendPositional(text, digits);
    else
        appendScientific(text, digits);
    return text;
}

std::string signBlank(std::string text)
{
    const bool negative = text.front() == '-';
    if (negative)
        text.erase(0, 1);
    if (text.starts_with("0."))
        text.erase(0, 1);
    return (negative ? "-" : " ") + text;
}

// Without the blanks around it; the whole text must be the number.
template <class Number>
std::optional<Number> parsed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos)
        return std::nullopt;
    text = text.substr(first, text.find_last_not_of(' ') + 1 - first);
    if (text.starts_with('+') && !text.starts_with("+-"))
        text.remove_prefix(1);
    Number number = 0;
    const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (problem != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return number;
}

}  // namespace

std::string numberText(double number)
{
    return realText(number);
}

std::string numberText(float number)
{
    return realText(number);
}

std::string numberText(std::int64_t number)
{
    return std::to_string(number);
}

std::string signBlankText(double number)
{
    return signBlank(numberText(number));
}

std::string signBlankText(float number)
{
    return signBlank(numberText(number));
}

std::string signBlankText(std::int64_t number)
{
    return signBlank(numberText(number));
}

std::optional<int> wholeNumber(std::string_view text)
{
    return parsed<int>(text);
}

std::optional<double> realNumber(std::string_view text)
{
    const std::optional<double> number = parsed<double>(text);
    return number && std::isfinite(*number) ? number : std::nullopt;
}

std::optional<double> realNumberOfOthers(std::string_view text)
{
    std::string ours(text);
    std::ranges::replace(ours, '\t', ' ');
    std::ranges::replace(ours, 'D', 'E');
    std::ranges::replace(ours, 'd', 'e');
    return realNumber(ours);
}

}  // namespace femap
