// The members of entity objects that read and write values of many entities at once.
#pragma once

#include "standin/EntityObject.h"

namespace standin
{

namespace neutral = femap::neutral;

Variant getCoordArray(EntityObject<neutral::Node>& entity, Arguments& arguments);
Variant getAllNodes(EntityObject<neutral::Node>& entity, Arguments& arguments);
Variant getAllElements(EntityObject<neutral::Element>& entity, Arguments& arguments);
// Any mix of entities and indices of their arrays.
Variant getPropertyValues(EntityObject<neutral::Property>& entity, Arguments& arguments);
Variant getMaterialValues(EntityObject<neutral::Material>& entity, Arguments& arguments);

// What they write is in the model at once. Nothing of it is when something does not fit.
Variant putCoordArray(EntityObject<neutral::Node>& entity, Arguments& arguments);
Variant putPropertyValues(EntityObject<neutral::Property>& entity, Arguments& arguments);
Variant putMaterialValues(EntityObject<neutral::Material>& entity, Arguments& arguments);
// One place of many entities.
Variant putPropertyValue(EntityObject<neutral::Property>& entity, Arguments& arguments);
Variant putMaterialValue(EntityObject<neutral::Material>& entity, Arguments& arguments);

}  // namespace standin
