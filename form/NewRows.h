// The rows that an action brought into a grid, so that they can be shown until the next one.
#pragma once

#include "form/ParameterGrid.h"

#include <cstdint>
#include <vector>

namespace form
{

class NewRows
{
public:
    /// The grid must outlive this.
    explicit NewRows(const ParameterGrid& grid) : grid_(grid) {}

    /// An action begins that may add rows.
    void begin();
    /// It has ended. New is each row that was not there before cell for cell.
    void end();
    void forget() { rows_.clear(); }

    /// The rows by number, ascending; none once the grid has changed again.
    const std::vector<int>& rows() const;
    bool contains(int row) const;

private:
    // Hashes: a million rows shall not be kept twice.
    std::vector<std::uint64_t> hashes() const;

    const ParameterGrid& grid_;
    std::vector<std::uint64_t> before_;
    std::uint64_t changes_ = 0;
    std::vector<int> rows_;
};

}  // namespace form
