#include "findings/NameOrder.h"

#include "form/ParameterRow.h"

#include <algorithm>
#include <iterator>

namespace findings
{

namespace
{

char small(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

std::size_t lengthOfNames(std::span<const std::string> rows)
{
    std::size_t length = 0;
    for (const std::string& row : rows)
        length += form::cellOf(row, form::nameColumn).size();
    return length;
}

}  // namespace

NameOrder::NameOrder(std::span<const std::string> inputs, std::span<const std::string> outputs)
    : rows_{inputs, outputs},
      letters_(
          std::make_unique_for_overwrite<char[]>(lengthOfNames(inputs) + lengthOfNames(outputs)))
{
    entries_.reserve(inputs.size() + outputs.size());
    add(inputs, Grid::Inputs);
    const auto outputsBegin = static_cast<std::ptrdiff_t>(entries_.size());
    add(outputs, Grid::Outputs);

    const auto isBefore = [this](const Entry& one, const Entry& other) {
        if (const int order = one.folded.compare(other.folded); order != 0)
            return order < 0;
        if (const int order = name(one).compare(name(other)); order != 0)
            return order < 0;
        return one.grid != other.grid ? one.grid < other.grid : one.row < other.row;
    };
    // Inputs mostly stand in order already.
    const auto middle = entries_.begin() + outputsBegin;
    for (const auto& [begin, end] :
         {std::pair(entries_.begin(), middle), std::pair(middle, entries_.end())})
        if (!std::is_sorted(begin, end, isBefore))
            std::sort(begin, end, isBefore);
    std::inplace_merge(entries_.begin(), middle, entries_.end(), isBefore);
}

void NameOrder::add(std::span<const std::string> rows, Grid grid)
{
    std::uint32_t row = 0;
    for (const std::string& text : rows) {
        ++row;
        const std::string_view name = form::cellOf(text, form::nameColumn);
        if (name.empty())
            continue;
        char* const begin = letters_.get() + used_;
        std::ranges::transform(name, begin, small);
        used_ += name.size();
        entries_.push_back({{begin, name.size()}, row, grid});
    }
}

std::string_view NameOrder::name(const Entry& entry) const
{
    return form::cellOf(rowText(entry), form::nameColumn);
}

std::string_view NameOrder::rowText(const Entry& entry) const
{
    return rows_[static_cast<std::size_t>(entry.grid)][entry.row - 1];
}

}  // namespace findings
