#include "app/window/SelectedRuns.h"

#include <iterator>

namespace window
{

void SelectedRuns::set(int first, int end, bool selected)
{
    if (first >= end)
        return;
    cutAt(first);
    cutAt(end);
    auto next = runs_.erase(runs_.lower_bound(first), runs_.lower_bound(end));
    if (!selected)
        return;
    if (next != runs_.end() && next->first == end) {
        end = next->second;
        next = runs_.erase(next);
    }
    if (next != runs_.begin() && std::prev(next)->second == first)
        std::prev(next)->second = end;
    else
        runs_.emplace_hint(next, first, end);
}

int SelectedRuns::count() const
{
    int sum = 0;
    for (const auto& [first, end] : runs_)
        sum += end - first;
    return sum;
}

SelectedRuns SelectedRuns::without(const SelectedRuns& others) const
{
    SelectedRuns rest = *this;
    for (const auto& [first, end] : others.runs_)
        rest.set(first, end, false);
    return rest;
}

// No run goes on across this item afterwards; one begins there if it was inside one.
void SelectedRuns::cutAt(int item)
{
    const auto behind = runs_.lower_bound(item);
    if (behind == runs_.begin())
        return;
    const auto before = std::prev(behind);
    if (before->second <= item)
        return;
    runs_.emplace_hint(behind, item, before->second);
    before->second = item;
}

}  // namespace window
