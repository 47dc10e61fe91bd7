#include "femap/Value.h"

#include "femap/NumberText.h"

#include <algorithm>

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

}  // namespace

std::string toText(const Value& value)
{
    return std::visit(ToText{}, value);
}

std::string withoutControlCharacters(std::string text)
{
    const auto isControl = [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; };
    std::replace_if(text.begin(), text.end(), isControl, ' ');
    return text;
}

}  // namespace femap
