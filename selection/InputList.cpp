#include "selection/InputList.h"

#include "app/form/Progress.h"
#include "logging/Module1.h"
#include "selection/ParameterRows.h"

#include <cstddef>

namespace selection
{

using logging::ErrorNumber;
using logging::logDebug;
using logging::RuntimeError;

namespace
{

constexpr std::size_t longestField = 15;  // characters in front of "At", commas included

// A chosen field and where its value is.
struct ChosenField
{
    const std::string& name;
    const std::string& member;
    const std::string* indexText;  // null for a plain member
    int index;
};

std::vector<ChosenField> chosenFields(const std::vector<std::string>& names,
                                      const std::map<std::string, std::string>& members,
                                      const std::map<std::string, std::string>& indexes)
{
    std::vector<ChosenField> result;
    for (const std::string& name : names) {
        const auto index = indexes.find(name);
        const bool isIndexed = index != indexes.end();
        result.push_back({name, members.at(name), isIndexed ? &index->second : nullptr,
                          isIndexed ? wholeNumberIn(index->second) : 0});
    }
    return result;
}

// Removes the rows of that name. False when the variable is not to be added.
bool removeDuplicates(form::Context& context, const std::string& name)
{
    const form::ParameterGrid::NameScan scan = context.form.InputsList.removeRowsNamed(name);
    for (int i = 0; i < scan.removed; ++i)
        logDebug(context.log, "Deleted entry for ", name, "from Input List");  // sic
    if (scan.removalRefused) {
        context.error.attempt([&] {
            throw RuntimeError(ErrorNumber::CannotRemoveRow,
                               name + " is the last parameter row and cannot be removed");
        });
        reportPendingError(context, "After checking for duplicate entry in Input List");
    }
    // On purpose a toggle: a scan that runs past the shortened grid counts as failed, so choosing a
    // variable again takes its row away, and only the last row makes place for a fresh one.
    return !scan.removalRefused && !scan.ranPastTheEnd;
}

class InputRows
{
public:
    InputRows(form::Context& context, femap::Entity& entity, const std::string& prefix)
        : context_(context), entity_(entity), prefix_(prefix)
    {}

    // For the entity that is loaded.
    void add(int id, const std::vector<ChosenField>& fields)
    {
        logDebug(context_.log, "Got entity of id = ", id);
        logDebug(context_.log, "Iterating over property for each property names");
        for (const ChosenField& field : fields)
            add(id, field);
    }

private:
    void add(int id, const ChosenField& field)
    {
        const std::string name = variableName(field.name, prefix_, id);
        context_.error.clear();
        logDebug(context_.log, "Checking for duplicate entry in Input List");
        if (!removeDuplicates(context_, name))
            return;

        std::string value;  // stays empty when FEMAP refuses it
        const bool isRead = context_.error.attempt([&] { value = read(field); });
        std::string row =
            name + '\t' + value + '\t' + prefix_ + '\t' + std::to_string(id) + '\t' + field.member;
        if (field.indexText != nullptr)
            row += '\t' + *field.indexText;
        context_.form.InputsList.AddItem(row);
        logDebug(context_.log, "Added variable to Input list Variable Name=", name,
                 " value=", value, " EntityType=", prefix_, " ID=", id);
        if (!isRead)
            reportPendingError(context_, "After reading " + field.member);
    }

    std::string read(const ChosenField& field)
    {
        return femap::toText(field.indexText == nullptr
                                 ? entity_.member(field.member)
                                 : entity_.member(field.member, field.index));
    }

    form::Context& context_;
    femap::Entity& entity_;
    const std::string& prefix_;
};

}  // namespace

std::string variableName(std::string_view field, std::string_view prefix, int id)
{
    std::string name(firstCharacters(without(field, " -/"), longestField));
    name.append("At").append(prefix).append(std::to_string(id));
    return without(name, ",");  // sic: only after the cut, so a comma costs a character
}

void UpdateInputList(form::Context& context, const std::string& prefix, femap::EntitySet& set,
                     const std::vector<std::string>& selectedFields,
                     const std::map<std::string, std::string>& fieldMembers,
                     const std::map<std::string, std::string>& fieldIndexes, int propertyType)
{
    logDebug(context.log, "Before updating input list");
    form::lockFemap(context);
    logDebug(context.log, "Aquired FEMAP lock");  // sic
    context.form.setMousePointers(form::pointerHourglass);

    const std::unique_ptr<femap::Entity> entity = context.femap().entity(prefix);
    logDebug(context.log, "called entity fe", prefix);
    const std::vector<ChosenField> fields =
        chosenFields(selectedFields, fieldMembers, fieldIndexes);
    InputRows rows(context, *entity, prefix);

    form::Progress progress(context, "Reading inputs", static_cast<std::size_t>(set.count()));
    set.Reset();
    int id = set.Next();
    logDebug(context.log, "Start iterating over ID");
    for (; id != 0; id = set.Next()) {
        if (load(context, *entity, prefix, id) &&
            (propertyType == everyType || entity->Type() == propertyType))
            rows.add(id, fields);
        progress.step();
    }
    progress.finish();
    context.error.clear();

    form::ParameterGrid& grid = context.form.InputsList;
    grid.Col = form::ParameterGrid::nameColumn;
    grid.sortByName();
    removeBlankFirstRow(grid);

    form::unlockFemap(context);
    logDebug(context.log, "Released FEMAP lock");
    context.form.setMousePointers(form::pointerDefault);
    logDebug(context.log, "After updating input list");
}

}  // namespace selection
