#include "selection/ParameterRows.h"

namespace selection
{

std::string without(std::string_view text, std::string_view characters)
{
    std::string result;
    result.reserve(text.size());
    for (const char c : text)
        if (characters.find(c) == std::string_view::npos)
            result += c;
    return result;
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

bool removeBlankFirstRow(form::ParameterGrid& grid)
{
    if (grid.Rows() < 3 || !grid.text(1, form::ParameterGrid::nameColumn).empty())
        return false;
    grid.RemoveItem(1);
    return true;
}

}  // namespace selection
