#pragma once

#include "app/form/Context.h"
#include "femap/Objects.h"
#include "selection/EntityReading.h"

#include <string>
#include <string_view>
#include <vector>

namespace selection
{

/// In place of "Node" or "Elem": the mass properties of the whole mesh.
constexpr std::string_view massWord = "MeshMass";

/// Adds rows to the output grid. For "Node" and "Elem": one for each chosen vector and entity of
/// the set, or of those whose type is the given one; without a set the maximum and the minimum of
/// each vector. A row that has the name already gives way. For "MeshMass": the rows of each chosen
/// quantity.
/// chosenEntries: vector IDs, or places in the list of mass quantities.
void UpdateOutputList(form::Context& context, const std::string& entityWord, femap::EntitySet* set,
                      const std::vector<std::string>& chosenEntries, int elementType = everyType);

}  // namespace selection
