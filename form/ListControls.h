// The lists of the form: each grid, the buttons that work on it, and what its columns are called.
#pragma once

#include "form/ControlTable.h"
#include "form/MainForm.h"

#include <algorithm>
#include <span>
#include <string_view>

namespace form
{

struct ListControls
{
    ParameterGrid FormControls::*grid;
    Button FormControls::*remove;
    Button FormControls::*refresh;
    // Of the columns behind name and value, which have theirs in row 0 of the grid.
    std::span<const std::string_view> furtherHeadings;
};

inline constexpr std::string_view inputHeadings[] = {"Type", "ID", "Member", "Index"};
inline constexpr std::string_view outputHeadings[] = {"ID or quantity", "Vector or component",
                                                      "Type"};

// clang-format off
inline constexpr ListControls listControls[] = {
    {&FormControls::InputsList,  &FormControls::ClearInputSelection,
     &FormControls::RefreshInputs,  inputHeadings},
    {&FormControls::OutputsList, &FormControls::ClearOutputSelection,
     &FormControls::RefreshOutputs, outputHeadings},
};
// clang-format on

/// That of one of this form's grids.
inline const ListControls& listOf(const MainForm& form, const ParameterGrid& grid)
{
    return *std::ranges::find_if(
        listControls, [&](const ListControls& each) { return &(form.*each.grid) == &grid; });
}

}  // namespace form
