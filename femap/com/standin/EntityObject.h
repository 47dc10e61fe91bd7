#pragma once

#include "femap/com/standin/Object.h"
#include "femap/embedded/Members.h"

#include <span>

namespace femap::com::standin
{

/// "feNode", "feElem", "feProp" or "feMatl": holds a copy of one entity.
template <class Data>
class EntityObject : public ObjectOf<EntityObject<Data>>
{
public:
    explicit EntityObject(Server& shared)
        : ObjectOf<EntityObject<Data>>(shared, embedded::Kind<Data>::object)
    {}

    static std::span<const Member<EntityObject>> members();

    int get(int id);
    /// Stores the copy in the model.
    int store(int id);

    Data data;
};

}  // namespace femap::com::standin
