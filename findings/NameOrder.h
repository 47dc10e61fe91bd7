// The names of all rows of both grids in order, as whoever ignores the case of letters sorts them:
// equal ones and those that begin one another stand together.
#pragma once

#include "findings/Finding.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace findings
{

class NameOrder
{
public:
    /// The texts of the parameter rows, which must outlive this.
    NameOrder(std::span<const std::string> inputs, std::span<const std::string> outputs);

    struct Entry
    {
        std::string_view folded;  // the name with small letters
        std::uint32_t row;
        Grid grid;

        Place place() const { return {grid, static_cast<int>(row)}; }
    };
    /// Rows without a name are left out. Names that are equal but for the case of letters are in
    /// the order of their bytes, equal ones in that of the grids.
    std::span<const Entry> entries() const { return entries_; }

    std::string_view name(const Entry& entry) const;
    std::string_view rowText(const Entry& entry) const;

    /// Visits each run of names that are equal, with the run that follows it, which is empty at the
    /// end. asOne: whether two entries are of one run.
    template <class AsOne, class Visit>
    void forEachRun(std::span<const Entry> entries, const AsOne& asOne, const Visit& visit) const
    {
        const auto runAt = [&](std::size_t begin) {
            std::size_t end = begin;
            while (end < entries.size() && asOne(entries[begin], entries[end]))
                ++end;
            return entries.subspan(begin, end - begin);
        };
        std::span<const Entry> run = runAt(0);
        for (std::size_t begin = 0; !run.empty();) {
            begin += run.size();
            const std::span<const Entry> next = runAt(begin);
            visit(run, next);
            run = next;
        }
    }

private:
    void add(std::span<const std::string> rows, Grid grid);

    std::span<const std::string> rows_[2];  // by grid
    std::unique_ptr<char[]> letters_;       // that the folded names consist of
    std::size_t used_ = 0;
    std::vector<Entry> entries_;
};

}  // namespace findings
