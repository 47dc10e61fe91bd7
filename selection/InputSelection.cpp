#include "selection/InputSelection.h"

#include "logging/Module1.h"
#include "selection/FunctionInputs.h"
#include "selection/InputList.h"
#include "selection/LoadDefinitionInputs.h"
#include "selection/Offer.h"
#include "selection/TypeWalk.h"

#include <algorithm>
#include <iterator>
#include <map>

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

constexpr TypeList propertyLists[] = {
    {femap::elementShear,          "Shear"},  // on purpose: there is no list of that name
    {femap::elementShearParabolic, "Shear"},
    {femap::elementBar,            "Bar"},
    {femap::elementBeam,           "Beam"},
    {femap::elementPlate,          "Plate"},
    {femap::elementPlateParabolic, "Plate"},
    {femap::elementRod,            "Rod"},
};
// clang-format on

// A type that is not in the table is listed as an undefined property.
constexpr TypedKind typedProperties = {form::propertyKind,
                                       form::propertyKind,
                                       propertyLists,
                                       "properties",
                                       true,
                                       "After reading the type of a property",
                                       "After selecting property fields"};

template <class Table>
auto findChoice(const Table& table, const std::string& choice)
{
    const auto found =
        std::ranges::find_if(table, [&](const auto& row) { return row.choice == choice; });
    return found == std::end(table) ? nullptr : &*found;
}

void showAndUpdate(form::Context& context, frmPropertyList& dialog, Outcome& outcome,
                   const std::string& prefix, const std::vector<int>& ids, int type,
                   const std::string& askedFor = {})
{
    offer(context, dialog, outcome, askedFor);
    outcome += UpdateInputList(context, prefix, ids, dialog.selectedFields, dialog.fieldMembers,
                               dialog.fieldIndexes, type);
}

void selectProperties(form::Context& context, frmPropertyList& dialog, Outcome& outcome,
                      femap::EntitySet& set)
{
    const std::string prefix(typedProperties.word);
    const std::unique_ptr<femap::Entity> entity = context.femap().entity(prefix);
    const std::vector<int> ids = set.ids();
    std::map<int, std::vector<int>> idsOfTypes;
    std::vector<int> types;
    const bool areAllKnown = forEachType(
        context, typedProperties, *entity, ids, outcome, [&](int type) { types.push_back(type); },
        &idsOfTypes);
    // When all have the same type, it need not be read again for each.
    const bool areAlike = areAllKnown && types.size() == 1;
    int list = 0;
    for (const int type : types) {
        dialog.asked = {idsOfTypes[type], ++list, static_cast<int>(types.size())};
        const int wanted = areAlike ? everyType : type;
        offerType(context, typedProperties, dialog, type, outcome, [&] {
            showAndUpdate(context, dialog, outcome, prefix, ids, wanted,
                          askedFor(typedProperties, wanted));
        });
    }
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
        const std::vector<int> ids = set->ids();
        dialog.asked = {ids};
        showAndUpdate(context, dialog, outcome, prefix, ids, everyType);
    }
    tell(context, outcome);
}

}  // namespace

const FieldList* fieldListFor(std::string_view kind, int type)
{
    const auto* const found = std::ranges::find(propertyLists, type, &TypeList::type);
    const bool isNamed = kind == form::propertyKind && found != std::end(propertyLists);
    return findFieldList(kind, isNamed ? found->name : std::string_view());
}

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
