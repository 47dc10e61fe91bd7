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

/// Loads the entity with this ID. When FEMAP has none: logs that at error level and returns false;
/// the object then still holds the entity loaded before and must not be read.
/// word: "Node", "Elem", "Prop" or "Matl".
bool load(form::Context& context, femap::Entity& entity, std::string_view word, int id);
/// The same for a vector of results.
bool load(form::Context& context, femap::OutputVector& vector, int id);

/// Logs the pending error and clears it. Writes nothing when there is none, unlike
/// logPositionAndClearErrorIfAny.
void reportPendingError(form::Context& context, std::string_view where);

/// The whole number in a cell or list entry, blanks around it allowed; else raises RuntimeError.
int wholeNumberIn(const std::string& text);

}  // namespace selection
