#pragma once

#include <string>
#include <vector>

namespace property
{

/// What the procedures make of a grid, told as an engineer would tell it: slow and obvious.
class PlainGrid
{
public:
    explicit PlainGrid(int columns);

    const std::vector<std::string>& rows() const { return rows_; }
    int count() const { return static_cast<int>(rows_.size()); }
    /// The row's first cell; rows are counted from 1.
    std::string name(int row) const;

    /// Each cell ends where the next TAB or the row ends.
    void append(std::string row);
    /// False, and nothing happens, for a row that is not there and for the only one.
    bool remove(int row);

    struct Visit
    {
        int removed = 0;
        bool ranPastTheEnd = false;
        bool refused = false;
    };
    /// Goes from row 1 to what was the last row at the start, and takes out each row of the name.
    Visit visit(const std::string& name);

    void sort();
    void tidy();
    /// One row is left; this many of its cells, from the first on, become empty.
    void clear(int cells);
    void removeSelected(int row, int otherEnd);

private:
    std::string& at(int row) { return rows_[static_cast<std::size_t>(row - 1)]; }

    int columns_;
    std::vector<std::string> rows_;
};

}  // namespace property
