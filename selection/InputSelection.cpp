#include "selection/InputSelection.h"

#include "logging/Module1.h"
#include "selection/ElementTypes.h"
#include "selection/FunctionInputs.h"
#include "selection/InputList.h"
#include "selection/LoadDefinitionInputs.h"
#include "selection/Offer.h"

#include <algorithm>
#include <iterator>

namespace selection
{

using femap::EntityType;
using logging::logDebug;

namespace
{

struct EntityKind
{
    std::string_view choice;
    EntityType type;
    std::string_view prefix;
};

struct OwnProcedure
{
    std::string_view choice;
    void (*run)(form::Context&);
};

struct PropertyTypeName
{
    int type;
    std::string_view name;  // of the field list
};

// clang-format off
constexpr EntityKind entityKinds[] = {
    {"Nodes",      EntityType::Node,     "Node"},
    {"Elements",   EntityType::Element,  "Elem"},
    {"Properties", EntityType::Property, "Prop"},
    {"Materials",  EntityType::Material, "Matl"},
};

constexpr OwnProcedure ownProcedures[] = {
    {"Functions",      FetchFunctionData},
    {"LoadDefinition", UpdateLoadDefinitionInputs},
};

constexpr PropertyTypeName propertyTypeNames[] = {
    {femap::elementShear,          "Shear"},  // on purpose: there is no list of that name
    {femap::elementShearParabolic, "Shear"},
    {femap::elementBar,            "Bar"},
    {femap::elementBeam,           "Beam"},
    {femap::elementPlate,          "Plate"},
    {femap::elementPlateParabolic, "Plate"},
    {femap::elementRod,            "Rod"},
};
// clang-format on

constexpr std::string_view propertyPrefix = "Prop";

template <class Table>
auto findChoice(const Table& table, const std::string& choice)
{
    const auto found =
        std::ranges::find_if(table, [&](const auto& row) { return row.choice == choice; });
    return found == std::end(table) ? nullptr : &*found;
}

// Empty for a type that is not in the table; the dialog lists it as an undefined property.
std::string propertyTypeName(int type)
{
    const auto found = std::ranges::find(propertyTypeNames, type, &PropertyTypeName::type);
    return found == std::end(propertyTypeNames) ? "" : std::string(found->name);
}

struct PropertyTypes
{
    std::vector<int> types;  // each once, in the order of their first appearance
    bool areAllKnown = true;
};

// The types of the properties in the set.
PropertyTypes distinctTypes(form::Context& context, femap::EntitySet& set, Outcome& outcome)
{
    PropertyTypes result;
    std::vector<int>& types = result.types;
    const std::string prefix(propertyPrefix);
    const std::unique_ptr<femap::Entity> entity = context.femap().entity(prefix);
    const std::vector<int> ids = set.ids();
    outcome.entities = ids.size();
    entity->prefetch(ids, {{"type"}});
    for (const int id : ids) {
        if (!load(context, *entity, prefix, id)) {
            outcome.refusedEntities.insert(id);
            continue;
        }
        logDebug(context.log, "Got entity of id = ", id);
        int type = 0;
        if (!context.error.attempt([&] { type = entity->Type(); })) {
            result.areAllKnown = false;
            outcome.refusedEntities.insert(id);
        }
        else if (std::ranges::find(types, type) == types.end())
            types.push_back(type);
        reportPendingError(context, "After reading the type of a property");
    }
    return result;
}

void showAndUpdate(form::Context& context, frmPropertyList& dialog, Outcome& outcome,
                   const std::string& prefix, femap::EntitySet& set, int type,
                   const std::string& askedFor = {})
{
    offer(context, dialog, outcome, askedFor);
    outcome += UpdateInputList(context, prefix, set, dialog.selectedFields, dialog.fieldMembers,
                               dialog.fieldIndexes, type);
}

// Shows the dialog for one type of property and adds rows for the properties of wantedType (this
// one or every type). Errors are reported and end here, so that the next type has its turn.
void offerPropertyType(form::Context& context, frmPropertyList& dialog, Outcome& outcome,
                       femap::EntitySet& set, int type, int wantedType)
{
    const std::string prefix(propertyPrefix);
    const std::string askedFor =
        wantedType == everyType ? "" : "The list is for " + ofType(type, "properties");
    bool isFilled =
        context.error.attempt([&] { dialog.GetPropertyList(prefix, propertyTypeName(type)); });
    logDebug(context.log, "Called the Form Property List for entity type=", prefix);
    if (!isFilled) {
        context.error.clear();
        isFilled = context.error.attempt([&] { dialog.GetPropertyList(prefix, ""); });
    }
    if (isFilled)
        context.error.attempt(
            [&] { showAndUpdate(context, dialog, outcome, prefix, set, wantedType, askedFor); });
    if (context.error.isPending())
        outcome.failure = context.error.description();
    reportPendingError(context, "After selecting property fields");
}

void selectProperties(form::Context& context, frmPropertyList& dialog, Outcome& outcome,
                      femap::EntitySet& set)
{
    const PropertyTypes found = distinctTypes(context, set, outcome);
    // When all have the same type, it need not be read again for each.
    const bool areAlike = found.areAllKnown && found.types.size() == 1;
    for (const int type : found.types)
        offerPropertyType(context, dialog, outcome, set, type, areAlike ? everyType : type);
}

void selectEntities(form::Context& context, frmPropertyList& dialog, const EntityKind& kind)
{
    Outcome outcome;
    const std::unique_ptr<femap::EntitySet> set = context.femap().feSet();
    const std::string title = "Select " + std::string(kind.choice) + " to Control";
    context.form.returnCode = static_cast<int>(set->Select(kind.type, true, title));
    if (set->count() <= 0) {
        noteNothingPicked(outcome, context.form.returnCode);
    }
    else if (kind.type == EntityType::Property) {
        selectProperties(context, dialog, outcome, *set);
    }
    else {
        const std::string prefix(kind.prefix);
        dialog.GetPropertyList(prefix, "");
        logDebug(context.log, "Called the Form Property List for entity type=", prefix);
        showAndUpdate(context, dialog, outcome, prefix, *set, everyType);
    }
    tell(context, outcome);
}

}  // namespace

void InputsButton_Click(form::Context& context, frmPropertyList& dialog)
{
    logDebug(context.log, "Before click of Select for input parameter");
    const std::string& choice = context.form.InputSelection.Text;
    logDebug(context.log, "input selection is ", choice);

    if (const EntityKind* const kind = findChoice(entityKinds, choice))
        selectEntities(context, dialog, *kind);
    else if (const OwnProcedure* const procedure = findChoice(ownProcedures, choice))
        procedure->run(context);
    else
        form::tellEngineer(context, choice + " type not currently supported");

    logDebug(context.log, "After click of Select for input parameter");
}

}  // namespace selection
