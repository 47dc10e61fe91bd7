#pragma once

#include "femap/com/standin/EntityObject.h"

namespace femap::com::standin
{

// The members of entity objects that tell of many entities at once.
Variant getCoordArray(EntityObject<embedded::Node>& entity, Arguments& arguments);
Variant getAllNodes(EntityObject<embedded::Node>& entity, Arguments& arguments);
Variant getAllElements(EntityObject<embedded::Element>& entity, Arguments& arguments);
// Any mix of entities and places of their arrays.
Variant getPropertyValues(EntityObject<embedded::Property>& entity, Arguments& arguments);
Variant getMaterialValues(EntityObject<embedded::Material>& entity, Arguments& arguments);

}  // namespace femap::com::standin
