// What the writers of generated files share: walks over the rows, and lines made of pieces.
#pragma once

#include "form/ParameterGrid.h"
#include "form/Progress.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>

namespace generate
{

using form::ParameterRow;

/// The pieces of a line, joined only in the file's own buffer. The texts must outlive this.
class LinePieces
{
public:
    template <class... Pieces>
    LinePieces(const Pieces&... pieces)
        : pieces_{std::string_view(pieces)...}, count_(sizeof...(Pieces))
    {
        static_assert(sizeof...(Pieces) <= most);
    }

    operator std::span<const std::string_view>() const { return {pieces_.data(), count_}; }
    bool operator==(std::string_view text) const;

private:
    static constexpr std::size_t most = 9;

    std::array<std::string_view, most> pieces_;
    std::size_t count_ = 0;
};

/// Visits all parameter rows in grid order.
template <class Visit>
void forEachRow(form::Progress& progress, const form::ParameterGrid& grid, Visit&& visit)
{
    constexpr std::size_t rowsAtOnce = 256;
    for (std::span<const std::string> left = grid.rows(); !left.empty();) {
        const auto rows = left.first(std::min(left.size(), rowsAtOnce));
        for (const std::string& row : rows)
            visit(ParameterRow(row));
        left = left.subspan(rows.size());
        progress.passRows(rows.size());
    }
}

/// Visits the rows that count as parameters in the generated files: those with a name.
template <class Visit>
void forEachNamedRow(form::Progress& progress, const form::ParameterGrid& grid, Visit&& visit)
{
    forEachRow(progress, grid, [&](const ParameterRow& row) {
        if (!row.name().empty())
            visit(row);
    });
}

/// The pieces as one text.
std::string concatenated(std::span<const std::string_view> pieces);
inline std::string concatenated(std::initializer_list<std::string_view> pieces)
{
    return concatenated(std::span(pieces.begin(), pieces.size()));
}

}  // namespace generate
