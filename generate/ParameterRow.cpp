#include "generate/ParameterRow.h"

namespace generate
{

namespace
{
constexpr char separator = '\t';
}

std::string_view ParameterRow::cell(int column) const
{
    std::string_view rest = text_;
    for (int i = 0; i < column; ++i)
        rest.remove_prefix(rest.find(separator) + 1);
    return rest.substr(0, rest.find(separator));
}

std::string concatenated(std::initializer_list<std::string_view> pieces)
{
    std::size_t length = 0;
    for (const std::string_view piece : pieces)
        length += piece.size();
    std::string text;
    text.reserve(length);
    for (const std::string_view piece : pieces)
        text += piece;
    return text;
}

}  // namespace generate
