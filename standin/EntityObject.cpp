#include "standin/EntityObject.h"

#include "femap/embedded/MemberTables.h"
#include "standin/EntityArrays.h"
#include "standin/Server.h"

#include <array>
#include <iterator>
#include <optional>
#include <string>
#include <utility>

namespace standin
{

using femap::embedded::readMember;

namespace
{

using neutral::Element;
using neutral::Material;
using neutral::Node;
using neutral::Property;

constexpr int beyondEveryArray = -1;

// Reads a member of the copy; an array member takes an index.
template <class Data>
Variant read(EntityObject<Data>& entity, Arguments& arguments)
{
    return toVariant(readMember(entity.data, std::string(arguments.member()), arguments.index(),
                                entity.server().host.indexBeyondArrayRaises));
}

// The title as the model holds it, control characters and all.
template <class Data>
Variant title(EntityObject<Data>& entity, Arguments&)
{
    return entity.data.title;
}

template <class Data>
Variant get(EntityObject<Data>& entity, Arguments& arguments)
{
    return entity.get(arguments.number(0));
}

template <class Data>
Variant exist(EntityObject<Data>& entity, Arguments& arguments)
{
    const auto& table = entity.server().host.openModel().*embedded::Kind<Data>::table;
    return table.find(arguments.number(0)) == nullptr ? failed : ok;
}

template <class Data>
Variant countSet(EntityObject<Data>& entity, Arguments&)
{
    const auto& table = entity.server().host.openModel().*embedded::Kind<Data>::table;
    return static_cast<int>(table.size());
}

// Pairs of IDs and titles in a range; 0, 0: all.
template <class Data>
Variant getTitleList(EntityObject<Data>& entity, Arguments& arguments)
{
    const auto [ids, titles] =
        titlesIn(entity.server().host.openModel().*embedded::Kind<Data>::table, arguments.number(0),
                 arguments.number(1), entity.server().modes);
    arguments.fill(2, static_cast<int>(ids.size()));
    if (ids.empty())
        return failed;
    arguments.fillAny(3, ids);
    arguments.fillAny(4, titles);
    return ok;
}

// The whole of an array member: "vpval" of "pval", "vmval" of "mval".
template <class Data, std::vector<double> Data::*array>
Variant wholeArray(EntityObject<Data>& entity, Arguments&)
{
    std::vector<double> numbers = entity.data.*array;
    numbers.resize(femap::numbersLength);
    return numbers;
}

// The offset of an end in a direction, both counted from 0.
Variant offset(EntityObject<Element>& entity, Arguments& arguments)
{
    constexpr int directions = 3;
    const int direction = arguments.number(1);
    const bool isBeyond = direction < 0 || direction >= directions;
    const int place = isBeyond ? beyondEveryArray : directions * arguments.number(0) + direction;
    return toVariant(
        readMember(entity.data, "offset", place, entity.server().host.indexBeyondArrayRaises));
}

// Writes a member of the copy; nothing reaches the model.
template <class Data, auto member>
void put(EntityObject<Data>& entity, Arguments& arguments)
{
    using Held = std::remove_reference_t<decltype(entity.data.*member)>;
    if constexpr (std::is_same_v<Held, double>)
        entity.data.*member = arguments.real(0);
    else if constexpr (std::is_same_v<Held, std::string>)
        entity.data.*member = arguments.text(0);
    else
        entity.data.*member = arguments.number(0);
}

template <class Data>
Variant store(EntityObject<Data>& entity, Arguments& arguments)
{
    return entity.store(arguments.number(0));
}

// Writes one of the named numbers of the copy.
void putNumber(EntityObject<Material>& entity, Arguments& arguments)
{
    for (const embedded::Member<Material>& member : embedded::membersOf(entity.data))
        if (member.name == arguments.member())
            entity.data.mval[static_cast<std::size_t>(member.element)] = arguments.real(0);
}

// clang-format off
constexpr Member<EntityObject<Node>> nodeMembers[] = {
    {"ID",            read, put<Node, &Node::id>},
    {"x",             read, put<Node, &Node::x>},
    {"y",             read, put<Node, &Node::y>},
    {"z",             read, put<Node, &Node::z>},
    {"layer",         read, put<Node, &Node::layer>},
    {"color",         read, put<Node, &Node::color>},
    {"type",          read},
    {"defCSys",       read, put<Node, &Node::defCSys>},
    {"outCSys",       read, put<Node, &Node::outCSys>},
    {"permBC",        read},
    {"Get",           get},
    {"Put",           store},
    {"Exist",         exist},
    {"CountSet",      countSet},
    {"GetCoordArray", getCoordArray},
    {"GetAllArray",   getAllNodes},
};

constexpr Member<EntityObject<Element>> elementMembers[] = {
    {"ID",            read, put<Element, &Element::id>},
    {"color",         read, put<Element, &Element::color>},
    {"propID",        read, put<Element, &Element::propID>},
    {"type",          read, put<Element, &Element::type>},
    {"topology",      read, put<Element, &Element::topology>},
    {"layer",         read, put<Element, &Element::layer>},
    {"orientID",      read, put<Element, &Element::orientID>},
    {"geomID",        read, put<Element, &Element::geomID>},
    {"PlateOffset",   read},
    {"MaterialAngle", read},
    {"offset",        offset},
    {"node",          read},
    {"orient",        read},
    {"Get",           get},
    {"Put",           store},
    {"Exist",         exist},
    {"CountSet",      countSet},
    {"GetAllArray",   getAllElements},
};

constexpr Member<EntityObject<Property>> propertyMembers[] = {
    {"ID",            read, put<Property, &Property::id>},
    {"layer",         read, put<Property, &Property::layer>},
    {"color",         read, put<Property, &Property::color>},
    {"matlID",        read, put<Property, &Property::matlID>},
    {"type",          read, put<Property, &Property::type>},
    {"refCS",         read, put<Property, &Property::refCS>},
    {"title",         title, put<Property, &Property::title>},
    {"vpval",         wholeArray<Property, &Property::pval>},
    {"pval",          read},
    {"Get",           get},
    {"Put",           store},
    {"Exist",         exist},
    {"CountSet",      countSet},
    {"GetValueArray", getPropertyValues},
    {"GetTitleList",  getTitleList},
};

template <std::size_t... number>
constexpr auto makeMaterialMembers(std::index_sequence<number...>)
{
    return std::to_array<Member<EntityObject<Material>>>({
        {"ID",      read, put<Material, &Material::id>},
        {"title",   title, put<Material, &Material::title>},
        {"color",   read, put<Material, &Material::color>},
        {"type",    read, put<Material, &Material::type>},
        {"layer",   read, put<Material, &Material::layer>},
        {"subtype", read, put<Material, &Material::subtype>},
        {femap::materialNumbers[number].name, read, putNumber}...,
        {"vmval",         wholeArray<Material, &Material::mval>},
        {"mval",          read},
        {"Get",           get},
        {"Put",           store},
        {"Exist",         exist},
        {"CountSet",      countSet},
        {"GetValueArray", getMaterialValues},
        {"GetTitleList",  getTitleList},
    });
}
constexpr auto materialMembers =
    makeMaterialMembers(std::make_index_sequence<std::size(femap::materialNumbers)>());
// clang-format on
static_assert(areDeclared(nodeMembers, EntityObject<Node>::declarations));
static_assert(areDeclared(elementMembers, EntityObject<Element>::declarations));
static_assert(areDeclared(propertyMembers, EntityObject<Property>::declarations));
static_assert(areDeclared(materialMembers, EntityObject<Material>::declarations));

}  // namespace

template <class Data>
int EntityObject<Data>::get(int id)
{
    const auto& table = this->server().host.openModel().*embedded::Kind<Data>::table;
    const Data* const found = table.find(id == 0 ? data.id : id);
    if (found == nullptr)
        return failed;
    data = *found;
    return ok;
}

template <class Data>
int EntityObject<Data>::store(int id)
{
    Data stored = data;
    stored.id = id == 0 ? data.id : id;
    if (stored.id <= 0)
        return failed;
    (this->server().host.openModel().*embedded::Kind<Data>::table).put(std::move(stored));
    return ok;
}

template <>
std::span<const Member<EntityObject<Node>>> EntityObject<Node>::members()
{
    return nodeMembers;
}
template <>
std::span<const Member<EntityObject<Element>>> EntityObject<Element>::members()
{
    return elementMembers;
}
template <>
std::span<const Member<EntityObject<Property>>> EntityObject<Property>::members()
{
    return propertyMembers;
}
template <>
std::span<const Member<EntityObject<Material>>> EntityObject<Material>::members()
{
    return materialMembers;
}

template class EntityObject<Node>;
template class EntityObject<Element>;
template class EntityObject<Property>;
template class EntityObject<Material>;

}  // namespace standin
