#include "selection/InputList.h"

#include "form/FemapLock.h"
#include "form/Progress.h"
#include "logging/Module1.h"
#include "selection/ParameterRows.h"

#include <cstddef>
#include <optional>

namespace selection
{

using logging::logDebug;
using sys::ErrorNumber;

namespace
{

constexpr std::size_t longestField = 15;  // characters in front of "At", commas included

// The name of a variable up to the ID.
std::string nameStart(std::string_view field, std::string_view prefix)
{
    std::string name(femap::firstCharacters(without(field, " -/"), longestField));
    name.append("At").append(prefix);
    return without(name, ",");  // sic: only after the cut, so a comma costs a character
}

// A chosen field: where its value is, and what is the same in all of its rows.
struct ChosenField
{
    const std::string& member;
    std::optional<int> index;  // none for a plain member
    std::string nameStart;
    std::string_view indexText;
};

std::vector<ChosenField> chosenFields(const std::string& prefix,
                                      const std::vector<std::string>& names,
                                      const std::map<std::string, std::string>& members,
                                      const std::map<std::string, std::string>& indexes)
{
    std::vector<ChosenField> result;
    for (const std::string& name : names) {
        const std::string& member = members.at(name);
        ChosenField& field =
            result.emplace_back(ChosenField{member, {}, nameStart(name, prefix), {}});
        const auto index = indexes.find(name);
        if (index == indexes.end())
            continue;
        field.index = wholeNumberIn(index->second);
        field.indexText = index->second;
    }
    return result;
}

// The members that are read of each entity.
std::vector<femap::MemberName> membersOf(const std::vector<ChosenField>& fields, int propertyType)
{
    std::vector<femap::MemberName> result;
    if (propertyType != everyType)
        result.push_back({"type"});
    for (const ChosenField& field : fields)
        result.push_back({field.member, field.index});
    return result;
}

class InputRows
{
public:
    InputRows(form::Context& context, femap::Entity& entity, const std::string& prefix,
              Outcome& outcome)
        : context_(context), entity_(entity), prefix_(prefix), outcome_(outcome)
    {}

    // Adds a row for each field of the entity that is loaded.
    void add(int id, const std::vector<ChosenField>& fields)
    {
        logDebug(context_.log, "Got entity of id = ", id);
        logDebug(context_.log, "Iterating over property for each property names");
        const std::string idText = std::to_string(id);
        for (const ChosenField& field : fields)
            add(idText, field);
    }

private:
    void add(const std::string& id, const ChosenField& field)
    {
        name_.assign(field.nameStart).append(id);
        context_.error.clear();
        logDebug(context_.log, "Checking for duplicate entry in Input List");
        if (!removeDuplicates(id, field))
            return;

        std::string value;  // stays empty when FEMAP refuses it
        const bool isRead = context_.error.attempt([&] { value = read(field); });
        makeRow(value, id, field);
        context_.form.InputsList.AddItem(row_);
        ++outcome_.rows;
        outcome_.emptyValues += value.empty() ? 1 : 0;
        logDebug(context_.log, "Added variable to Input list Variable Name=", name_,
                 " value=", value, " EntityType=", prefix_, " ID=", id);
        if (!isRead)
            reportPendingError(context_, "After reading " + field.member);
    }

    // Removes the rows of the new row's name. False when the variable is not to be added.
    bool removeDuplicates(const std::string& id, const ChosenField& field)
    {
        form::ParameterGrid& grid = context_.form.InputsList;
        const form::ParameterGrid::NameScan scan = grid.removeRowsNamed(name_);
        for (std::size_t i = 0; i < scan.removed.size(); ++i)
            logDebug(context_.log, "Deleted entry for ", name_, "from Input List");  // sic
        if (scan.removalRefused) {
            context_.error.note({ErrorNumber::CannotRemoveRow,
                                 name_ + " is the last parameter row and cannot be removed"});
            reportPendingError(context_, "After checking for duplicate entry in Input List");
        }
        // On purpose a toggle: a scan that runs past the shortened grid counts as failed, so
        // choosing a variable again removes its row and adds none. Only a row at the end of the
        // grid is replaced.
        const bool isAdded = !scan.removalRefused && !scan.ranPastTheEnd;
        if (scan.foundAny()) {
            makeRow({}, id, field);
            const bool isSame = noteNamesakes(context_, outcome_, grid, scan, row_, isAdded);
            if (isSame && scan.ranPastTheEnd)
                outcome_.takenOut.add(name_);
        }
        return isAdded;
    }

    void makeRow(std::string_view value, const std::string& id, const ChosenField& field)
    {
        form::InputCells{name_, value, prefix_, id, field.member, field.indexText}.joinIn(row_);
    }

    std::string read(const ChosenField& field)
    {
        return femap::toText(field.index ? entity_.member(field.member, *field.index)
                                         : entity_.member(field.member));
    }

    form::Context& context_;
    femap::Entity& entity_;
    const std::string& prefix_;
    Outcome& outcome_;
    std::string name_;  // reused for every row, to save memory allocations
    std::string row_;
};

}  // namespace

std::string variableName(std::string_view field, std::string_view prefix, int id)
{
    return nameStart(field, prefix) + std::to_string(id);
}

Outcome UpdateInputList(form::Context& context, const std::string& prefix,
                        const std::vector<int>& ids, const std::vector<std::string>& selectedFields,
                        const std::map<std::string, std::string>& fieldMembers,
                        const std::map<std::string, std::string>& fieldIndexes, int propertyType)
{
    logDebug(context.log, "Before updating input list");
    form::FemapLock lock(context, "Aquired FEMAP lock");  // sic

    const std::unique_ptr<femap::Entity> entity = context.femap().entity(prefix);
    logDebug(context.log, "called entity fe", prefix);
    const std::vector<ChosenField> fields =
        chosenFields(prefix, selectedFields, fieldMembers, fieldIndexes);
    Outcome outcome;
    InputRows rows(context, *entity, prefix, outcome);

    outcome.entities = ids.size();
    entity->prefetch(ids, membersOf(fields, propertyType));
    form::Progress progress(context, "Reading inputs", ids.size());
    logDebug(context.log, "Start iterating over ID");
    for (const int id : ids) {
        if (!load(context, *entity, prefix, id))
            outcome.refusedEntities.insert(id);
        else if (propertyType == everyType || entity->Type() == propertyType)
            rows.add(id, fields);
        progress.step();
    }
    progress.finish();
    context.error.clear();

    form::ParameterGrid& grid = context.form.InputsList;
    grid.Col = form::nameColumn;
    grid.sortByName();
    removeBlankFirstRow(grid);

    lock.release("Released FEMAP lock");
    logDebug(context.log, "After updating input list");
    return outcome;
}

}  // namespace selection
