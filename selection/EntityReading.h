#pragma once

#include "app/form/Context.h"
#include "femap/Objects.h"

#include <string>
#include <string_view>

namespace selection
{

/// In place of the number of a sub-type: entities of all of them.
constexpr int everyType = -1;

/// Loads the entity with this ID. False, with a line in the log at error level, when FEMAP has
/// none: then the object still holds the entity before and must not be read.
/// word: "Node", "Elem", "Prop" or "Matl".
bool load(form::Context& context, femap::Entity& entity, std::string_view word, int id);
/// The same for a vector of results.
bool load(form::Context& context, femap::OutputVector& vector, int id);

/// Reports the pending error, if there is one, and clears it. Unlike the error check after a risky
/// step it writes nothing when all is well.
void reportPendingError(form::Context& context, std::string_view where);

/// A cell or list entry that holds a whole number, with blanks around it allowed. Raises
/// RuntimeError when it holds anything else.
int wholeNumberIn(const std::string& text);

}  // namespace selection
