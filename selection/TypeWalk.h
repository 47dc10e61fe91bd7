// Entities of several types: the types are met one after the other, and the list is shown for each.
#pragma once

#include "form/Context.h"
#include "selection/Outcome.h"
#include "selection/PropertyListDialog.h"

#include <functional>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace selection
{

/// The name under which the property list dialog has a list for a type of element.
struct TypeList
{
    int type;
    std::string_view name;
};

/// Entities that have a list for each type, and the words that are theirs.
struct TypedKind
{
    std::string_view word;  // of the entity: "Prop" or "Elem"
    std::string_view list;  // of the dialog: "Prop" or "Output"
    std::span<const TypeList> lists;
    std::string_view things;  // "properties"
    bool isLogged;            // that each was loaded, and that its list is filled
    std::string_view afterType;
    std::string_view afterSelecting;
};

/// Visits each type once, when it is first met; idsOfTypes, where given, gets the entities of each.
/// False when the type of an entity is not known.
bool forEachType(form::Context& context, const TypedKind& kind, femap::Entity& entity,
                 const std::vector<int>& ids, Outcome& outcome,
                 const std::function<void(int type)>& visit,
                 std::map<int, std::vector<int>>* idsOfTypes = nullptr);

/// Fills the dialog for one type, or for every type when there is no list for this one, and goes
/// on. Errors are reported and end here, so that the next type has its turn.
void offerType(form::Context& context, const TypedKind& kind, frmPropertyList& dialog, int type,
               Outcome& outcome, const std::function<void()>& showAndUpdate);

/// What the engineer is told where the list is for one of several types; else nothing.
std::string askedFor(const TypedKind& kind, int wantedType);

}  // namespace selection
