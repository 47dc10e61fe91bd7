// Which rows the control file of a model holds, as this run read it whole or wrote it, and how the
// grids differ from that.
#pragma once

#include "form/ParameterGrid.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace form
{

struct RowCounts
{
    std::size_t rows = 0;  // with a name, in both grids
    std::size_t withoutValue = 0;
    /// Rows that the control file does not hold cell for cell, and rows of it that were taken away.
    std::size_t notApplied = 0;
    /// Those of them that it holds, but not so often: the last ones of equal rows, counted from 1,
    /// in ascending order.
    std::vector<int> surplusInputs = {};
    std::vector<int> surplusOutputs = {};

    bool operator==(const RowCounts&) const = default;
};

class AppliedRows
{
public:
    /// The control file of this model holds the rows that are in the grids now.
    void take(const std::string& modelFile, const ParameterGrid& inputs,
              const ParameterGrid& outputs);
    /// Of the grids beside this model, whose control file may not be known. The time taken is that
    /// of sorting as many numbers as there are rows.
    RowCounts compare(const std::string& modelFile, const ParameterGrid& inputs,
                      const ParameterGrid& outputs) const;

    /// Whether a row of the grid of inputs or of outputs stands in the control file of this model
    /// cell for cell, at least once. Costs a search among sorted numbers.
    bool hold(const std::string& modelFile, std::string_view row, bool isInput) const;

    /// Grows with each take.
    std::uint64_t changes() const { return changes_; }

private:
    // Hashes: a million rows shall not be kept twice.
    struct Row
    {
        std::uint64_t cells;  // all of the row, and in which grid it is
        std::uint64_t name;
        bool operator<(const Row& other) const
        {
            return cells != other.cells ? cells < other.cells : name < other.name;
        }
    };
    bool holdsCells(std::uint64_t hash) const;
    static std::uint64_t hashOf(std::string_view text, bool isInput);
    static std::vector<Row> rowsOf(const ParameterGrid& inputs, const ParameterGrid& outputs);
    static std::vector<Row> without(const std::vector<Row>& these, const std::vector<Row>& others);
    static std::vector<std::uint64_t> namesOf(const std::vector<Row>& rows);
    using Times = std::unordered_map<std::uint64_t, std::size_t>;  // by the hash of cells
    static std::vector<int> lastRows(const ParameterGrid& grid, bool isInput, Times times);

    std::string modelFile_;
    std::vector<Row> rows_;  // sorted
    std::uint64_t changes_ = 0;
};

}  // namespace form
