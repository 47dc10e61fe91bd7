// "feNode", "feElem", "feProp" or "feMatl" of the stand-in: holds a copy of one entity.
#pragma once

#include "femap/embedded/Members.h"
#include "standin/Object.h"

#include <span>

namespace standin
{

namespace embedded = femap::embedded;

template <class Data>
class EntityObject : public ObjectOf<EntityObject<Data>>
{
public:
    explicit EntityObject(Server& shared)
        : ObjectOf<EntityObject<Data>>(shared, embedded::Kind<Data>::object)
    {}

    static constexpr std::span<const library::Member> declarations =
        library::interfaceOf(embedded::Kind<Data>::object)->members;
    static std::span<const Member<EntityObject>> members();

    int get(int id);
    /// Stores the copy in the model.
    int store(int id);

    Data data;
};

}  // namespace standin
