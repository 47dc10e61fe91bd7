#include "form/ParameterGrid.h"

#include "system/RuntimeError.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace form
{

using sys::ErrorNumber;
using sys::RuntimeError;

namespace
{

constexpr std::string_view headerTitles[] = {"Variable Name", "Value"};

std::string_view nameOf(std::string_view rowText)
{
    return cellOf(rowText, nameColumn);
}

// Stands for a row while the rows are sorted. It holds the first 16 bytes of the name, which mostly
// decide, so that the row itself is seldom looked at.
class SortKey
{
public:
    explicit SortKey(std::string& row)
        : begin_(bytesOf(nameOf(row), 0)), next_(bytesOf(nameOf(row), sizeof begin_)), row_(&row)
    {}

    std::string takeRow() const { return std::move(*row_); }

    friend bool operator<(const SortKey& a, const SortKey& b)
    {
        if (a.begin_ != b.begin_)
            return a.begin_ < b.begin_;
        if (a.next_ != b.next_)
            return a.next_ < b.next_;
        return nameOf(*a.row_) < nameOf(*b.row_);
    }

private:
    // Eight bytes of the name as a number that sorts as they do; missing bytes are 0.
    static std::uint64_t bytesOf(std::string_view name, std::size_t from)
    {
        std::uint64_t number = 0;
        for (std::size_t i = from; i < from + sizeof number; ++i)
            number = number << 8 | (i < name.size() ? static_cast<unsigned char>(name[i]) : 0U);
        return number;
    }

    std::uint64_t begin_;
    std::uint64_t next_;
    std::string* row_;
};

RuntimeError noRow(int row)
{
    return {ErrorNumber::SubscriptOutOfRange, "The grid has no row " + std::to_string(row)};
}

}  // namespace

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
        const auto index = static_cast<std::size_t>(column);
        return std::string(index < std::size(headerTitles) ? headerTitles[index] : "");
    }
    return std::string(cellOf(slots_[slotOf(row)], column));
}

void ParameterGrid::setText(int row, int column, std::string_view text)
{
    checkColumn(column);
    std::string& cells = slots_[slotOf(row)];
    ++changes_;
    const std::string_view old = cellOf(cells, column);
    std::string cell(text);
    std::replace(cell.begin(), cell.end(), cellSeparator, ' ');
    cells.replace(static_cast<std::size_t>(old.data() - cells.data()), old.size(), cell);
    if (column == nameColumn)
        forgetNames();
}

std::string ParameterGrid::rowText(int row) const
{
    return slots_[slotOf(row)];
}

std::span<const std::string> ParameterGrid::rows() const
{
    closeGaps();
    return slots_;
}

void ParameterGrid::AddItem(std::string_view rowText)
{
    const auto separators =
        static_cast<int>(std::count(rowText.begin(), rowText.end(), cellSeparator));
    const int missing = columns_ - 1 - separators;
    if (missing < 0) {  // surplus cells
        const std::string_view last = cellOf(rowText, columns_ - 1);
        rowText.remove_suffix(static_cast<std::size_t>(rowText.data() + rowText.size() -
                                                       (last.data() + last.size())));
    }
    std::string row;
    const auto added = static_cast<std::size_t>(std::max(missing, 0));
    row.reserve(rowText.size() + added);
    row.append(rowText).append(added, cellSeparator);
    slots_.push_back(std::move(row));
    ++changes_;
    ++fills_;
    if (namesKnown_)
        names_.add(nameOf(slots_.back()));
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
    letGo(first, first + static_cast<std::size_t>(rows.count));
    slots_.erase(begin, begin + rows.count);
    ++changes_;
    keepSelectionInside();
}

void ParameterGrid::setRows(int rows)
{
    ++changes_;
    closeGaps();
    forgetNames();
    letGo(std::min(static_cast<std::size_t>(std::max(rows, 2) - 1), slots_.size()), slots_.size());
    const std::string blank(static_cast<std::size_t>(columns_ - 1), cellSeparator);
    slots_.resize(static_cast<std::size_t>(std::max(rows, 2) - 1), blank);
    keepSelectionInside();
}

void ParameterGrid::replaceRows(std::vector<std::string> texts)
{
    ++changes_;
    ++fills_;
    forgetNames();
    removed_ = 0;
    slots_ = std::move(texts);
    if (slots_.empty())
        AddItem("");
    keepSelectionInside();
}

void ParameterGrid::letGo(std::size_t first, std::size_t end)
{
    if (gone_ == nullptr)
        return;
    for (std::size_t place = first; place < end; ++place)
        gone_->push_back({place, std::move(slots_[place])});
}

void ParameterGrid::sortByName()
{
    ++changes_;
    closeGaps();
    if (std::ranges::is_sorted(slots_, {}, nameOf))
        return;  // no row moves
    ++fills_;
    forgetNames();
    std::vector<SortKey> keys;
    keys.reserve(slots_.size());
    for (std::string& row : slots_)
        keys.emplace_back(row);
    std::stable_sort(keys.begin(), keys.end());

    std::vector<std::string> sorted;
    sorted.reserve(slots_.size());
    for (const SortKey& key : keys)
        sorted.push_back(key.takeRow());
    slots_ = std::move(sorted);
}

ParameterGrid::NameScan ParameterGrid::removeRowsNamed(std::string_view name)
{
    const auto isRemoved = [](const std::string& text) { return text.empty(); };
    const auto at = [&](std::size_t slot) {
        return slots_.begin() + static_cast<std::ptrdiff_t>(slot);
    };
    NameScan scan;
    std::size_t removed = 0;  // the last one
    for (NameIndex::Positions rows = rowsNamed(name); !rows.atEnd();) {
        const std::size_t slot = rows.position();
        const bool movedUp = !scan.removed.empty() && std::all_of(at(removed), at(slot), isRemoved);
        if (movedUp || nameOf(slots_[slot]) != name) {
            rows.goOn();
            continue;
        }
        if (Rows() == 2) {
            scan.removalRefused = true;
            break;
        }
        // After a removal the grid is shorter than at the start, so the scan comes to row numbers
        // without a row, unless it ends with this very row.
        scan.ranPastTheEnd = !scan.removed.empty() || slot + 1 < slots_.size();
        scan.removed.push_back(std::exchange(slots_[slot], {}));
        ++removed_;
        ++changes_;
        removed = slot;
        rows.remove();
    }
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

// Drops empty texts at the end, so that "is this the last row" needs no search.
void ParameterGrid::popRemovedTail()
{
    while (slots_.back().empty()) {
        slots_.pop_back();
        names_.dropLast();
        --removed_;
    }
}

void ParameterGrid::forgetNames() const
{
    namesKnown_ = false;
    names_.clear();
}

NameIndex::Positions ParameterGrid::rowsNamed(std::string_view name)
{
    if (!namesKnown_) {
        closeGaps();
        names_.reserve(slots_.size());
        for (const std::string& row : slots_)
            names_.add(nameOf(row));
        namesKnown_ = true;
    }
    return names_.rowsNamed(name);
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
