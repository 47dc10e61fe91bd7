// The load definition object and the four load objects of the stand-in.
#include "femap/embedded/HostObjects.h"
#include "standin/Objects.h"
#include "standin/Server.h"

#include <algorithm>
#include <utility>

namespace standin
{

using femap::LoadDataType;

namespace
{

using enum Type;

// A load of a definition. The four classes differ only in their tables of members.
template <LoadDataType type>
class LoadObject : public ObjectOf<LoadObject<type>>
{
public:
    LoadObject(Server& shared, std::unique_ptr<MemberObject> load)
        : ObjectOf<LoadObject<type>>(shared, "load"), load_(std::move(load))
    {}

    static std::span<const Member<LoadObject>> members();

    Variant read(Arguments& arguments)
    {
        const std::string name(arguments.member());
        const std::optional<int> index = arguments.index();
        return toVariant(index ? load_->member(name, *index) : load_->member(name));
    }

private:
    std::unique_ptr<MemberObject> load_;
};

using MeshLoad = LoadObject<LoadDataType::Mesh>;
using GeometryLoad = LoadObject<LoadDataType::Geometry>;
using NodalTemperature = LoadObject<LoadDataType::NodalTemperature>;
using ElementalTemperature = LoadObject<LoadDataType::ElementalTemperature>;

// clang-format off
constexpr Member<MeshLoad> meshLoadMembers[] = {
    {{"meshID",           property, {},   10000}, serve<&MeshLoad::read>},
    {{"color",            property, {},   10001}, serve<&MeshLoad::read>},
    {{"layer",            property, {},   10002}, serve<&MeshLoad::read>},
    {{"type",             property, {},   10005}, serve<&MeshLoad::read>},
    {{"subtype",          property, {},   10006}, serve<&MeshLoad::read>},
    {{"expanded",         property, {},   10008}, serve<&MeshLoad::read>},
    {{"LoadDefinitionID", property, {},   10009}, serve<&MeshLoad::read>},
    {{"FaceNumber",       property, {},   10012}, serve<&MeshLoad::read>},
    {{"ID",               property, {},   17000}, serve<&MeshLoad::read>},
    {{"setID",            property, {},   17001}, serve<&MeshLoad::read>},
    {{"load",             property, {I4}, 18003}, serve<&MeshLoad::read>},
};

constexpr Member<GeometryLoad> geometryLoadMembers[] = {
    {{"color",            property, {},   10001}, serve<&GeometryLoad::read>},
    {{"layer",            property, {},   10002}, serve<&GeometryLoad::read>},
    {{"expanded",         property, {},   10008}, serve<&GeometryLoad::read>},
    {{"geomID",           property, {},   10011}, serve<&GeometryLoad::read>},
    {{"type",             property, {},   10016}, serve<&GeometryLoad::read>},
    {{"subtype",          property, {},   10017}, serve<&GeometryLoad::read>},
    {{"LoadDefinitionID", property, {},   10020}, serve<&GeometryLoad::read>},
    {{"FaceNumber",       property, {},   10023}, serve<&GeometryLoad::read>},
    {{"geomTYPE",         property, {},   10072}, serve<&GeometryLoad::read>},
    {{"ID",               property, {},   17000}, serve<&GeometryLoad::read>},
    {{"setID",            property, {},   17001}, serve<&GeometryLoad::read>},
    {{"load",             property, {I4}, 18006}, serve<&GeometryLoad::read>},
};

template <class Load>
constexpr Member<Load> temperatureMembers[] = {
    {{"temp",             property, {}, 10000}, serve<&Load::read>},
    {{"phase",            property, {}, 10001}, serve<&Load::read>},
    {{"LoadDefinitionID", property, {}, 10006}, serve<&Load::read>},
    {{"ID",               property, {}, 17000}, serve<&Load::read>},
    {{"setID",            property, {}, 17001}, serve<&Load::read>},
};
// clang-format on
static_assert(hasOneOfEach(meshLoadMembers));
static_assert(hasOneOfEach(geometryLoadMembers));
static_assert(hasOneOfEach(temperatureMembers<NodalTemperature>));

template <>
std::span<const Member<MeshLoad>> MeshLoad::members()
{
    return meshLoadMembers;
}
template <>
std::span<const Member<GeometryLoad>> GeometryLoad::members()
{
    return geometryLoadMembers;
}
template <>
std::span<const Member<NodalTemperature>> NodalTemperature::members()
{
    return temperatureMembers<NodalTemperature>;
}
template <>
std::span<const Member<ElementalTemperature>> ElementalTemperature::members()
{
    return temperatureMembers<ElementalTemperature>;
}

using Definition = LoadDefinitionObject;

template <auto member>
Variant ofDefinition(Definition& definition, Arguments&)
{
    return definition.loaded.*member;
}

void putSetID(Definition& definition, Arguments& arguments)
{
    definition.setID = arguments.number(0);
}

using Data = neutral::LoadDefinition;

// clang-format off
constexpr Member<LoadDefinitionObject> definitionMembers[] = {
    {{"title",         property, {},          10000}, ofDefinition<&Data::title>},
    {{"loadType",      property, {},          10001}, ofDefinition<&Data::loadType>},
    {{"dataType",      property, {},          10002}, ofDefinition<&Data::dataType>},
    {{"ID",            property, {},          17000}, ofDefinition<&Data::id>},
    {{"setID",         property, {},          17001}, serve<&Definition::setID>, putSetID},
    {{"Get",           method,   {I4},        20001}, serve<&Definition::get>},
    {{"ResetNextLoad", method,   {},          20003}, serve<&Definition::resetNextLoad>},
    {{"NextLoad",      method,   {OutObject}, 20004}, serve<&Definition::nextLoad>},
    {{"CountLoads",    method,   {},          20005}, serve<&Definition::countLoads>},
};
// clang-format on
static_assert(hasOneOfEach(definitionMembers));

}  // namespace

IDispatch* makeLoad(Server& server, int dataType, std::unique_ptr<MemberObject> load)
{
    switch (static_cast<LoadDataType>(dataType)) {
    case LoadDataType::Mesh:
        return new MeshLoad(server, std::move(load));
    case LoadDataType::Geometry:
        return new GeometryLoad(server, std::move(load));
    case LoadDataType::NodalTemperature:
        return new NodalTemperature(server, std::move(load));
    case LoadDataType::ElementalTemperature:
        return new ElementalTemperature(server, std::move(load));
    }
    return nullptr;
}

LoadDefinitionObject::LoadDefinitionObject(Server& shared)
    : ObjectOf(shared, "feLoadDefinition"), walk_(embedded::makeLoadDefinition(shared.host))
{}

std::span<const Member<LoadDefinitionObject>> LoadDefinitionObject::members()
{
    return definitionMembers;
}

int LoadDefinitionObject::get(int id)
{
    const neutral::LoadSet* const set = server().host.openModel().loadSets.find(setID);
    if (set == nullptr)
        return failed;
    const int wanted = id == 0 ? loaded.id : id;
    const auto found = std::find_if(set->definitions.begin(), set->definitions.end(),
                                    [&](const Data& one) { return one.id == wanted; });
    if (found == set->definitions.end())
        return failed;
    loaded = *found;
    walk_->Get(setID, wanted);
    return ok;
}

int LoadDefinitionObject::resetNextLoad()
{
    walk_->ResetNextLoad();
    return ok;
}

int LoadDefinitionObject::nextLoad(Arguments& arguments)
{
    std::unique_ptr<MemberObject> next = walk_->NextLoad();
    if (next == nullptr)
        return failed;
    arguments.fillObject(0, makeLoad(server(), loaded.dataType, std::move(next)));
    return ok;
}

int LoadDefinitionObject::countLoads()
{
    const std::unique_ptr<LoadDefinition> walk = embedded::makeLoadDefinition(server().host);
    walk->Get(setID, loaded.id);
    int count = 0;
    while (walk->NextLoad() != nullptr)
        ++count;
    return count;
}

}  // namespace standin
