#include "selection/OutputSelection.h"

#include "logging/Module1.h"
#include "selection/Offer.h"
#include "selection/OutputList.h"
#include "selection/OutputSets.h"
#include "selection/TypeWalk.h"

#include <algorithm>
#include <iterator>
#include <optional>

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

// clang-format off
constexpr OutputKind outputKinds[] = {
    {"Nodes",            EntityType::Node,    "Node", true},
    {"Nodes Min/Max",    EntityType::Node,    "Node", false},
    {"Elements",         EntityType::Element, "Elem", true},
    {"Elements Min/Max", EntityType::Element, "Elem", false},
};

constexpr TypeList elementLists[] = {
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

// For a type that is not in the table the vectors of all elements are listed.
constexpr TypedKind typedElements = {"Elem",
                                     "Output",
                                     elementLists,
                                     "elements",
                                     false,
                                     "After reading the type of an element",
                                     "After selecting element outputs"};

// The IDs of the vectors that can be read. When there is none, tells so.
std::vector<int> vectorsWithResults(form::Context& context)
{
    const std::unique_ptr<femap::EntitySet> vectors = context.femap().feSet();
    if (vectors->AddAll(EntityType::OutputVector) != femap::ReturnCode::Ok)
        context.form.status.tellHint("FEMAP may not have listed all output vectors");
    std::vector<int> ids = vectors->ids();
    if (ids.empty()) {
        const std::string message = "Cannot select outputs without results loaded";
        form::showMessage(context, message);
        context.log.writeLogWithLevel(context.log.LogLevel_error, message);
    }
    return ids;
}

// The engineer may have solved, loaded other results or activated another output set since the
// lists of results were built.
void renewLists(form::Context& context, frmPropertyList& dialog, const std::vector<int>& vectorIDs)
{
    const int outputSet = context.femap().Info_ActiveID(EntityType::OutputSet);
    if (!dialog.isBuiltFrom(outputSet, vectorIDs))
        dialog.UpdateCollection();
    if (dialog.refusedVectors() != 0)
        context.form.status.tellHint("Not in the list, for FEMAP refuses them: " +
                                     std::to_string(dialog.refusedVectors()) + " output vectors");
}

void showAndUpdate(form::Context& context, frmPropertyList& dialog, Outcome& outcome,
                   std::string_view word, const std::vector<int>* ids, int type = everyType,
                   int list = 1)
{
    dialog.asked = {ids == nullptr ? std::vector<int>() : *ids, list};
    offer(context, dialog, outcome, askedFor(typedElements, type));
    outcome += UpdateOutputList(context, std::string(word), ids, dialog.chosenEntries(), type);
}

// Asks once for every type of element in the set, in the order in which the types are met.
void offerElementTypes(form::Context& context, frmPropertyList& dialog, Outcome& outcome,
                       femap::EntitySet& picked)
{
    const std::string word(typedElements.word);
    const std::unique_ptr<femap::Entity> element = context.femap().entity(word);
    const std::unique_ptr<femap::EntitySet> workingCopy = context.femap().feSet();
    if (workingCopy->Copy(picked.ID()) != femap::ReturnCode::Ok)  // rows have a set of their own
        throw sys::RuntimeError(sys::ErrorNumber::ObjectFailed,
                                "FEMAP could not copy the selected elements");
    const std::vector<int> ids = workingCopy->ids();
    int list = 0;
    forEachType(context, typedElements, *element, picked.ids(), outcome, [&](int type) {
        ++list;
        offerType(context, typedElements, dialog, type, outcome,
                  [&] { showAndUpdate(context, dialog, outcome, word, &ids, type, list); });
    });
}

void selectVectors(form::Context& context, frmPropertyList& dialog, Outcome& outcome,
                   const OutputKind& kind)
{
    const bool isNode = kind.type == EntityType::Node;
    std::optional<std::vector<int>> ids;
    if (kind.wantsEntities) {
        const std::unique_ptr<femap::EntitySet> picked = context.femap().feSet();
        const std::string title = "Select " + std::string(kind.choice) + " to Analyze";
        context.form.returnCode = static_cast<int>(picked->Select(kind.type, true, title));
        if (picked->count() <= 0) {
            noteNothingPicked(outcome, context.form.returnCode);
            return;
        }
        if (!isNode) {
            offerElementTypes(context, dialog, outcome, *picked);
            return;
        }
        ids = picked->ids();
    }
    dialog.GetPropertyList("Output", isNode ? "Node" : "AllElements");
    showAndUpdate(context, dialog, outcome, kind.word, ids ? &*ids : nullptr);
    logDebug(context.log, "Called update output list for ",
             isNode ? "" : "entity type=", kind.word);
}

}  // namespace

void OutputsButton_Click(form::Context& context, frmPropertyList& dialog)
{
    logPosition(context.log, "At start of OutputsButton_Click");
    const std::vector<int> vectorIDs = vectorsWithResults(context);
    if (vectorIDs.empty())
        return;
    const std::string& choice = context.form.OutputSelection.Text;
    logDebug(context.log, "output selection is ", choice);

    Outcome outcome;
    if (choice == massChoice) {
        dialog.GetPropertyList("MeshMass", "");
        showAndUpdate(context, dialog, outcome, massWord, nullptr);
        tell(context, outcome);
        return;  // sic: without the log line at the end
    }
    const auto kind = std::ranges::find(outputKinds, choice, &OutputKind::choice);
    if (kind == std::end(outputKinds)) {
        context.form.status.tellProblem(choice + " type not currently supported");
        return;  // sic: only the status line tells
    }
    renewLists(context, dialog, vectorIDs);
    selectVectors(context, dialog, outcome, *kind);
    if (outcome.rows != 0)
        tellOutputSet(context);
    tell(context, outcome);
    logPosition(context.log, "At end of OutputsButton_Click");
}

}  // namespace selection
