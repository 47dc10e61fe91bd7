// Which items of a list view are selected, as runs of adjacent items. It is kept from what the list
// view tells: looking for the next selected one among a million items may take it a second, as
// dropping its selection may.
#pragma once

#include <map>

namespace window
{

class SelectedRuns
{
public:
    /// From first up to, but not including, end.
    void set(int first, int end, bool selected);
    void clear() { runs_.clear(); }

    int count() const;
    /// The lowest one, -1 when there is none.
    int first() const { return runs_.empty() ? -1 : runs_.begin()->first; }
    bool haveHoles() const { return runs_.size() > 1; }
    /// The first item of each run, and the one behind its last.
    const std::map<int, int>& runs() const { return runs_; }
    /// Those of them that the others are not.
    SelectedRuns without(const SelectedRuns& others) const;

private:
    void cutAt(int item);

    std::map<int, int> runs_;
};

}  // namespace window
