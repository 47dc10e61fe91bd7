// "feNode", "feElem", "feProp" or "feMatl" of the stand-in: an entity object of the model host's,
// with FEMAP's ways to change it and to read many entities.
#pragma once

#include "femap/embedded/HostEntity.h"
#include "standin/Object.h"
#include "standin/Server.h"

#include <span>

namespace standin
{

namespace embedded = femap::embedded;

template <class Data>
class EntityObject : public ObjectOf<EntityObject<Data>>
{
public:
    explicit EntityObject(Server& shared)
        : ObjectOf<EntityObject<Data>>(shared, embedded::Kind<Data>::object), entity(shared.host)
    {}

    static constexpr std::span<const library::Member> declarations =
        library::interfaceOf(embedded::Kind<Data>::object)->members;
    static std::span<const Member<EntityObject>> members();

    int get(int id) { return static_cast<int>(entity.Get(id)); }
    int store(int id) { return static_cast<int>(entity.Put(id)); }

    embedded::HostEntity<Data> entity;
};

}  // namespace standin
