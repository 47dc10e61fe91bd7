// A grid of the form: a table of text cells. Row 0 is the header, the others are parameters; there
// is always at least one parameter row. A row counts as empty while its column 0 is.
#pragma once

#include "form/Controls.h"
#include "form/NameIndex.h"
#include "form/ParameterRow.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace form
{

/// First and number of rows of a selection.
struct RowRange
{
    int first = 0;
    int count = 0;
};

/// A row that was removed, and where it was, counted from 0.
struct GoneRow
{
    std::size_t place = 0;
    std::string text;
};

class ParameterGrid : public Control
{
public:
    /// A grid of two columns or more with the header "<Variable Name|<Value" and one blank row.
    explicit ParameterGrid(int columns);

    /// Number of rows, the header included.
    int Rows() const;
    int Cols() const { return columns_; }

    /// A cell. Raises RuntimeError (SubscriptOutOfRange) for a row or column that is not there.
    std::string text(int row, int column) const;
    /// A TAB in the text becomes a blank.
    void setText(int row, int column, std::string_view text);

    /// Grows with each change of a cell, of rows or of their order.
    std::uint64_t changes() const { return changes_; }
    /// Grows whenever rows come or change places, after which others may stand where some were
    /// selected.
    std::uint64_t fills() const { return fills_; }

    /// A row's cells joined by TAB, as they are stored in the control file.
    std::string rowText(int row) const;
    /// All parameter rows like that, without a copy; valid until the grid changes.
    std::span<const std::string> rows() const;

    /// Appends a row of cells joined by TAB; surplus cells are dropped, missing ones stay empty.
    void AddItem(std::string_view rowText);
    /// Raises RuntimeError and changes nothing for the header, for a row that does not exist and
    /// for the last parameter row.
    void RemoveItem(int row);
    /// Removes these rows at once. Raises and changes nothing when RemoveItem would refuse one of
    /// them.
    void removeRows(RowRange rows);
    /// Cuts or extends the grid to this many rows, the header included (at least 2); rows that
    /// stay keep their cells.
    void setRows(int rows);

    /// All rows at once, as their texts; none leaves a blank one.
    void replaceRows(std::vector<std::string> texts);
    /// From now on rows that removeRows, RemoveItem and setRows take away are moved there; null
    /// ends that.
    void keepWhatGoes(std::vector<GoneRow>* rows) { gone_ = rows; }

    /// Sorts the parameter rows by the bytes of column 0; equal names keep their order.
    void sortByName();

    /// What a scan for rows of one name did.
    struct NameScan
    {
        std::vector<std::string> removed;  // the texts of the rows
        bool ranPastTheEnd = false;        // a row number was visited that no longer existed
        bool removalRefused = false;       // the only parameter row has the name; it stays

        bool foundAny() const { return !removed.empty() || removalRefused; }
    };
    /// Visits the row numbers from 1 to the last one at the start and removes each row that has
    /// this name. The row that moves up to the number of a removed row is not looked at. The time
    /// taken depends on how many rows have the name, not on the size of the grid.
    NameScan removeRowsNamed(std::string_view name);

    // The current row and the other end of the row selection.
    int Row = 1;
    int RowSel = 1;
    int Col = 0;
    std::vector<int> ColWidth;  // twips, per column

    /// The selected rows, whichever way the selection was made.
    RowRange selectedRows() const;
    RowRange allRows() const { return {1, Rows() - 1}; }

private:
    void letGo(std::size_t first, std::size_t end);
    void keepSelectionInside();
    void closeGaps() const;
    void popRemovedTail();
    void forgetNames() const;
    NameIndex::Positions rowsNamed(std::string_view name);
    void checkColumn(int column) const;
    std::size_t slotOf(int row) const;

    int columns_;
    std::vector<GoneRow>* gone_ = nullptr;
    std::uint64_t changes_ = 0;
    std::uint64_t fills_ = 0;
    // The texts of the parameter rows. A row removed by name leaves an empty text until the next
    // access by row number, so that removing many rows moves each remaining row at most once.
    mutable std::vector<std::string> slots_;
    mutable std::size_t removed_ = 0;

    // Finds slots by name. Built by the first scan, extended by AddItem, dropped when rows move.
    mutable bool namesKnown_ = false;
    mutable NameIndex names_;
};

}  // namespace form
