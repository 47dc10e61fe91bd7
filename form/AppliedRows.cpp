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
    const std::uint64_t hash = hashOf(row, isInput);
    const auto found = std::ranges::lower_bound(rows_, hash, {}, &Row::cells);
    return modelFile == modelFile_ && found != rows_.end() && found->cells == hash;
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
    const auto differing = [](const std::vector<Row>& these, const std::vector<Row>& others) {
        std::vector<Row> result;
        std::set_difference(these.begin(), these.end(), others.begin(), others.end(),
                            std::back_inserter(result));
        std::vector<std::uint64_t> names(result.size());
        std::ranges::transform(result, names.begin(), &Row::name);
        std::ranges::sort(names);
        return names;
    };
    // A row with another value is there under its name: it counts once.
    const std::vector<std::uint64_t> changed = differing(present, rows_);
    std::vector<std::uint64_t> gone;
    std::ranges::set_difference(differing(rows_, present), changed, std::back_inserter(gone));
    counts.notApplied = changed.size() + gone.size();
    return counts;
}

}  // namespace form
