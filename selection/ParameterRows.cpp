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

bool removeBlankFirstRow(form::ParameterGrid& grid)
{
    if (grid.Rows() < 3 || !grid.text(1, form::nameColumn).empty())
        return false;
    grid.RemoveItem(1);
    return true;
}

}  // namespace selection
