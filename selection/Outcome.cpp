#include "selection/Outcome.h"

#include "logging/Module1.h"

#include <algorithm>
#include <vector>

namespace selection
{

using form::Context;
using form::ParameterGrid;
using form::tellEngineer;

namespace
{

void sumUp(Cases& sum, const Cases& other)
{
    if (sum.count == 0)
        sum.first = other.first;
    sum.count += other.count;
}

void sumUp(Asked& sum, const Asked& other)
{
    sum.all += other.all;
    sum.refused += other.refused;
}

std::string andOthers(const Cases& cases)
{
    return cases.count == 1 ? cases.first
                            : cases.first + " (and " + std::to_string(cases.count - 1) + " more)";
}

void tellRefused(Context& context, const Asked& asked, std::string_view things)
{
    if (asked.refused != 0)
        tellEngineer(context, share(asked, things) +
                                  (asked.refused == 1 ? " could not be read; it has no rows"
                                                      : " could not be read; they have no rows"));
}

void tellHints(Context& context, const Outcome& outcome)
{
    form::Status& status = context.form.status;
    const Cases& out = outcome.takenOut;
    if (out.count == 1)
        status.tellHint(out.first +
                        " was in the list and is taken out; choose it again to have it");
    else if (out.count > 1)
        status.tellHint(std::to_string(out.count) +
                        " rows were in the list and are taken out; choose them again to have them");
    if (outcome.onlyRow.count != 0)
        status.tellHint(outcome.onlyRow.first);
    if (outcome.missingValues != 0)
        status.tellHint("No row for " + std::to_string(outcome.missingValues) +
                        (outcome.missingValues == 1 ? " value that the results do not have"
                                                    : " values that the results do not have"));
    if (outcome.emptyValues != 0)
        status.tellHint("Rows without a value: " + std::to_string(outcome.emptyValues));
    if (outcome.rows == 0 && !outcome.noRow.empty())
        status.tellHint(outcome.noRow);
}

}  // namespace

void Cases::add(std::string_view words)
{
    if (count++ == 0)
        first = words;
}

Outcome& Outcome::operator+=(const Outcome& other)
{
    rows += other.rows;
    entities = std::max(entities, other.entities);
    refusedEntities.insert(other.refusedEntities.begin(), other.refusedEntities.end());
    sumUp(vectors, other.vectors);
    sumUp(definitions, other.definitions);
    sumUp(loadValues, other.loadValues);
    emptyValues += other.emptyValues;
    missingValues += other.missingValues;
    sumUp(sameName, other.sameName);
    sumUp(takenOut, other.takenOut);
    sumUp(onlyRow, other.onlyRow);
    if (!other.failure.empty())
        failure = other.failure;
    if (!other.noRow.empty())
        noRow = other.noRow;
    return *this;
}

bool noteNamesakes(Context& context, Outcome& outcome, const ParameterGrid& grid,
                   const ParameterGrid::NameScan& scan, const std::string& newRow, bool isAdded)
{
    std::vector<std::string> found = scan.removed;
    if (scan.removalRefused)
        found.push_back(grid.rowText(1));
    const std::string name(form::cellOf(newRow, form::nameColumn));
    const std::string quantity = form::placeWords(newRow);
    const auto other = std::ranges::find_if(
        found, [&](const std::string& row) { return form::placeWords(row) != quantity; });
    const bool isSame = other == found.end();
    if (isSame && !scan.removalRefused)
        return true;

    std::string message = name + " is the only row and stays as it is";
    if (!isSame)
        message = name + " names two quantities: " + form::placeWords(*other) +
                  (scan.removalRefused ? " stays, " : " is taken out, ") + quantity +
                  (isAdded ? " takes its place" : " is not added");
    (isSame ? outcome.onlyRow : outcome.sameName).add(message);
    logging::logDebug(context.log, message);
    return isSame;
}

void tell(Context& context, const Outcome& outcome)
{
    tellHints(context, outcome);
    tellRefused(context, outcome.loadValues, "values of loads");
    tellRefused(context, outcome.definitions, "load definitions");
    tellRefused(context, outcome.vectors, "output vectors");
    tellRefused(context, {outcome.entities, outcome.refusedEntities.size()}, "entities");
    if (outcome.sameName.count != 0)  // the log has each of them
        form::showMessage(context, andOthers(outcome.sameName));
    if (!outcome.failure.empty())
        tellEngineer(context, outcome.failure);
}

std::string share(const Asked& asked, std::string_view things)
{
    return std::to_string(asked.refused) + " of " + std::to_string(asked.all) + " " +
           std::string(things);
}

}  // namespace selection
