#pragma once

#include "app/form/Controls.h"
#include "app/form/NameIndex.h"

#include <cstddef>
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

/// A cell of a row whose cells are joined by TAB.
std::string_view cellOf(std::string_view rowText, int column);

/// A table of text cells. Row 0 is the header, rows 1 and up are parameters; there is always at
/// least one parameter row, and a row counts as empty while its column 0 is.
class ParameterGrid : public Control
{
public:
    static constexpr int nameColumn = 0;
    static constexpr int valueColumn = 1;

    /// A grid of two columns or more with the header "<Variable Name|<Value" and one blank row.
    explicit ParameterGrid(int columns);

    /// Number of rows, the header included.
    int Rows() const;
    int Cols() const { return columns_; }

    /// A cell. Raises RuntimeError (SubscriptOutOfRange) for a row or column that is not there.
    std::string text(int row, int column) const;
    /// A TAB in the text becomes a blank.
    void setText(int row, int column, std::string_view text);

    /// A row's cells joined by TAB, as they are stored in the control file.
    std::string rowText(int row) const;
    /// The same of all parameter rows, without a copy; they hold until the grid changes.
    std::span<const std::string> rows() const;

    /// Appends a row of cells joined by TAB; surplus cells are dropped, missing ones stay empty.
    void AddItem(std::string_view rowText);
    /// Raises RuntimeError and changes nothing for the header, for a row that does not exist and
    /// for the last parameter row.
    void RemoveItem(int row);
    /// The same as removing the first of these rows as many times as there are rows, but in one
    /// go. Raises and changes nothing when one of those removals would be refused.
    void removeRows(RowRange rows);
    /// Cuts or extends the grid to this many rows, the header included (at least 2); rows that
    /// stay keep their cells.
    void setRows(int rows);

    /// Sorts the parameter rows by the bytes of column 0; equal names keep their order.
    void sortByName();

    /// What a scan for rows of one name did.
    struct NameScan
    {
        int removed = 0;
        bool ranPastTheEnd = false;   // a visit found no row because the grid had become shorter
        bool removalRefused = false;  // the only parameter row was the duplicate; it stays
    };
    /// Visits the rows from 1 to the last one there was at the start and removes each whose name
    /// equals this. The row that moves up into a removed place is not looked at. Costs as much as
    /// there are rows of that name, however large the grid.
    NameScan removeRowsNamed(std::string_view name);

    // The current row and the other end of the row selection.
    int Row = 1;
    int RowSel = 1;
    int Col = 0;
    std::vector<int> ColWidth;  // twips, per column

    /// How many rows were touched so far while rows were looked for, moved or sorted. Shows that
    /// the work grows with the rows and not with their square.
    std::size_t rowsTouched() const { return rowsTouched_; }

    /// The selected rows, whichever way the selection was made.
    RowRange selectedRows() const;

private:
    void keepSelectionInside();
    void closeGaps() const;
    void popRemovedTail();
    void forgetNames() const;
    void rememberNames();
    void checkColumn(int column) const;
    std::size_t slotOf(int row) const;

    int columns_;
    // A row is its text; a removed one is an empty text until the next access by position, so
    // that removing many rows by name moves each remaining row at most once.
    mutable std::vector<std::string> slots_;
    mutable std::size_t removed_ = 0;

    // The slots by name. Built by the first scan, kept by AddItem, dropped by everything that
    // moves rows.
    mutable bool namesKnown_ = false;
    mutable NameIndex names_;

    mutable std::size_t rowsTouched_ = 0;
};

}  // namespace form
