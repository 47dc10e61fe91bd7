// The rows of the grids as text: their columns, their cells joined by TAB, and the kinds of rows.
#pragma once

#include "femap/Constants.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace form
{

constexpr char cellSeparator = '\t';

// The columns of both grids …
constexpr int nameColumn = 0;
constexpr int valueColumn = 1;

// … those of the inputs …
namespace inputColumn
{
constexpr int kind = 2;
constexpr int id = 3;      // entity, function or load definition
constexpr int member = 4;  // FEMAP member name
constexpr int index = 5;   // array index, empty for a plain member
constexpr int count = 6;
}  // namespace inputColumn

// … and those of the outputs.
namespace outputColumn
{
constexpr int first = 2;   // entity ID, vector ID or mass quantity
constexpr int second = 3;  // vector ID or component index
constexpr int kind = 4;
constexpr int count = 5;
}  // namespace outputColumn

/// How "Refresh Values" reads the value of a row again.
enum class Refreshed
{
    Never,       // it keeps its value
    FromEntity,  // a member of the entity
    FromVector,  // the value of the vector at the entity
    FromResult,  // a member of the vector
    FromMass,    // a quantity of the mesh's mass
};

struct RowKind
{
    std::string_view tag;  // as it stands in the row
    bool isInput;
    Refreshed refreshed;
    std::optional<femap::LoadDataType> load = {};  // for rows of a load definition
};

/// Null when there is no such kind.
const RowKind* findRowKind(std::string_view tag);
/// The kind of the rows of such loads; null for loads that no row can be of.
const RowKind* findLoadRowKind(int dataType);

// The tags that other code names.
constexpr std::string_view propertyKind = "Prop";
constexpr std::string_view functionKind = "Function";
constexpr std::string_view vectorValueKind = "Output";
constexpr std::string_view massKind = "MassProperties";

/// The cells of a new row. The texts must outlive this.
struct InputCells
{
    std::string_view name;
    std::string_view value;
    std::string_view kind;
    std::string_view id;
    std::string_view member;
    std::string_view index;

    /// Joins them in place of what the text held, and keeps its memory.
    void joinIn(std::string& text) const;
};
struct OutputCells
{
    std::string_view name;
    std::string_view value;
    std::string_view first;
    std::string_view second;
    std::string_view kind;

    void joinIn(std::string& text) const;
};

/// A cell of a row whose cells are joined by TAB.
std::string_view cellOf(std::string_view rowText, int column);
/// What follows name and value and tells where the value lies, as words.
std::string placeWords(std::string_view rowText);

/// The cells of a row; they are looked for only as far as they are asked for.
class ParameterRow
{
public:
    /// The row's cells joined by TAB; the text must outlive this.
    explicit ParameterRow(std::string_view rowText) : text_(rowText), rest_(rowText) {}

    std::string_view cell(int column) const
    {
        const auto wanted = static_cast<std::size_t>(column);
        while (found_ <= wanted)
            findNext();
        return cells_[wanted];
    }
    std::string_view name() const { return cell(nameColumn); }
    std::string_view value() const { return cell(valueColumn); }
    /// All cells joined by TAB.
    std::string_view text() const { return text_; }

private:
    void findNext() const
    {
        const std::size_t end = std::min(rest_.find(cellSeparator), rest_.size());
        cells_[found_++] = rest_.substr(0, end);
        rest_.remove_prefix(std::min(end + 1, rest_.size()));
    }

    std::string_view text_;
    mutable std::string_view rest_;  // behind the cells that were found
    mutable std::size_t found_ = 0;
    mutable std::array<std::string_view, inputColumn::count> cells_;
};

}  // namespace form
