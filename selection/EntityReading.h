// Loads entities and output vectors from FEMAP by their IDs, and reads whole numbers from cells.
#pragma once

#include "femap/Objects.h"
#include "form/Context.h"

#include <string>
#include <string_view>

namespace selection
{

/// Given instead of a type's number: entities of every type.
constexpr int everyType = -1;

/// Load the entity, or the vector of results, with this ID, and give true. When FEMAP answers with
/// a code that is no Ok: log that as any error is, and give false, so that others have their turn;
/// the object then still holds what was loaded before and must not be read. word: "Node", "Elem",
/// "Prop" or "Matl".
bool load(form::Context& context, femap::Entity& entity, std::string_view word, int id);
bool load(form::Context& context, femap::OutputVector& vector, int id);

/// The same; such a code raises RuntimeError.
void demand(femap::Entity& entity, std::string_view word, int id);
void demand(femap::OutputVector& vector, int id);

/// Logs that FEMAP answered with a code: "FEMAP has no load definition with the ID 7".
void reportRefusal(form::Context& context, std::string_view what, int id);

/// Logs the pending error and clears it. Writes nothing when there is none, unlike
/// logPositionAndClearErrorIfAny.
void reportPendingError(form::Context& context, std::string_view where);

/// The whole number in a cell or list entry, blanks around it allowed; else raises RuntimeError.
int wholeNumberIn(const std::string& text);

}  // namespace selection
