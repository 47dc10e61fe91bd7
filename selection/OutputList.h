// Adds rows to the output grid: results of entities, extremes of output vectors, mass properties.
#pragma once

#include "form/Context.h"
#include "selection/EntityReading.h"
#include "selection/Outcome.h"

#include <string>
#include <string_view>
#include <vector>

namespace selection
{

/// Given instead of "Node" or "Elem": the mass properties of the whole mesh.
constexpr std::string_view massWord = "MeshMass";

/// For "Node" and "Elem": a row for each chosen vector and each of these entities (of elementType
/// only), or where ids is null the maximum and minimum of each vector; they replace rows of the
/// same names. For "MeshMass": the rows of each chosen quantity. Tells nothing: the caller knows
/// when the whole selection has ended. chosenEntries: vector IDs, or indexes in the list of mass
/// quantities.
Outcome UpdateOutputList(form::Context& context, const std::string& entityWord,
                         const std::vector<int>* ids, const std::vector<std::string>& chosenEntries,
                         int elementType = everyType);

}  // namespace selection
