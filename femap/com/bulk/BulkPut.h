// Which values are put in few calls, and which one by one.
#pragma once

#include "femap/ModelValues.h"
#include "femap/com/bulk/Capability.h"
#include "femap/com/bulk/EntityPutter.h"

#include <span>
#include <vector>

namespace femap::com::bulk
{

/// Puts what can be put in fewer calls than one by one, and returns the rest in its order. One of
/// the numbers is read afterwards: when it is not what was put, or when FEMAP refuses, the
/// capability is withdrawn and all is returned. The values are of one kind of entities.
std::vector<EntityValue> putInBulk(std::span<const EntityValue> values, EntityPutter& putter,
                                   Capability& capability);

}  // namespace femap::com::bulk
