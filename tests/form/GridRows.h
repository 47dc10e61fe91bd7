#pragma once

#include "app/form/ParameterGrid.h"

#include <initializer_list>
#include <string>
#include <vector>

/// Takes the blank row of a fresh grid for the first of these rows.
inline void fill(form::ParameterGrid& grid, const std::vector<std::string>& rows)
{
    for (const std::string& row : rows)
        grid.AddItem(row);
    if (!rows.empty())
        grid.RemoveItem(1);
}

inline std::vector<std::string> rowsOf(const form::ParameterGrid& grid)
{
    std::vector<std::string> rows;
    for (int row = 1; row < grid.Rows(); ++row)
        rows.push_back(grid.rowText(row));
    return rows;
}

inline std::vector<std::string> namesOf(const form::ParameterGrid& grid)
{
    std::vector<std::string> names;
    for (int row = 1; row < grid.Rows(); ++row)
        names.push_back(grid.text(row, form::ParameterGrid::nameColumn));
    return names;
}
