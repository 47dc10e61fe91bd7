#include "selection/ValueRefresh.h"

#include "form/FemapLock.h"
#include "form/Progress.h"
#include "logging/Module1.h"
#include "selection/EntityReading.h"
#include "selection/FreshValues.h"
#include "selection/MassQuantities.h"
#include "selection/Outcome.h"
#include "selection/OutputSets.h"

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace selection
{

using form::Context;
using form::ParameterGrid;
using form::ParameterRow;
using form::RowRange;
using logging::logDebug;

namespace
{

int wholeNumberAt(const ParameterGrid& grid, int row, int column)
{
    return wholeNumberIn(grid.text(row, column));
}

// Walks over these parameter rows. One that cannot be refreshed is reported and keeps its value.
// isWanted: whether a row is one that is read again.
template <class IsWanted, class Refresh>
Asked refreshRows(Context& context, const ParameterGrid& grid, const RowRange& rows,
                  const std::string& what, const IsWanted& isWanted, const Refresh& refresh)
{
    Asked asked;
    form::Progress progress(context, what, static_cast<std::size_t>(rows.count));
    for (int row = rows.first; row < rows.first + rows.count; ++row) {
        asked.all += isWanted(row) ? 1 : 0;
        if (!context.error.attempt([&] { refresh(row); })) {
            ++asked.refused;
            reportPendingError(context, "Refreshing " + grid.text(row, form::nameColumn));
        }
        progress.step();
    }
    progress.finish();
    return asked;
}

void tellKept(Context& context, const Asked& asked)
{
    if (asked.refused != 0)
        form::tellEngineer(
            context, share(asked, "rows") +
                         (asked.refused == 1 ? " could not be read again; it keeps its value"
                                             : " could not be read again; they keep their values"));
}

void refreshInput(Context& context, FreshEntities& entities, int row)
{
    ParameterGrid& grid = context.form.InputsList;
    const std::string kind = grid.text(row, form::inputColumn::kind);
    logDebug(context.log, "Entry:  Name=", grid.text(row, form::nameColumn),
             "  Value=", grid.text(row, form::valueColumn), "  Type=", kind);
    if (!isRefreshed(kind))
        return;

    femap::Entity& entity = entities[kind];
    logDebug(context.log, "Called the entity ", kind, " to update");
    demand(entity, kind, wholeNumberAt(grid, row, form::inputColumn::id));
    grid.setText(row, form::valueColumn, freshValue(entity, ParameterRow(grid.rowText(row))));
}

void logUpdate(Context& context, int row)
{
    logDebug(context.log, "Trying to update Output", context.form.OutputsList.rowText(row));
}

void refreshOutputValue(Context& context, femap::OutputVector& vector, int row)
{
    ParameterGrid& grid = context.form.OutputsList;
    demand(vector, wholeNumberAt(grid, row, form::outputColumn::second));
    logUpdate(context, row);
    grid.setText(row, form::valueColumn, freshValue(vector, ParameterRow(grid.rowText(row))));
}

// Each row is measured anew, however many there are.
void refreshMassProperty(Context& context, int row)
{
    ParameterGrid& grid = context.form.OutputsList;
    const femap::MassProperties measured = measure(context, *allElements(context));
    grid.setText(row, form::valueColumn, freshValue(measured, ParameterRow(grid.rowText(row))));
    logUpdate(context, row);
}

void refreshOutputMember(Context& context, femap::OutputVector& vector, int row)
{
    ParameterGrid& grid = context.form.OutputsList;
    demand(vector, wholeNumberAt(grid, row, form::outputColumn::second));
    grid.setText(row, form::valueColumn, freshValue(vector, ParameterRow(grid.rowText(row))));
    logUpdate(context, row);
}

void refreshOutput(Context& context, femap::OutputVector& vector, int row)
{
    const ParameterGrid& grid = context.form.OutputsList;
    if (grid.text(row, form::nameColumn).empty())
        return;
    switch (outputReading(grid.text(row, form::outputColumn::kind))) {
    case form::Refreshed::FromVector:
        return refreshOutputValue(context, vector, row);
    case form::Refreshed::FromMass:
        return refreshMassProperty(context, row);
    default:
        return refreshOutputMember(context, vector, row);
    }
}

void refreshInputs(Context& context, const RowRange& rows)
{
    logDebug(context.log, "At the start of RefreshInputs_Click");
    form::FemapLock lock(context, "Acquired Femap lock");
    const ParameterGrid& grid = context.form.InputsList;
    logDebug(context.log, "Number of rowsto refresh  in input list = ",
             rows.count + 1);  // sic: the header counts

    FreshEntities entities(context, grid, rows);
    const Asked asked = refreshRows(
        context, grid, rows, "Refreshing inputs",
        [&](int row) { return isRefreshed(grid.text(row, form::inputColumn::kind)); },
        [&](int row) { refreshInput(context, entities, row); });

    lock.release("Released Femap lock");
    tellKept(context, asked);
    logDebug(context.log, "At the end of RefreshInputs_Click");
}

void refreshOutputs(Context& context, const RowRange& rows)
{
    logDebug(context.log, "At the start of RefreshOutputs_Click");
    form::FemapLock lock(context, "Acquired Femap lock");

    const auto vector = context.femap().feOutput();
    const ParameterGrid& grid = context.form.OutputsList;
    std::vector<femap::VectorReading> vectors = outputsToRead(grid, rows);
    const bool readsResults = !vectors.empty();
    vector->prefetch(std::move(vectors));
    const Asked asked = refreshRows(
        context, grid, rows, "Refreshing outputs",
        [&](int row) { return !grid.text(row, form::nameColumn).empty(); },
        [&](int row) { refreshOutput(context, *vector, row); });

    lock.release("Released Femap Lock");  // sic
    tellKept(context, asked);
    if (readsResults)
        tellOutputSet(context);
    logDebug(context.log, "At the end of RefreshOutputs_Click");
}

}  // namespace

void RefreshInputs_Click(Context& context)
{
    refreshInputs(context, context.form.InputsList.allRows());
}

void RefreshOutputs_Click(Context& context)
{
    refreshOutputs(context, context.form.OutputsList.allRows());
}

void refreshSelectedInputs(Context& context)
{
    refreshInputs(context, context.form.InputsList.selectedRows());
}

void refreshSelectedOutputs(Context& context)
{
    refreshOutputs(context, context.form.OutputsList.selectedRows());
}

}  // namespace selection
