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

constexpr std::span<const library::Member> declaredOf(LoadDataType type)
{
    switch (type) {
    case LoadDataType::Mesh:
        return library::ILoadMesh;
    case LoadDataType::Geometry:
        return library::ILoadGeom;
    case LoadDataType::NodalTemperature:
        return library::ILoadNTemp;
    case LoadDataType::ElementalTemperature:
        return library::ILoadETemp;
    }
    return {};
}

// A load of a definition. The four classes differ only in their tables of members.
template <LoadDataType type>
class LoadObject : public ObjectOf<LoadObject<type>>
{
public:
    LoadObject(Server& shared, LoadOf load)
        : ObjectOf<LoadObject<type>>(shared, "load"), load_(std::move(load))
    {}

    static constexpr std::span<const library::Member> declarations = declaredOf(type);
    static std::span<const Member<LoadObject>> members();

    Variant read(Arguments& arguments)
    {
        const std::string name(arguments.member());
        const std::optional<int> index = arguments.index();
        if (name == "LoadDefinitionID")
            return load_.definitionID;
        return toVariant(index ? load_.load->member(name, *index) : load_.load->member(name));
    }

private:
    LoadOf load_;
};

using MeshLoad = LoadObject<LoadDataType::Mesh>;
using GeometryLoad = LoadObject<LoadDataType::Geometry>;
using NodalTemperature = LoadObject<LoadDataType::NodalTemperature>;
using ElementalTemperature = LoadObject<LoadDataType::ElementalTemperature>;

// clang-format off
constexpr Member<MeshLoad> meshLoadMembers[] = {
    {"meshID",           serve<&MeshLoad::read>},
    {"color",            serve<&MeshLoad::read>},
    {"layer",            serve<&MeshLoad::read>},
    {"type",             serve<&MeshLoad::read>},
    {"subtype",          serve<&MeshLoad::read>},
    {"expanded",         serve<&MeshLoad::read>},
    {"LoadDefinitionID", serve<&MeshLoad::read>},
    {"FaceNumber",       serve<&MeshLoad::read>},
    {"ID",               serve<&MeshLoad::read>},
    {"setID",            serve<&MeshLoad::read>},
    {"load",             serve<&MeshLoad::read>},
};

constexpr Member<GeometryLoad> geometryLoadMembers[] = {
    {"color",            serve<&GeometryLoad::read>},
    {"layer",            serve<&GeometryLoad::read>},
    {"expanded",         serve<&GeometryLoad::read>},
    {"geomID",           serve<&GeometryLoad::read>},
    {"type",             serve<&GeometryLoad::read>},
    {"subtype",          serve<&GeometryLoad::read>},
    {"LoadDefinitionID", serve<&GeometryLoad::read>},
    {"FaceNumber",       serve<&GeometryLoad::read>},
    {"geomTYPE",         serve<&GeometryLoad::read>},
    {"ID",               serve<&GeometryLoad::read>},
    {"setID",            serve<&GeometryLoad::read>},
    {"load",             serve<&GeometryLoad::read>},
};

constexpr Member<NodalTemperature> nodalTemperatureMembers[] = {
    {"temp",             serve<&NodalTemperature::read>},
    {"phase",            serve<&NodalTemperature::read>},
    {"LoadDefinitionID", serve<&NodalTemperature::read>},
    {"ID",               serve<&NodalTemperature::read>},
    {"setID",            serve<&NodalTemperature::read>},
};

// The model host holds no gradients.
Variant noGradient(ElementalTemperature&, Arguments&)
{
    return 0.0;
}

constexpr Member<ElementalTemperature> elementalTemperatureMembers[] = {
    {"temp",             serve<&ElementalTemperature::read>},
    {"phase",            serve<&ElementalTemperature::read>},
    {"LoadDefinitionID", serve<&ElementalTemperature::read>},
    {"gradient",         noGradient},
    {"ID",               serve<&ElementalTemperature::read>},
    {"setID",            serve<&ElementalTemperature::read>},
};
// clang-format on
static_assert(areDeclared(meshLoadMembers, MeshLoad::declarations));
static_assert(areDeclared(geometryLoadMembers, GeometryLoad::declarations));
static_assert(areDeclared(nodalTemperatureMembers, NodalTemperature::declarations));
static_assert(areDeclared(elementalTemperatureMembers, ElementalTemperature::declarations));

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
    return nodalTemperatureMembers;
}
template <>
std::span<const Member<ElementalTemperature>> ElementalTemperature::members()
{
    return elementalTemperatureMembers;
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
    {"title",         ofDefinition<&Data::title>},
    {"loadType",      ofDefinition<&Data::loadType>},
    {"dataType",      ofDefinition<&Data::dataType>},
    {"ID",            ofDefinition<&Data::id>},
    {"setID",         serve<&Definition::setID>, putSetID},
    {"Get",           serve<&Definition::get>},
    {"ResetNextLoad", serve<&Definition::resetNextLoad>},
    {"NextLoad",      serve<&Definition::nextLoad>},
    {"CountLoads",    serve<&Definition::countLoads>},
};
// clang-format on
static_assert(areDeclared(definitionMembers, LoadDefinitionObject::declarations));

}  // namespace

IDispatch* makeLoad(Server& server, LoadOf load)
{
    switch (static_cast<LoadDataType>(load.dataType)) {
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
    return resetNextLoad();
}

int LoadDefinitionObject::resetNextLoad()
{
    walked_ = loaded.id;
    walk_->Get(setID, walked_);
    return ok;
}

int LoadDefinitionObject::nextLoad(Arguments& arguments)
{
    std::unique_ptr<MemberObject> next = walk_->NextLoad();
    while (next == nullptr && walkOn())
        next = walk_->NextLoad();
    if (next == nullptr)
        return server().modes[Mode::WalkEndsMissing] ? static_cast<int>(ReturnCode::NotExist)
                                                     : failed;
    arguments.fillObject(0, makeLoad(server(), {std::move(next), walk_->dataType(), loaded.id}));
    return ok;
}

// Takes the walk to the next definition of another kind, which this one seems to hold as well.
bool LoadDefinitionObject::walkOn()
{
    const neutral::LoadSet* const set = server().host.openModel().loadSets.find(setID);
    if (set == nullptr || !server().modes[Mode::MixedLoads])
        return false;
    const int after = walked_ == loaded.id ? 0 : walked_;
    const auto other = std::ranges::find_if(set->definitions, [&](const Data& one) {
        return one.id > after && one.dataType != loaded.dataType;
    });
    if (other == set->definitions.end())
        return false;
    walked_ = other->id;
    walk_->Get(setID, walked_);
    return true;
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
