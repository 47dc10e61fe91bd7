// The line of the window that tells which model FEMAP has open and what there is of rows.
#pragma once

#include "form/AppliedRows.h"
#include "form/MainForm.h"

#include <cstdint>
#include <string>

namespace app
{

class ModelLine
{
public:
    /// "panel.neu: 13 rows, 2 selected, 1 without a value, 3 not applied". The rows are counted
    /// anew only after a change. selected: how many rows are shown as selected.
    std::string text(const form::MainForm& form, int selected);
    /// Whether a row of a grid is one of those that the latest text counts as not applied.
    bool isNotApplied(const form::MainForm& form, const form::ParameterGrid& grid, int row) const;

private:
    form::RowCounts counts_;
    // For what they were counted.
    std::uint64_t inputs_ = 0;
    std::uint64_t outputs_ = 0;
    std::uint64_t applied_ = 0;
    std::string model_;
    bool isCounted_ = false;
};

}  // namespace app
