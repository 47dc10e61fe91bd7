#pragma once

#include "app/form/Context.h"
#include "femap/Objects.h"
#include "selection/EntityReading.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace selection
{

/// The name of the input parameter that is a field of one entity: "ThicknessAtProp12".
std::string variableName(std::string_view field, std::string_view prefix, int id);

/// Adds a row to the input grid for every chosen field of every entity of the set, or of those
/// whose type is the given one. A variable that the grid has already goes instead of being added
/// again, unless it was in the last row. Leaves the grid sorted by name.
/// prefix: "Node", "Elem", "Prop" or "Matl". The fields are as the property list dialog gives them.
void UpdateInputList(form::Context& context, const std::string& prefix, femap::EntitySet& set,
                     const std::vector<std::string>& selectedFields,
                     const std::map<std::string, std::string>& fieldMembers,
                     const std::map<std::string, std::string>& fieldIndexes,
                     int propertyType = everyType);

}  // namespace selection
