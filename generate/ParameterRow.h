#pragma once

#include "app/form/ParameterGrid.h"

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

namespace generate
{

/// A row of a grid with its cells at hand.
class ParameterRow
{
public:
    /// The row's cells joined by TAB.
    explicit ParameterRow(std::string rowText) : text_(std::move(rowText)) {}

    std::string_view cell(int column) const { return form::cellOf(text_, column); }
    std::string_view name() const { return cell(form::ParameterGrid::nameColumn); }
    std::string_view value() const { return cell(form::ParameterGrid::valueColumn); }
    /// All cells joined by TAB.
    const std::string& text() const { return text_; }

private:
    std::string text_;
};

/// Visits all parameter rows in grid order.
template <class Visit>
void forEachRow(const form::ParameterGrid& grid, Visit&& visit)
{
    for (int row = 1; row < grid.Rows(); ++row)
        visit(ParameterRow(grid.rowText(row)));
}

/// Visits the rows that count as parameters in the generated files: those with a name.
template <class Visit>
void forEachNamedRow(const form::ParameterGrid& grid, Visit&& visit)
{
    forEachRow(grid, [&](const ParameterRow& row) {
        if (!row.name().empty())
            visit(row);
    });
}

/// The pieces as one text.
std::string concatenated(std::initializer_list<std::string_view> pieces);

}  // namespace generate
