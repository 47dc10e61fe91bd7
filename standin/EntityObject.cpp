#include "standin/EntityObject.h"

#include "femap/embedded/MemberTables.h"
#include "standin/EntityArrays.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>
#include <string>
#include <type_traits>

namespace standin
{

namespace
{

using neutral::Element;
using neutral::Material;
using neutral::Node;
using neutral::Property;

constexpr int beyondEveryArray = -1;

// An array member takes an index.
template <class Data>
Variant read(EntityObject<Data>& self, Arguments& arguments)
{
    const std::string name(arguments.member());
    const std::optional<int> index = arguments.index();
    return toVariant(index ? self.entity.member(name, *index) : self.entity.member(name));
}

// The title as the model holds it, control characters and all.
template <class Data>
Variant title(EntityObject<Data>& self, Arguments&)
{
    return self.entity.data().title;
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

// The whole of an array member, such as "vpval" of "pval".
template <class Data, auto array>
Variant wholeArray(EntityObject<Data>& self, Arguments&)
{
    const auto& held = self.entity.data().*array;
    std::vector numbers(held.begin(), held.end());
    if constexpr (std::is_same_v<decltype(held), const std::vector<double>&>)
        numbers.resize(femap::numbersLength);
    return numbers;
}

// The same the other way round, into the loaded entity.
template <class Data>
void putWholeArray(EntityObject<Data>& self, Arguments& arguments)
{
    const std::string name(arguments.member().substr(1));
    const std::vector<double> numbers = arguments.put().reals();
    for (std::size_t i = 0; i < numbers.size(); ++i)
        self.entity.put(name, static_cast<int>(i), numbers[i]);
}

// The place of the offset of an end in a direction, both counted from 0.
int placeOfOffset(const Arguments& arguments)
{
    constexpr int directions = 3;
    const int direction = arguments.number(1);
    const bool isBeyond = direction < 0 || direction >= directions;
    return isBeyond ? beyondEveryArray : directions * arguments.number(0) + direction;
}

Variant offset(EntityObject<Element>& self, Arguments& arguments)
{
    return toVariant(self.entity.member("offset", placeOfOffset(arguments)));
}

void putOffset(EntityObject<Element>& self, Arguments& arguments)
{
    self.entity.put("offset", placeOfOffset(arguments), arguments.put().value());
}

// Writes a member of the loaded entity; nothing reaches the model.
template <class Data>
void put(EntityObject<Data>& self, Arguments& arguments)
{
    const bool hasIndex = arguments.size() > 1;
    self.entity.put(std::string(arguments.member()),
                    hasIndex ? std::optional(arguments.number(0)) : std::nullopt,
                    arguments.put().value());
}

template <class Data>
constexpr Member<EntityObject<Data>> rowOf(const embedded::Member<Data>& held)
{
    Member<EntityObject<Data>> row{held.name, read, put};
    if constexpr (std::is_same_v<Data, Property> || std::is_same_v<Data, Material>)
        if (held.name == "title")
            row.serve = title;
    if constexpr (std::is_same_v<Data, Element>)
        if (held.name == "offset") {
            row.serve = offset;
            row.put = putOffset;
        }
    return row;
}

// The members that the model host serves, and more.
template <class Data, std::size_t more>
constexpr auto withHeld(const Member<EntityObject<Data>> (&others)[more])
{
    using Object = EntityObject<Data>;
    constexpr auto held = embedded::membersOf(embedded::Kind<Data>());
    constexpr Member<Object> ofEach[] = {
        {"Get", serve<&Object::get>},
        {"Put", serve<&Object::store>},
        {"Exist", exist},
        {"CountSet", countSet},
    };
    std::array<Member<Object>, held.size() + std::size(ofEach) + more> rows{};
    const auto after = std::transform(held.begin(), held.end(), rows.begin(), rowOf<Data>);
    std::copy(std::begin(others), std::end(others),
              std::copy(std::begin(ofEach), std::end(ofEach), after));
    return rows;
}

// clang-format off
constexpr auto nodeMembers = withHeld<Node>({
    {"GetCoordArray", getCoordArray},
    {"GetAllArray",   getAllNodes},
    {"PutCoordArray", putCoordArray},
});

constexpr auto elementMembers = withHeld<Element>({
    {"vnode",         wholeArray<Element, &Element::node>,   putWholeArray},
    {"vorient",       wholeArray<Element, &Element::orient>, putWholeArray},
    {"GetAllArray",   getAllElements},
});

constexpr auto propertyMembers = withHeld<Property>({
    {"vpval",         wholeArray<Property, &Property::pval>, putWholeArray},
    {"GetValueArray", getPropertyValues},
    {"PutValueArray", putPropertyValues},
    {"PutValue",      putPropertyValue},
    {"GetTitleList",  getTitleList},
});

constexpr auto materialMembers = withHeld<Material>({
    {"vmval",         wholeArray<Material, &Material::mval>, putWholeArray},
    {"GetValueArray", getMaterialValues},
    {"PutValueArray", putMaterialValues},
    {"PutValue",      putMaterialValue},
    {"GetTitleList",  getTitleList},
});
// clang-format on
static_assert(areDeclared(nodeMembers, EntityObject<Node>::declarations));
static_assert(areDeclared(elementMembers, EntityObject<Element>::declarations));
static_assert(areDeclared(propertyMembers, EntityObject<Property>::declarations));
static_assert(areDeclared(materialMembers, EntityObject<Material>::declarations));

}  // namespace

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
