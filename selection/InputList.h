// Adds rows to the input grid: one for every chosen field of every selected entity.
#pragma once

#include "form/Context.h"
#include "selection/EntityReading.h"
#include "selection/Outcome.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace selection
{

/// The name of the input parameter that is a field of one entity: "ThicknessAtProp12".
std::string variableName(std::string_view field, std::string_view prefix, int id);

/// Takes these entities, IDs ascending, or those of propertyType only. A variable that the grid has
/// already is removed instead of added; only one in the last row is replaced, and the only row
/// stays. Sorts by name. Tells nothing: the caller knows when the whole selection has ended.
/// prefix: "Node", "Elem", "Prop" or "Matl". The fields are as the property list dialog gives them.
Outcome UpdateInputList(form::Context& context, const std::string& prefix,
                        const std::vector<int>& ids, const std::vector<std::string>& selectedFields,
                        const std::map<std::string, std::string>& fieldMembers,
                        const std::map<std::string, std::string>& fieldIndexes,
                        int propertyType = everyType);

}  // namespace selection
