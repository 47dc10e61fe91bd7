// The load definition object and the four load objects of the stand-in.
#include "femap/embedded/MemberTables.h"
#include "standin/Objects.h"
#include "standin/Server.h"

#include <algorithm>
#include <array>
#include <tuple>
#include <type_traits>
#include <utility>
#include <variant>

namespace standin
{

using femap::LoadDataType;

namespace
{

// Not for temperatures.
template <class Data>
constexpr bool hasValues = std::is_base_of_v<neutral::Load, Data>;

constexpr std::size_t valuesOfLoad = std::tuple_size_v<decltype(neutral::Load::load)>;

// A load of a definition: a load of the model host's.
template <class Data>
class LoadObject : public ObjectOf<LoadObject<Data>>
{
public:
    LoadObject(Server& shared, LoadOf load)
        : ObjectOf<LoadObject>(shared, "load"), load_(std::move(load))
    {}

    static constexpr std::span<const library::Member> declarations =
        library::interfaceOf(embedded::Kind<Data>::object)->members;
    static std::span<const Member<LoadObject>> members();

    Variant read(Arguments& arguments)
    {
        const std::string name(arguments.member());
        const std::optional<int> index = arguments.index();
        if (name == "LoadDefinitionID")
            return load_.definitionID;
        return toVariant(index ? load_.load->member(name, *index) : load_.load->member(name));
    }
    /// Into the load object; nothing reaches the model.
    void write(Arguments& arguments)
    {
        const std::string name(arguments.member());
        const bool hasIndex = arguments.size() > 1;
        load_.load->put(name, hasIndex ? std::optional(arguments.number(0)) : std::nullopt,
                        arguments.put().value());
        if (name == "LoadDefinitionID")
            load_.definitionID = arguments.number(0);
    }
    int store(int id) { return static_cast<int>(load_.load->Put(id)); }
    /// The whole of "load".
    Variant values(Arguments&)
    {
        std::vector<double> all(valuesOfLoad);
        for (std::size_t i = 0; i < all.size(); ++i)
            all[i] = std::get<double>(load_.load->member("load", static_cast<int>(i)));
        return all;
    }
    void putValues(Arguments& arguments)
    {
        const std::vector<double> all = arguments.put().reals();
        for (std::size_t i = 0; i < all.size(); ++i)
            load_.load->put("load", static_cast<int>(i), all[i]);
    }

protected:
    bool returnsColumns() const override { return false; }

private:
    LoadOf load_;
};

template <auto function, class Load>
void putInto(Load& load, Arguments& arguments)
{
    (load.*function)(arguments);
}

// The members that the model host serves, the array as a whole, and what stores the load.
template <class Data>
constexpr auto loadMembers()
{
    using Load = LoadObject<Data>;
    constexpr auto held = embedded::membersOf(embedded::Kind<Data>());
    std::array<Member<Load>, held.size() + (hasValues<Data> ? 2 : 1)> rows{};
    std::ranges::transform(held, rows.begin(), [](const embedded::Member<Data>& member) {
        return Member<Load>{member.name, serve<&Load::read>, putInto<&Load::write>};
    });
    rows[held.size()] = {"Put", serve<&Load::store>};
    if constexpr (hasValues<Data>)
        rows.back() = {"vload", serve<&Load::values>, putInto<&Load::putValues>};
    return rows;
}

template <class Data>
std::span<const Member<LoadObject<Data>>> LoadObject<Data>::members()
{
    static constexpr auto rows = loadMembers<Data>();
    static_assert(areDeclared(rows, declarations));
    return rows;
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

template <auto member>
void putOfDefinition(Definition& definition, Arguments& arguments)
{
    if constexpr (std::is_same_v<decltype(definition.loaded.*member), std::string&>)
        definition.loaded.*member = arguments.text(0);
    else
        definition.loaded.*member = arguments.number(0);
}

using Data = neutral::LoadDefinition;

// clang-format off
constexpr Member<LoadDefinitionObject> definitionMembers[] = {
    {"title",         ofDefinition<&Data::title>,    putOfDefinition<&Data::title>},
    {"loadType",      ofDefinition<&Data::loadType>, putOfDefinition<&Data::loadType>},
    {"dataType",      ofDefinition<&Data::dataType>, putOfDefinition<&Data::dataType>},
    {"ID",            ofDefinition<&Data::id>,       putOfDefinition<&Data::id>},
    {"setID",         serve<&Definition::setID>,     putSetID},
    {"Get",           serve<&Definition::get>},
    {"Put",           serve<&Definition::store>},
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
        return new LoadObject<embedded::MeshLoad>(server, std::move(load));
    case LoadDataType::Geometry:
        return new LoadObject<embedded::GeometryLoad>(server, std::move(load));
    case LoadDataType::NodalTemperature:
        return new LoadObject<embedded::NodalTemperature>(server, std::move(load));
    case LoadDataType::ElementalTemperature:
        return new LoadObject<embedded::ElementalTemperature>(server, std::move(load));
    }
    return nullptr;
}

LoadDefinitionObject::LoadDefinitionObject(Server& shared)
    : ObjectOf(shared, "feLoadDefinition"), walk_(shared.host)
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

int LoadDefinitionObject::store(int id)
{
    Data stored = loaded;
    if (id != 0)
        stored.id = id;
    return static_cast<int>(walk_.Put(setID, stored));
}

int LoadDefinitionObject::resetNextLoad()
{
    walked_ = loaded.id;
    walk_.Get(setID, walked_);
    return ok;
}

int LoadDefinitionObject::nextLoad(Arguments& arguments)
{
    std::unique_ptr<embedded::HostLoad> next = walk_.nextLoad();
    while (next == nullptr && walkOn())
        next = walk_.nextLoad();
    if (next == nullptr)
        return server().modes[Mode::WalkEndsMissing] ? static_cast<int>(ReturnCode::NotExist)
                                                     : failed;
    arguments.fillObject(0, makeLoad(server(), {std::move(next), walk_.dataType(), loaded.id}));
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
    walk_.Get(setID, walked_);
    return true;
}

int LoadDefinitionObject::countLoads()
{
    embedded::HostLoadDefinition walk(server().host);
    walk.Get(setID, loaded.id);
    int count = 0;
    while (walk.NextLoad() != nullptr)
        ++count;
    return count;
}

}  // namespace standin
