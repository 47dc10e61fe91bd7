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

using enum Type;

using neutral::Element;
using neutral::Material;
using neutral::Node;
using neutral::Property;

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
                 arguments.number(1));
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
    {{"ID",       property, {},   17000}, read, put<Node, &Node::id>},
    {{"x",        property, {},   10000}, read, put<Node, &Node::x>, R8},
    {{"y",        property, {},   10001}, read, put<Node, &Node::y>, R8},
    {{"z",        property, {},   10002}, read, put<Node, &Node::z>, R8},
    {{"layer",    property, {},   10003}, read, put<Node, &Node::layer>},
    {{"color",    property, {},   10004}, read, put<Node, &Node::color>},
    {{"type",     property, {},   10005}, read},
    {{"defCSys",  property, {},   10007}, read, put<Node, &Node::defCSys>},
    {{"outCSys",  property, {},   10008}, read, put<Node, &Node::outCSys>},
    {{"permBC",   property, {I4}, 18000}, read},
    {{"Get",      method,   {I4}, 29004}, get},
    {{"Put",      method,   {I4}, 29005}, store},
    {{"Exist",    method,   {I4}, 29006}, exist},
    {{"CountSet", method,   {},   29027}, countSet},
    {{"GetCoordArray", method, {I4, OutI4, OutAny, OutAny}, 20000}, getCoordArray},
    {{"GetAllArray",   method, {I4, OutI4, OutAny, OutAny, OutAny, OutAny, OutAny, OutAny, OutAny,
                                OutAny}, 20001}, getAllNodes},
};

constexpr Member<EntityObject<Element>> elementMembers[] = {
    {{"ID",            property, {},   17000}, read, put<Element, &Element::id>},
    {{"color",         property, {},   10000}, read, put<Element, &Element::color>},
    {{"propID",        property, {},   10001}, read, put<Element, &Element::propID>},
    {{"type",          property, {},   10002}, read, put<Element, &Element::type>},
    {{"topology",      property, {},   10003}, read, put<Element, &Element::topology>},
    {{"layer",         property, {},   10004}, read, put<Element, &Element::layer>},
    {{"orientID",      property, {},   10005}, read, put<Element, &Element::orientID>},
    {{"geomID",        property, {},   10007}, read, put<Element, &Element::geomID>},
    {{"PlateOffset",   property, {},   10015}, read},
    {{"MaterialAngle", property, {},   10016}, read},
    {{"offset",        property, {I4}, 18000}, read},  // one index for end and direction
    {{"node",          property, {I4}, 18002}, read},
    {{"orient",        property, {I4}, 18003}, read},
    {{"Get",           method,   {I4}, 20000}, get},
    {{"Put",           method,   {I4}, 20001}, store},
    {{"Exist",         method,   {I4}, 29006}, exist},
    {{"CountSet",      method,   {},   29027}, countSet},
    {{"GetAllArray",   method,   {I4, OutI4, OutAny, OutAny, OutAny, OutAny, OutAny, OutAny, OutAny,
                                  OutAny, OutAny, OutAny, OutAny, OutAny, OutAny, OutAny, OutAny},
                                       20004}, getAllElements},
};

constexpr Member<EntityObject<Property>> propertyMembers[] = {
    {{"ID",       property, {},   17000}, read, put<Property, &Property::id>},
    {{"layer",    property, {},   10000}, read, put<Property, &Property::layer>},
    {{"color",    property, {},   10001}, read, put<Property, &Property::color>},
    {{"matlID",   property, {},   10002}, read, put<Property, &Property::matlID>},
    {{"type",     property, {},   10003}, read, put<Property, &Property::type>},
    {{"refCS",    property, {},   10004}, read, put<Property, &Property::refCS>},
    {{"title",    property, {},   10009}, title, put<Property, &Property::title>, Text},
    {{"vpval",    property, {},   10500}, wholeArray<Property, &Property::pval>},
    {{"pval",     property, {I4}, 18002}, read},
    {{"Get",      method,   {I4}, 20000}, get},
    {{"Put",      method,   {I4}, 20001}, store},
    {{"Exist",    method,   {I4}, 29006}, exist},
    {{"CountSet", method,   {},   29027}, countSet},
    {{"GetValueArray", method, {I4, Any, Any, OutAny}, 20011, Generation::Modern},
        getPropertyValues},
    {{"GetTitleList",  method, {I4, I4, OutI4, OutAny, OutAny}, 29021}, getTitleList},
};

template <std::size_t... number>
constexpr auto makeMaterialMembers(std::index_sequence<number...>)
{
    return std::to_array<Member<EntityObject<Material>>>({
        {{"ID",                property, {},   17000}, read, put<Material, &Material::id>},
        {{"title",             property, {},   10000}, title, put<Material, &Material::title>,
            Text},
        {{"color",             property, {},   10001}, read, put<Material, &Material::color>},
        {{"type",              property, {},   10002}, read, put<Material, &Material::type>},
        {{"layer",             property, {},   10003}, read, put<Material, &Material::layer>},
        {{"subtype",           property, {},   10004}, read, put<Material, &Material::subtype>},
        {{femap::materialNumbers[number].name, property, {}, 10010 + static_cast<int>(number)},
            read, putNumber, R8}...,
        {{"vmval",             property, {},   10500}, wholeArray<Material, &Material::mval>},
        {{"mval",              property, {I4}, 18001}, read},
        {{"Get",               method,   {I4}, 20000}, get},
        {{"Put",               method,   {I4}, 20001}, store},
        {{"Exist",             method,   {I4}, 29006}, exist},
        {{"CountSet",          method,   {},   29027}, countSet},
        {{"GetValueArray",     method,   {I4, Any, Any, OutAny}, 20004, Generation::Modern},
            getMaterialValues},
        {{"GetTitleList",      method,   {I4, I4, OutI4, OutAny, OutAny}, 29021}, getTitleList},
    });
}
constexpr auto materialMembers =
    makeMaterialMembers(std::make_index_sequence<std::size(femap::materialNumbers)>());
// clang-format on
static_assert(hasOneOfEach(nodeMembers));
static_assert(hasOneOfEach(elementMembers));
static_assert(hasOneOfEach(propertyMembers));
static_assert(hasOneOfEach(materialMembers));

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
