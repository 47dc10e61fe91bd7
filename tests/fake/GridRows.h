#pragma once

#include "form/ParameterGrid.h"

#include <string>
#include <vector>

namespace fake
{

/// Puts these rows, if there are any, in the place of all that the grid has.
inline void fill(form::ParameterGrid& grid, const std::vector<std::string>& rows)
{
    if (rows.empty())
        return;
    const int before = grid.Rows() - 1;
    for (const std::string& row : rows)
        grid.AddItem(row);
    grid.removeRows({1, before});
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
        names.push_back(grid.text(row, form::nameColumn));
    return names;
}

}  // namespace fake
