#include "app/form/ParameterGrid.h"

#include "logging/RuntimeError.h"

#include <algorithm>
#include <functional>
#include <limits>
#include <utility>

namespace form
{

using logging::ErrorNumber;
using logging::RuntimeError;

namespace
{

constexpr char separator = '\t';
constexpr std::uint32_t none = std::numeric_limits<std::uint32_t>::max();
constexpr std::string_view headerTitles[] = {"Variable Name", "Value"};

std::string_view nameOf(std::string_view rowText)
{
    return cellOf(rowText, ParameterGrid::nameColumn);
}

std::size_t hashOf(std::string_view name)
{
    return std::hash<std::string_view>{}(name);
}

RuntimeError noRow(int row)
{
    return {ErrorNumber::SubscriptOutOfRange, "The grid has no row " + std::to_string(row)};
}

}  // namespace

std::string_view cellOf(std::string_view rowText, int column)
{
    for (int i = 0; i < column; ++i)
        rowText.remove_prefix(rowText.find(separator) + 1);
    return rowText.substr(0, rowText.find(separator));
}

ParameterGrid::ParameterGrid(int columns)
    : ColWidth(static_cast<std::size_t>(columns)), columns_(columns)
{
    AddItem("");
}

int ParameterGrid::Rows() const
{
    return static_cast<int>(slots_.size() - removed_) + 1;
}

std::string ParameterGrid::text(int row, int column) const
{
    checkColumn(column);
    if (row == 0) {
        const auto place = static_cast<std::size_t>(column);
        return std::string(place < std::size(headerTitles) ? headerTitles[place] : "");
    }
    return std::string(cellOf(slots_[slotOf(row)], column));
}

void ParameterGrid::setText(int row, int column, std::string_view text)
{
    checkColumn(column);
    std::string& cells = slots_[slotOf(row)];
    const std::string_view old = cellOf(cells, column);
    std::string cell(text);
    std::replace(cell.begin(), cell.end(), separator, ' ');
    cells.replace(static_cast<std::size_t>(old.data() - cells.data()), old.size(), cell);
    if (column == nameColumn)
        forgetNames();
}

std::string ParameterGrid::rowText(int row) const
{
    return slots_[slotOf(row)];
}

void ParameterGrid::AddItem(std::string_view rowText)
{
    std::size_t end = 0;
    int cells = 1;
    for (; end < rowText.size(); ++end)
        if (rowText[end] == separator && ++cells > columns_)
            break;
    std::string row;
    const auto missing = static_cast<std::size_t>(std::max(0, columns_ - cells));
    row.reserve(end + missing);
    row.append(rowText.substr(0, end)).append(missing, separator);
    slots_.push_back(std::move(row));
    if (namesKnown_)
        rememberName(static_cast<std::uint32_t>(slots_.size() - 1));
}

void ParameterGrid::RemoveItem(int row)
{
    removeRows({row, 1});
}

void ParameterGrid::removeRows(RowRange rows)
{
    if (rows.count <= 0)
        return;
    const std::size_t first = slotOf(rows.first);
    if (rows.count > Rows() - rows.first)
        throw noRow(Rows());
    if (rows.count == Rows() - 1)
        throw RuntimeError(ErrorNumber::CannotRemoveRow,
                           "The last parameter row cannot be removed");
    forgetNames();
    const auto begin = slots_.begin() + static_cast<std::ptrdiff_t>(first);
    slots_.erase(begin, begin + rows.count);
    keepSelectionInside();
}

void ParameterGrid::setRows(int rows)
{
    closeGaps();
    forgetNames();
    const std::string blank(static_cast<std::size_t>(columns_ - 1), separator);
    slots_.resize(static_cast<std::size_t>(std::max(rows, 2) - 1), blank);
    keepSelectionInside();
}

void ParameterGrid::sortByName()
{
    closeGaps();
    forgetNames();
    std::stable_sort(slots_.begin(), slots_.end(), [](const std::string& a, const std::string& b) {
        return nameOf(a) < nameOf(b);
    });
}

ParameterGrid::NameScan ParameterGrid::removeRowsNamed(std::string_view name)
{
    rememberNames();
    NameScan scan;
    const auto found = names_.find(hashOf(name));
    if (found == names_.end())
        return scan;

    Namesakes& chain = found->second;
    std::uint32_t before = none;  // the namesake before this one
    std::uint32_t upFrom = none;  // the slot that was removed last
    for (std::uint32_t slot = chain.first; slot != none;) {
        const std::uint32_t after = nextNamesake_[slot];
        const auto isRemoved = [](const std::string& text) { return text.empty(); };
        const auto place = [&](std::uint32_t s) { return slots_.begin() + s; };
        // The row that moved up into the place of a removed one is not looked at.
        const bool skipped = upFrom != none && std::all_of(place(upFrom), place(slot), isRemoved);
        if (skipped || nameOf(slots_[slot]) != name) {
            before = slot;
            slot = after;
            continue;
        }
        if (Rows() == 2) {
            scan.removalRefused = true;
            return scan;
        }
        // After a removal the grid is shorter than it was at the start, so unless the scan ends
        // with this very row it comes to a place where no row is left.
        scan.ranPastTheEnd = scan.removed > 0 || slot + 1 < slots_.size();
        ++scan.removed;
        ++removed_;
        slots_[slot].clear();
        slots_[slot].shrink_to_fit();
        (before == none ? chain.first : nextNamesake_[before]) = after;
        if (after == none)
            chain.last = before;
        upFrom = slot;
        slot = after;
    }
    if (chain.first == none)
        names_.erase(found);
    popRemovedTail();
    keepSelectionInside();
    return scan;
}

RowRange ParameterGrid::selectedRows() const
{
    const int first = std::min(Row, RowSel);
    return {first, std::max(Row, RowSel) - first + 1};
}

void ParameterGrid::keepSelectionInside()
{
    Row = std::min(Row, Rows() - 1);
    RowSel = std::min(RowSel, Rows() - 1);
}

void ParameterGrid::closeGaps() const
{
    if (removed_ == 0)
        return;
    std::erase(slots_, std::string());
    removed_ = 0;
    forgetNames();
}

// Keeps a row at the end, so that "is this the last row" needs no search.
void ParameterGrid::popRemovedTail()
{
    while (slots_.back().empty()) {
        slots_.pop_back();
        nextNamesake_.pop_back();
        --removed_;
    }
}

void ParameterGrid::forgetNames() const
{
    namesKnown_ = false;
    names_.clear();
    nextNamesake_.clear();
}

void ParameterGrid::rememberNames()
{
    if (namesKnown_)
        return;
    closeGaps();
    names_.reserve(slots_.size());
    for (std::uint32_t slot = 0; slot < slots_.size(); ++slot)
        rememberName(slot);
    namesKnown_ = true;
}

void ParameterGrid::rememberName(std::uint32_t slot)
{
    nextNamesake_.push_back(none);
    const auto [place, isNew] =
        names_.try_emplace(hashOf(nameOf(slots_[slot])), Namesakes{slot, slot});
    if (isNew)
        return;
    nextNamesake_[place->second.last] = slot;
    place->second.last = slot;
}

void ParameterGrid::checkColumn(int column) const
{
    if (column < 0 || column >= columns_)
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange,
                           "The grid has no column " + std::to_string(column));
}

// Raises when there is no such parameter row.
std::size_t ParameterGrid::slotOf(int row) const
{
    if (row < 1 || row >= Rows())
        throw noRow(row);
    closeGaps();
    return static_cast<std::size_t>(row - 1);
}

}  // namespace form
