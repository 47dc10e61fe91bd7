#include "femap/NumberText.h"

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

// "1234", 1 for 12.34: the significant digits and the decimal exponent of the first one.
struct Digits
{
    std::string digits;
    int exponent = 0;
};

template <class Real>
Digits shortestDigits(Real magnitude)
{
    std::array<char, 64> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude,
                                   std::chars_format::scientific)
                         .ptr;
    Digits result;
    const char* at = buffer.data();
    for (; *at != 'e'; ++at)
        if (*at != '.')
            result.digits += *at;
    const char* const exponent = at[1] == '+' ? at + 2 : at + 1;
    std::from_chars(exponent, end, result.exponent);
    return result;
}

std::string positional(const Digits& number)
{
    const auto count = static_cast<int>(number.digits.size());
    if (number.exponent < 0)
        return "0." + std::string(static_cast<std::size_t>(-number.exponent - 1), '0') +
               number.digits;
    const int whole = number.exponent + 1;
    if (count <= whole)
        return number.digits + std::string(static_cast<std::size_t>(whole - count), '0');
    std::string text = number.digits;
    return text.insert(static_cast<std::size_t>(whole), ".");
}

std::string scientific(const Digits& number)
{
    std::string text = number.digits;
    if (text.size() > 1)
        text.insert(1, ".");
    const std::string exponent = std::to_string(std::abs(number.exponent));
    text += number.exponent < 0 ? "E-" : "E+";
    text.append(exponent.size() < 2 ? 1 : 0, '0');
    return text + exponent;
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
    const Digits digits = shortestDigits(std::abs(number));
    const bool isPositional = digits.exponent >= smallestPositionalExponent &&
                              digits.exponent <= largestPositionalExponent;
    const std::string text = isPositional ? positional(digits) : scientific(digits);
    return number < 0 ? "-" + text : text;
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
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos)
        return std::nullopt;
    text = text.substr(first, text.find_last_not_of(' ') + 1 - first);
    if (text.starts_with('+') && !text.starts_with("+-"))
        text.remove_prefix(1);
    int number = 0;
    const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (problem != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return number;
}

}  // namespace femap
