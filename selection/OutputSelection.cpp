#include "selection/OutputSelection.h"

#include "logging/Module1.h"
#include "selection/OutputList.h"

#include <algorithm>
#include <iterator>
#include <set>

namespace selection
{

using femap::EntityType;
using logging::logDebug;
using logging::logPosition;

namespace
{

struct OutputKind
{
    std::string_view choice;
    EntityType type;
    std::string_view word;
    bool wantsEntities;  // else the maximum and minimum over all of them
};

struct ElementCategory
{
    int type;
    std::string_view category;
};

// clang-format off
constexpr OutputKind outputKinds[] = {
    {"Nodes",            EntityType::Node,    "Node", true},
    {"Nodes Min/Max",    EntityType::Node,    "Node", false},
    {"Elements",         EntityType::Element, "Elem", true},
    {"Elements Min/Max", EntityType::Element, "Elem", false},
};

constexpr ElementCategory elementCategories[] = {
    {femap::elementShear,             "ShearPanel"},
    {femap::elementShearParabolic,    "ShearPanel"},
    {femap::elementLaminate,          "LaminateElement"},
    {femap::elementLaminateParabolic, "LaminateElement"},
    {femap::elementBar,               "LineElement"},
    {femap::elementBeam,              "LineElement"},
    {femap::elementPlate,             "PlateElement"},
    {femap::elementPlateParabolic,    "PlateElement"},
    {femap::elementRod,               "LineElement"},
    {femap::elementSolidParabolic,    "SolidElement"},
    {femap::elementSolid,             "SolidElement"},
};
// clang-format on

constexpr std::string_view massChoice = "Mass Properties";

// Empty for a type that is not in the table; the dialog then lists the vectors of all elements.
std::string elementCategory(int type)
{
    const auto found = std::ranges::find(elementCategories, type, &ElementCategory::type);
    return found == std::end(elementCategories) ? "" : std::string(found->category);
}

bool hasResults(form::Context& context)
{
    const std::unique_ptr<femap::EntitySet> vectors = context.femap().feSet();
    vectors->AddAll(EntityType::OutputVector);
    if (vectors->count() != 0)
        return true;
    const std::string message = "Cannot select outputs without results loaded";
    form::showMessage(context, message);
    context.log.writeLogWithLevel(context.log.LogLevel_error, message);
    return false;
}

void showAndUpdate(form::Context& context, frmPropertyList& dialog, std::string_view word,
                   femap::EntitySet* set, int type = everyType)
{
    dialog.Show();
    UpdateOutputList(context, std::string(word), set, dialog.chosenEntries(), type);
}

// Shows the vectors for one type of element and adds rows for the elements of this type. Errors are
// reported and end here, so that the next type has its turn.
void offerElementType(form::Context& context, frmPropertyList& dialog, std::string_view word,
                      femap::EntitySet& set, int type)
{
    bool isFilled =
        context.error.attempt([&] { dialog.GetPropertyList("Output", elementCategory(type)); });
    if (!isFilled) {
        context.error.clear();
        isFilled = context.error.attempt([&] { dialog.GetPropertyList("Output", ""); });
    }
    if (isFilled)
        context.error.attempt([&] { showAndUpdate(context, dialog, word, &set, type); });
    reportPendingError(context, "After selecting element outputs");
}

// Asks once for every type of element in the set, in the order in which the types are met.
void offerElementTypes(form::Context& context, frmPropertyList& dialog, std::string_view word,
                       femap::EntitySet& picked)
{
    const std::unique_ptr<femap::Entity> element = context.femap().entity(std::string(word));
    const std::unique_ptr<femap::EntitySet> workingCopy = context.femap().feSet();
    workingCopy->Copy(picked.ID());  // rows are added from a set of their own

    std::set<int> seenTypes;
    const std::vector<int> ids = picked.ids();
    element->prefetch(ids, {{"type"}});
    for (const int id : ids) {
        if (!load(context, *element, word, id))
            continue;
        int type = 0;
        if (!context.error.attempt([&] { type = element->Type(); }))
            reportPendingError(context, "After reading the type of an element");
        else if (seenTypes.insert(type).second)
            offerElementType(context, dialog, word, *workingCopy, type);
    }
}

void selectVectors(form::Context& context, frmPropertyList& dialog, const OutputKind& kind)
{
    const bool isNode = kind.type == EntityType::Node;
    std::unique_ptr<femap::EntitySet> picked;
    if (kind.wantsEntities) {
        picked = context.femap().feSet();
        const std::string title = "Select " + std::string(kind.choice) + " to Analyze";
        context.form.returnCode = static_cast<int>(picked->Select(kind.type, true, title));
        if (picked->count() <= 0)
            return;
        if (!isNode) {
            offerElementTypes(context, dialog, kind.word, *picked);
            return;
        }
    }
    dialog.GetPropertyList("Output", isNode ? "Node" : "AllElements");
    showAndUpdate(context, dialog, kind.word, picked.get());
    logDebug(context.log, "Called update output list for ",
             isNode ? "" : "entity type=", kind.word);
}

}  // namespace

void OutputsButton_Click(form::Context& context, frmPropertyList& dialog)
{
    logPosition(context.log, "At start of OutputsButton_Click");
    if (!hasResults(context))
        return;
    const std::string& choice = context.form.OutputSelection.Text;
    logDebug(context.log, "output selection is ", choice);

    if (choice == massChoice) {
        dialog.GetPropertyList("MeshMass", "");
        showAndUpdate(context, dialog, massWord, nullptr);
        return;  // sic: without the log line at the end
    }
    const auto kind = std::ranges::find(outputKinds, choice, &OutputKind::choice);
    if (kind == std::end(outputKinds))
        return;
    selectVectors(context, dialog, *kind);
    logPosition(context.log, "At end of OutputsButton_Click");
}

}  // namespace selection
