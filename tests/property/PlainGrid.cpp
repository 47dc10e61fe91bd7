#include "property/PlainGrid.h"

#include <algorithm>

namespace property
{

namespace
{

std::string nameIn(const std::string& row)
{
    return row.substr(0, row.find('\t'));
}

}  // namespace

PlainGrid::PlainGrid(int columns) : columns_(columns)
{
    append("");
}

std::string PlainGrid::name(int row) const
{
    return nameIn(rows_.at(static_cast<std::size_t>(row - 1)));
}

void PlainGrid::append(std::string row)
{
    while (std::count(row.begin(), row.end(), '\t') < columns_ - 1)
        row += '\t';
    rows_.push_back(row);
}

bool PlainGrid::remove(int row)
{
    if (row < 1 || row > count() || count() == 1)
        return false;
    rows_.erase(rows_.begin() + (row - 1));
    return true;
}

PlainGrid::Visit PlainGrid::visit(const std::string& name)
{
    Visit result;
    const int bound = count();
    for (int row = 1; row <= bound; ++row) {
        const bool isThere = row <= count();
        if (!isThere)
            result.ranPastTheEnd = true;
        else if (this->name(row) == name && remove(row))
            ++result.removed;
        else if (this->name(row) == name)
            result.refused = true;
    }
    return result;
}

void PlainGrid::sort()
{
    std::stable_sort(rows_.begin(), rows_.end(), [](const auto& left, const auto& right) {
        return nameIn(left).compare(nameIn(right)) < 0;
    });
}

void PlainGrid::tidy()
{
    if (count() >= 2 && name(1).empty())
        remove(1);
}

void PlainGrid::clear(int cells)
{
    rows_.resize(1);
    std::string& row = at(1);
    // With the cells before it empty, a cell begins where as many TABs end.
    for (std::size_t cell = 0; cell < static_cast<std::size_t>(cells); ++cell)
        row.erase(cell, std::min(row.find('\t', cell), row.size()) - cell);
}

void PlainGrid::removeSelected(int row, int otherEnd)
{
    const int first = std::min(row, otherEnd);
    for (int i = std::max(row, otherEnd) - first + 1; i > 0; --i)
        if (!remove(first))
            return;
}

}  // namespace property
