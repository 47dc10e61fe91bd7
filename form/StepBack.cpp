#include "form/StepBack.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace form
{

namespace
{

std::string nameIn(std::string_view row)
{
    return std::string(cellOf(row, nameColumn));
}

// Takes one of these names when there is one.
bool takeOne(std::map<std::string, int>& names, const std::string& name)
{
    const auto found = names.find(name);
    if (found == names.end() || found->second == 0)
        return false;
    --found->second;
    return true;
}

// Takes the last rows of these names out, in their order.
std::vector<std::string> takeLast(std::vector<std::string>& rows, std::map<std::string, int> names)
{
    std::vector<std::string> taken;
    if (names.empty())
        return taken;
    for (std::size_t place = rows.size(); place-- > 0;)
        if (takeOne(names, nameIn(rows[place]))) {
            taken.push_back(std::move(rows[place]));
            rows[place].clear();
        }
    std::erase(rows, std::string());
    std::ranges::reverse(taken);
    return taken;
}

// Puts rows in the order of these names; others stay behind them.
void arrange(std::vector<std::string>& rows, const std::vector<std::string>& names)
{
    std::unordered_map<std::string, std::vector<std::size_t>> places;  // from the last to the first
    for (std::size_t place = rows.size(); place-- > 0;)
        places[nameIn(rows[place])].push_back(place);
    std::vector<std::string> arranged;
    arranged.reserve(rows.size());
    for (const std::string& name : names) {
        const auto found = places.find(name);
        if (found == places.end() || found->second.empty())
            continue;
        arranged.push_back(std::exchange(rows[found->second.back()], {}));
        found->second.pop_back();
    }
    std::ranges::copy_if(rows, std::back_inserter(arranged),
                         [](const std::string& row) { return !row.empty(); });
    rows = std::move(arranged);
}

}  // namespace

void StepBack::begin(bool mayAdd)
{
    mayAdd_ = mayAdd;
    for (std::size_t i = 0; i < grids_.size(); ++i) {
        ParameterGrid& grid = *grids_[i];
        Watched& watched = watched_[i];
        watched = {};
        watched.changes = grid.changes();
        if (mayAdd) {
            watched.rows.assign(grid.rows().begin(), grid.rows().end());
        }
        else {
            watched.first = grid.rowText(1);
            grid.keepWhatGoes(&watched.step.gone);
        }
    }
}

bool StepBack::end(bool isReplacement)
{
    bool tookAway = isReplacement;
    for (std::size_t i = 0; i < grids_.size(); ++i) {
        ParameterGrid& grid = *grids_[i];
        Watched& watched = watched_[i];
        grid.keepWhatGoes(nullptr);
        if (grid.changes() == watched.changes)
            continue;
        if (mayAdd_)
            watched.step = compare(watched.rows, grid);
        else
            addFirst(watched, grid);
        tookAway |= !watched.step.gone.empty();
    }
    for (std::size_t i = 0; i < grids_.size(); ++i) {
        OfGrid& ended = watched_[i].step;
        if (tookAway)
            step_[i] = std::move(ended);
        else
            for (const auto& [name, count] : ended.added)
                step_[i].since[name] += count;
        watched_[i] = {};
    }
    isThere_ |= tookAway;
    return tookAway;
}

void StepBack::forget()
{
    step_ = {};
    isThere_ = false;
}

StepBack::OfGrid StepBack::compare(const std::vector<std::string>& before,
                                   const ParameterGrid& grid)
{
    std::unordered_map<std::string_view, std::vector<std::size_t>> places;
    for (std::size_t place = before.size(); place-- > 0;)
        places[before[place]].push_back(place);
    OfGrid step;
    std::vector<bool> hasStayed(before.size());
    bool isInOrder = true;
    std::size_t latest = 0;
    for (const std::string& row : grid.rows()) {
        const auto found = places.find(row);
        if (found == places.end() || found->second.empty()) {
            if (std::string name = nameIn(row); !name.empty())
                ++step.added[std::move(name)];
            continue;
        }
        const std::size_t place = found->second.back();
        found->second.pop_back();
        hasStayed[place] = true;
        isInOrder &= place >= latest;
        latest = place;
    }
    for (std::size_t place = 0; place < before.size(); ++place)
        if (!hasStayed[place] && !cellOf(before[place], nameColumn).empty())
            step.gone.push_back({place, before[place]});
    if (!isInOrder)
        std::ranges::transform(before, std::back_inserter(step.order), nameIn);
    return step;
}

// An emptied grid keeps its first row, but not what it held.
void StepBack::addFirst(Watched& watched, const ParameterGrid& grid)
{
    std::vector<GoneRow>& gone = watched.step.gone;
    std::erase_if(gone, [](const GoneRow& row) { return nameIn(row.text).empty(); });
    const bool isKept = !gone.empty() && gone.front().place == 0;
    if (!isKept && !nameIn(watched.first).empty() && grid.rowText(1) != watched.first)
        gone.insert(gone.begin(), {0, watched.first});
}

StepBack::Result StepBack::goBack()
{
    Result result;
    for (std::size_t i = 0; i < grids_.size(); ++i)
        goBack(step_[i], *grids_[i], result);
    forget();
    return result;
}

void StepBack::goBack(OfGrid& step, ParameterGrid& grid, Result& result)
{
    if (step.gone.empty() && step.added.empty())
        return;
    std::vector<std::string> stayed(grid.rows().begin(), grid.rows().end());
    std::erase_if(stayed, [](const std::string& row) { return nameIn(row).empty(); });
    const std::vector<std::string> since = takeLast(stayed, step.since);
    result.takenOut += takeLast(stayed, step.added).size();
    if (!step.order.empty())
        arrange(stayed, step.order);

    std::vector<std::string> rows;
    auto next = stayed.begin();
    Names there = step.since;
    for (GoneRow& gone : step.gone) {
        while (rows.size() < gone.place && next != stayed.end())
            rows.push_back(std::move(*next++));
        if (takeOne(there, nameIn(gone.text))) {
            ++result.alreadyThere;
            continue;
        }
        rows.push_back(std::move(gone.text));
        ++result.back;
    }
    std::move(next, stayed.end(), std::back_inserter(rows));
    rows.insert(rows.end(), since.begin(), since.end());
    if (!step.order.empty())
        arrange(rows, step.order);
    grid.replaceRows(std::move(rows));
}

}  // namespace form
