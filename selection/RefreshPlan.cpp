#include "selection/RefreshPlan.h"

#include "femap/NumberText.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace selection
{

using form::ParameterGrid;

namespace
{

std::optional<int> numberAt(const ParameterGrid& grid, int row, int column)
{
    return femap::wholeNumber(grid.text(row, column));
}

void makeAscending(std::vector<int>& ids)
{
    std::sort(ids.begin(), ids.end());
    ids.erase(std::unique(ids.begin(), ids.end()), ids.end());
}

}  // namespace

bool isRefreshed(std::string_view kind)
{
    const form::RowKind* const known = form::findRowKind(kind);
    return known == nullptr ? !kind.empty() : known->refreshed != form::Refreshed::Never;
}

form::Refreshed outputReading(std::string_view kind)
{
    const form::RowKind* const known = form::findRowKind(kind);
    return known == nullptr || known->isInput ? form::Refreshed::FromResult : known->refreshed;
}

std::map<std::string, KindReading> inputsToRead(const ParameterGrid& grid,
                                                const form::RowRange& rows)
{
    std::map<std::string, KindReading> result;
    for (int row = rows.first; row < rows.first + rows.count; ++row) {
        const std::string kind = grid.text(row, form::inputColumn::kind);
        const std::optional<int> id = numberAt(grid, row, form::inputColumn::id);
        if (!isRefreshed(kind) || !id)
            continue;
        KindReading& reading = result[kind];
        reading.ids.push_back(*id);
        femap::MemberName member{grid.text(row, form::inputColumn::member),
                                 numberAt(grid, row, form::inputColumn::index)};
        if (std::find(reading.members.begin(), reading.members.end(), member) ==
            reading.members.end())
            reading.members.push_back(std::move(member));
    }
    for (auto& [kind, reading] : result)
        makeAscending(reading.ids);
    return result;
}

std::vector<femap::VectorReading> outputsToRead(const ParameterGrid& grid,
                                                const form::RowRange& rows)
{
    std::map<int, std::vector<int>> entities;  // by vector
    for (int row = rows.first; row < rows.first + rows.count; ++row) {
        const form::Refreshed reading = outputReading(grid.text(row, form::outputColumn::kind));
        const std::optional<int> vector = numberAt(grid, row, form::outputColumn::second);
        if (reading == form::Refreshed::FromMass || !vector ||
            grid.text(row, form::nameColumn).empty())
            continue;
        std::vector<int>& ids = entities[*vector];
        const std::optional<int> entity = numberAt(grid, row, form::outputColumn::first);
        if (reading == form::Refreshed::FromVector && entity)
            ids.push_back(*entity);
    }
    std::vector<femap::VectorReading> result;
    for (auto& [vector, ids] : entities) {
        makeAscending(ids);
        result.push_back({vector, std::move(ids)});
    }
    return result;
}

}  // namespace selection
