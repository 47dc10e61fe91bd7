#include "selection/TypeWalk.h"

#include "femap/ElementTypes.h"
#include "logging/Module1.h"
#include "selection/EntityReading.h"

#include <algorithm>
#include <set>

namespace selection
{

using logging::logDebug;

bool forEachType(form::Context& context, const TypedKind& kind, femap::Entity& entity,
                 const std::vector<int>& ids, Outcome& outcome,
                 const std::function<void(int type)>& visit,
                 std::map<int, std::vector<int>>* idsOfTypes)
{
    std::set<int> seen;
    bool areAllKnown = true;
    outcome.entities = ids.size();
    entity.prefetch(ids, {{"type"}});
    for (const int id : ids) {
        if (!load(context, entity, kind.word, id)) {
            outcome.refusedEntities.insert(id);
            continue;
        }
        if (kind.isLogged)
            logDebug(context.log, "Got entity of id = ", id);
        int type = 0;
        const bool isKnown = context.error.attempt([&] { type = entity.Type(); });
        reportPendingError(context, kind.afterType);
        if (!isKnown) {
            areAllKnown = false;
            outcome.refusedEntities.insert(id);
            continue;
        }
        if (idsOfTypes != nullptr)
            (*idsOfTypes)[type].push_back(id);
        if (seen.insert(type).second)
            visit(type);
    }
    return areAllKnown;
}

void offerType(form::Context& context, const TypedKind& kind, frmPropertyList& dialog, int type,
               Outcome& outcome, const std::function<void()>& showAndUpdate)
{
    const auto found = std::ranges::find(kind.lists, type, &TypeList::type);
    const std::string name(found == kind.lists.end() ? "" : found->name);
    const auto fill = [&](const std::string& list) {
        return context.error.attempt([&] { dialog.GetPropertyList(std::string(kind.list), list); });
    };
    bool isFilled = fill(name);
    if (kind.isLogged)
        logDebug(context.log, "Called the Form Property List for entity type=", kind.word);
    if (!isFilled) {
        context.error.clear();
        isFilled = fill("");
    }
    if (isFilled)
        context.error.attempt(showAndUpdate);
    if (context.error.isPending())
        outcome.failure = context.error.description();
    reportPendingError(context, kind.afterSelecting);
}

std::string askedFor(const TypedKind& kind, int wantedType)
{
    if (wantedType == everyType)
        return {};
    const std::string things(kind.things);
    const femap::ElementTypeWord* const known = femap::findElementTypeWord(wantedType);
    if (known == nullptr)
        return "The list is for " + things + " of type " + std::to_string(wantedType);
    const bool isParabolic = known->order == femap::ElementTypeWord::Parabolic;
    return std::string("The list is for ")
               .append(isParabolic ? "parabolic " : "")
               .append(known->word) +
           " " + things;
}

}  // namespace selection
