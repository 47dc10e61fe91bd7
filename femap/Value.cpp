#include "femap/Value.h"

#include "femap/NumberText.h"

#include <algorithm>
#include <cmath>

namespace femap
{

namespace
{

struct ToText
{
    std::string operator()(std::monostate) const { return {}; }
    std::string operator()(bool flag) const { return flag ? "True" : "False"; }
    std::string operator()(std::int64_t number) const { return numberText(number); }
    std::string operator()(float number) const { return numberText(number); }
    std::string operator()(double number) const { return numberText(number); }
    std::string operator()(const std::string& text) const { return withoutControlCharacters(text); }
};

struct ToReal
{
    using Real = std::optional<double>;

    Real operator()(std::monostate) const { return {}; }
    Real operator()(bool) const { return {}; }
    Real operator()(std::int64_t number) const { return static_cast<double>(number); }
    Real operator()(double number) const { return std::isfinite(number) ? Real(number) : Real(); }
    Real operator()(float number) const { return (*this)(double{number}); }
    Real operator()(const std::string& text) const { return realNumber(text); }
};

}  // namespace

std::string toText(const Value& value)
{
    return std::visit(ToText{}, value);
}

std::optional<double> realOf(const Value& value)
{
    return std::visit(ToReal{}, value);
}

std::string withoutControlCharacters(std::string text)
{
    const auto isControl = [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; };
    std::replace_if(text.begin(), text.end(), isControl, ' ');
    return text;
}

std::string_view firstCharacters(std::string_view text, std::size_t count)
{
    const auto continuesCharacter = [](char c) {
        return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
    };
    std::size_t end = 0;
    for (; end < text.size(); ++end)
        if (!continuesCharacter(text[end]) && count-- == 0)
            break;
    return text.substr(0, end);
}

}  // namespace femap
