#pragma once

#include "femap/Application.h"

#include <functional>
#include <string>
#include <vector>

namespace comtest
{

using Lines = std::vector<std::string>;

// Each asks FEMAP for everything of one sort and writes down every answer; a refusal is an answer
// too. Two FEMAPs with the same model give the same lines. pick says how the engineer answers the
// next dialog.
Lines ofApplication(femap::Application& femap);
Lines ofSets(femap::Application& femap);
Lines ofSelections(femap::Application& femap, const std::function<void(const char*)>& pick);
Lines ofEntities(femap::Application& femap);
Lines ofOutputVectors(femap::Application& femap);
Lines ofFunctions(femap::Application& femap, const std::function<void(const char*)>& pick);
Lines ofLoadDefinitions(femap::Application& femap);
Lines ofMassProperties(femap::Application& femap);

}  // namespace comtest
