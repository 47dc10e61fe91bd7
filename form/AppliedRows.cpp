#include "form/AppliedRows.h"

#include <algorithm>
#include <functional>
#include <iterator>

namespace form
{

std::uint64_t AppliedRows::hashOf(std::string_view text, bool isInput)
{
    const std::uint64_t hash = std::hash<std::string_view>()(text);
    return isInput ? hash : ~hash;
}

std::vector<AppliedRows::Row> AppliedRows::rowsOf(const ParameterGrid& inputs,
                                                  const ParameterGrid& outputs)
{
    std::vector<Row> rows;
    rows.reserve(inputs.rows().size() + outputs.rows().size());
    for (const ParameterGrid* const grid : {&inputs, &outputs})
        for (const std::string& text : grid->rows()) {
            const std::string_view name = cellOf(text, nameColumn);
            const bool isInput = grid == &inputs;
            if (!name.empty())
                rows.push_back({hashOf(text, isInput), hashOf(name, isInput)});
        }
    std::sort(rows.begin(), rows.end());
    return rows;
}

void AppliedRows::take(const std::string& modelFile, const ParameterGrid& inputs,
                       const ParameterGrid& outputs)
{
    rows_ = rowsOf(inputs, outputs);
    modelFile_ = modelFile;
    ++changes_;
}

bool AppliedRows::hold(const std::string& modelFile, std::string_view row, bool isInput) const
{
    return modelFile == modelFile_ && holdsCells(hashOf(row, isInput));
}

bool AppliedRows::holdsCells(std::uint64_t hash) const
{
    const auto found = std::ranges::lower_bound(rows_, hash, {}, &Row::cells);
    return found != rows_.end() && found->cells == hash;
}

std::vector<AppliedRows::Row> AppliedRows::without(const std::vector<Row>& these,
                                                   const std::vector<Row>& others)
{
    std::vector<Row> result;
    std::set_difference(these.begin(), these.end(), others.begin(), others.end(),
                        std::back_inserter(result));
    return result;
}

std::vector<std::uint64_t> AppliedRows::namesOf(const std::vector<Row>& rows)
{
    std::vector<std::uint64_t> names(rows.size());
    std::ranges::transform(rows, names.begin(), &Row::name);
    std::ranges::sort(names);
    return names;
}

// The last rows of a grid that have these hashes, as many of each as there shall be.
std::vector<int> AppliedRows::lastRows(const ParameterGrid& grid, bool isInput, Times times)
{
    std::vector<int> rows;
    for (std::size_t row = times.empty() ? 0 : grid.rows().size(); row > 0; --row) {
        const auto found = times.find(hashOf(grid.rows()[row - 1], isInput));
        if (found == times.end() || found->second == 0)
            continue;
        --found->second;
        rows.push_back(static_cast<int>(row));
    }
    std::ranges::reverse(rows);
    return rows;
}

RowCounts AppliedRows::compare(const std::string& modelFile, const ParameterGrid& inputs,
                               const ParameterGrid& outputs) const
{
    RowCounts counts;
    for (const ParameterGrid* const grid : {&inputs, &outputs})
        for (const std::string& text : grid->rows())
            if (!cellOf(text, nameColumn).empty() && cellOf(text, valueColumn).empty())
                ++counts.withoutValue;
    const std::vector<Row> present = rowsOf(inputs, outputs);
    counts.rows = present.size();
    if (modelFile != modelFile_) {
        counts.notApplied = present.size();
        return counts;
    }
    // A row with another value is there under its name: it counts once.
    const std::vector<Row> changed = without(present, rows_);
    const std::vector<std::uint64_t> changedNames = namesOf(changed);
    std::vector<std::uint64_t> gone;
    std::ranges::set_difference(namesOf(without(rows_, present)), changedNames,
                                std::back_inserter(gone));
    counts.notApplied = changed.size() + gone.size();

    Times surplus;
    for (const Row& row : changed)
        if (holdsCells(row.cells))
            ++surplus[row.cells];
    counts.surplusInputs = lastRows(inputs, true, surplus);
    counts.surplusOutputs = lastRows(outputs, false, surplus);
    return counts;
}

}  // namespace form
