#include "form/NewRows.h"

#include <algorithm>
#include <functional>
#include <string_view>
#include <utility>

namespace form
{

std::vector<std::uint64_t> NewRows::hashes() const
{
    std::vector<std::uint64_t> result;
    result.reserve(grid_.rows().size());
    for (const std::string& row : grid_.rows())
        result.push_back(std::hash<std::string_view>()(row));
    return result;
}

void NewRows::begin()
{
    rows_.clear();
    changes_ = grid_.changes();
    before_ = hashes();
    std::ranges::sort(before_);
}

// Of rows that are the same cell for cell the last ones are new.
void NewRows::end()
{
    if (grid_.changes() != changes_) {
        std::vector<std::pair<std::uint64_t, int>> now;  // and the number of the row
        now.reserve(grid_.rows().size());
        for (const std::uint64_t hash : hashes())
            now.emplace_back(hash, static_cast<int>(now.size()) + 1);
        std::ranges::sort(now);
        auto known = before_.begin();
        for (const auto& [hash, row] : now) {
            while (known != before_.end() && *known < hash)
                ++known;
            if (known != before_.end() && *known == hash)
                ++known;
            else if (!cellOf(grid_.rows()[static_cast<std::size_t>(row - 1)], nameColumn).empty())
                rows_.push_back(row);
        }
        std::ranges::sort(rows_);
        changes_ = grid_.changes();
    }
    before_ = {};
}

const std::vector<int>& NewRows::rows() const
{
    static const std::vector<int> none;
    return grid_.changes() == changes_ ? rows_ : none;
}

bool NewRows::contains(int row) const
{
    return std::ranges::binary_search(rows(), row);
}

}  // namespace form
