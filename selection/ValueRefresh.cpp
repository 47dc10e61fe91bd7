#include "selection/ValueRefresh.h"

#include "form/FemapLock.h"
#include "form/Progress.h"
#include "logging/Module1.h"
#include "selection/EntityReading.h"
#include "selection/MassQuantities.h"
#include "selection/Outcome.h"
#include "selection/OutputSets.h"
#include "selection/RefreshPlan.h"

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace selection
{

using form::Context;
using form::ParameterGrid;
using logging::logDebug;
using sys::ErrorNumber;
using sys::RuntimeError;

namespace
{

// One entity object for each kind, made on first use and then told what to prefetch.
class Entities
{
public:
    Entities(Context& context, const ParameterGrid& grid)
        : context_(context), plan_(inputsToRead(grid))
    {}

    femap::Entity& operator[](const std::string& kind)
    {
        std::unique_ptr<femap::Entity>& entity = made_[kind];
        if (entity == nullptr) {
            entity = context_.femap().entity(kind);
            const KindReading& reading = plan_[kind];
            entity->prefetch(reading.ids, reading.members);
        }
        return *entity;
    }

private:
    Context& context_;
    std::map<std::string, KindReading> plan_;
    std::map<std::string, std::unique_ptr<femap::Entity>> made_;
};

int wholeNumberAt(const ParameterGrid& grid, int row, int column)
{
    return wholeNumberIn(grid.text(row, column));
}

// Walks over the parameter rows. One that cannot be refreshed is reported and keeps its value.
// isWanted: whether a row is one that is read again.
template <class IsWanted, class Refresh>
Asked refreshRows(Context& context, const ParameterGrid& grid, const std::string& what,
                  const IsWanted& isWanted, const Refresh& refresh)
{
    Asked asked;
    const int rows = grid.Rows();
    form::Progress progress(context, what, static_cast<std::size_t>(rows - 1));
    for (int row = 1; row < rows; ++row) {
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

void refreshInput(Context& context, Entities& entities, int row)
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
    const std::string member = grid.text(row, form::inputColumn::member);
    const bool isPlain = grid.text(row, form::inputColumn::index).empty();
    const femap::Value value =
        isPlain ? entity.member(member)
                : entity.member(member, wholeNumberAt(grid, row, form::inputColumn::index));
    grid.setText(row, form::valueColumn, femap::toText(value));
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
    const double value = vector.Value(wholeNumberAt(grid, row, form::outputColumn::first));
    grid.setText(row, form::valueColumn, femap::toText(value));
}

// Each row is measured anew, however many there are.
void refreshMassProperty(Context& context, int row)
{
    ParameterGrid& grid = context.form.OutputsList;
    const femap::MassProperties measured = measure(context, *allElements(context));

    const std::string tag = grid.text(row, form::outputColumn::first);
    const MassQuantity* const quantity = findMassQuantity(tag);
    if (quantity == nullptr)
        throw RuntimeError(ErrorNumber::InvalidCall, "There is no mass quantity \"" + tag + "\"");
    const int component =
        quantity->isScalar() ? 0 : wholeNumberAt(grid, row, form::outputColumn::second);
    grid.setText(row, form::valueColumn, femap::toText(massValue(*quantity, measured, component)));
    logUpdate(context, row);
}

void refreshOutputMember(Context& context, femap::OutputVector& vector, int row)
{
    ParameterGrid& grid = context.form.OutputsList;
    demand(vector, wholeNumberAt(grid, row, form::outputColumn::second));
    const femap::Value value = vector.member(grid.text(row, form::outputColumn::kind));
    grid.setText(row, form::valueColumn, femap::toText(value));
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

}  // namespace

void RefreshInputs_Click(Context& context)
{
    logDebug(context.log, "At the start of RefreshInputs_Click");
    form::FemapLock lock(context, "Acquired Femap lock");
    const ParameterGrid& grid = context.form.InputsList;
    logDebug(context.log, "Number of rowsto refresh  in input list = ", grid.Rows());  // sic

    Entities entities(context, grid);
    const Asked asked = refreshRows(
        context, grid, "Refreshing inputs",
        [&](int row) { return isRefreshed(grid.text(row, form::inputColumn::kind)); },
        [&](int row) { refreshInput(context, entities, row); });

    lock.release("Released Femap lock");
    tellKept(context, asked);
    logDebug(context.log, "At the end of RefreshInputs_Click");
}

void RefreshOutputs_Click(Context& context)
{
    logDebug(context.log, "At the start of RefreshOutputs_Click");
    form::FemapLock lock(context, "Acquired Femap lock");

    const auto vector = context.femap().feOutput();
    std::vector<femap::VectorReading> vectors = outputsToRead(context.form.OutputsList);
    const bool readsResults = !vectors.empty();
    vector->prefetch(std::move(vectors));
    const ParameterGrid& grid = context.form.OutputsList;
    const Asked asked = refreshRows(
        context, grid, "Refreshing outputs",
        [&](int row) { return !grid.text(row, form::nameColumn).empty(); },
        [&](int row) { refreshOutput(context, *vector, row); });

    lock.release("Released Femap Lock");  // sic
    tellKept(context, asked);
    if (readsResults)
        tellOutputSet(context);
    logDebug(context.log, "At the end of RefreshOutputs_Click");
}

}  // namespace selection
