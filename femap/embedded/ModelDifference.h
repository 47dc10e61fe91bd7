// What of a model was changed since it was read.
#pragma once

#include "femap/ModelValues.h"
#include "femap/neutral/Model.h"

namespace femap::embedded
{

/// The values that make the one model the other, of the entities, loads and functions that both
/// have; titles and results are not looked at.
ModelValues differences(const neutral::Model& before, const neutral::Model& now);

}  // namespace femap::embedded
