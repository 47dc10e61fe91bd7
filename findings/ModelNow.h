// What FEMAP has now of that which the rows are of.
#pragma once

#include "findings/Finding.h"
#include "form/Context.h"

#include <string>
#include <vector>

namespace findings
{

/// A row, and what FEMAP has in its place.
struct Changed
{
    Place place;
    std::string now;
};

struct ModelNow
{
    std::vector<Place> goneEntities;
    std::vector<Place> goneVectors;
    std::vector<Place> goneResults;  // the vector has no value at the entity
    std::vector<Place> goneFunctions;
    std::vector<Changed> renamedFunctions;
    std::vector<Place> inactiveLoads;  // the active load set does not have their definition
    std::vector<Changed> otherValues;
};

/// Looks at every row that has a name; over COM in few calls. Changes neither rows nor model.
ModelNow readModelNow(form::Context& context);

}  // namespace findings
