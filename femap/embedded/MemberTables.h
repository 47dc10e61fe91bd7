// The members that FEMAP's objects have in the model host, and which value of the model each reads.
#pragma once

#include "femap/Constants.h"
#include "femap/Numbers.h"
#include "femap/embedded/Members.h"

#include <array>
#include <cstddef>
#include <iterator>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace femap::embedded
{

/// Points to the value of a member in an object's data.
template <class Data>
using DataPointer = std::variant<bool Data::*, int Data::*, double Data::*, std::string Data::*,
                                 std::array<bool, 6> Data::*, std::array<int, 20> Data::*,
                                 std::array<double, 3> Data::*, std::array<double, 5> Data::*,
                                 std::array<double, 6> Data::*, std::vector<double> Data::*>;

/// One member by its name.
template <class Data>
struct Member
{
    std::string_view name;
    DataPointer<Data> pointer;
    int element = -1;  // for a name of one number of an array: the index of that number
    bool (*appliesTo)(const Data&) = nullptr;  // for other entities the member reads as 0
};

/// The place of the temperature among a load's values; -1 for a load without one.
int placeOfTemperature(const neutral::Load& load);

template <class Data>
bool hasTemperature(const Data& load)
{
    return placeOfTemperature(load) >= 0;
}

inline bool isPlanar(const Element& element)
{
    return element.type >= elementShear && element.type <= elementAxisymmetricParabolic;
}

// clang-format off
inline constexpr Member<Node> nodeMembers[] = {
    {"ID",      &Node::id},
    {"x",       &Node::x},
    {"y",       &Node::y},
    {"z",       &Node::z},
    {"defCSys", &Node::defCSys},
    {"outCSys", &Node::outCSys},
    {"layer",   &Node::layer},
    {"color",   &Node::color},
    {"type",    &Node::type},
    {"permBC",  &Node::permBC},
};

inline constexpr Member<Element> elementMembers[] = {
    {"ID",            &Element::id},
    {"type",          &Element::type},
    {"propID",        &Element::propID},
    {"color",         &Element::color},
    {"layer",         &Element::layer},
    {"topology",      &Element::topology},
    {"geomID",        &Element::geomID},
    {"orientID",      &Element::orientID},
    {"orient",        &Element::orient},
    {"node",          &Element::node},
    {"offset",        &Element::offset},
    {"MaterialAngle", &Element::orient, 0, isPlanar},  // other elements have a vector there
    {"PlateOffset",   &Element::offset, 0},
};

inline constexpr Member<Property> propertyMembers[] = {
    {"ID",     &Property::id},
    {"title",  &Property::title},
    {"color",  &Property::color},
    {"layer",  &Property::layer},
    {"type",   &Property::type},
    {"matlID", &Property::matlID},
    {"refCS",  &Property::refCS},
    {"pval",   &Property::pval},
};

template <std::size_t... number>
constexpr auto makeMaterialMembers(std::index_sequence<number...>)
{
    return std::to_array<Member<Material>>({
        {"ID",                &Material::id},
        {"title",             &Material::title},
        {"color",             &Material::color},
        {"layer",             &Material::layer},
        {"type",              &Material::type},
        {"subtype",           &Material::subtype},
        {"mval",              &Material::mval},
        {materialNumbers[number].name, &Material::mval, materialNumbers[number].place}...,
    });
}
inline constexpr auto materialMembers =
    makeMaterialMembers(std::make_index_sequence<std::size(materialNumbers)>());

inline constexpr Member<MeshLoad> meshLoadMembers[] = {
    {"ID",               &MeshLoad::id},
    {"setID",            &MeshLoad::setID},
    {"meshID",           &MeshLoad::entityID},
    {"LoadDefinitionID", &MeshLoad::definitionID},
    {"type",             &MeshLoad::type},
    {"subtype",          &MeshLoad::subtype},
    {"load",             &MeshLoad::load},
    {"temp",             &MeshLoad::temp, -1, hasTemperature<MeshLoad>},
    {"phase",            &MeshLoad::phase},
    {"FaceNumber",       &MeshLoad::faceNumber},
    {"color",            &MeshLoad::color},
    {"layer",            &MeshLoad::layer},
    {"expanded",         &MeshLoad::expanded},
};

inline constexpr Member<GeometryLoad> geometryLoadMembers[] = {
    {"ID",               &GeometryLoad::id},
    {"setID",            &GeometryLoad::setID},
    {"geomID",           &GeometryLoad::entityID},
    {"geomTYPE",         &GeometryLoad::geomTYPE},
    {"LoadDefinitionID", &GeometryLoad::definitionID},
    {"type",             &GeometryLoad::type},
    {"subtype",          &GeometryLoad::subtype},
    {"load",             &GeometryLoad::load},
    {"temp",             &GeometryLoad::temp, -1, hasTemperature<GeometryLoad>},
    {"phase",            &GeometryLoad::phase},
    {"FaceNumber",       &GeometryLoad::faceNumber},
    {"color",            &GeometryLoad::color},
    {"layer",            &GeometryLoad::layer},
    {"expanded",         &GeometryLoad::expanded},
};

// FEMAP numbers temperatures by their entity.
inline constexpr Member<NodalTemperature> nodalTemperatureMembers[] = {
    {"ID",               &NodalTemperature::entityID},
    {"setID",            &NodalTemperature::setID},
    {"LoadDefinitionID", &NodalTemperature::definitionID},
    {"temp",             &NodalTemperature::temp},
    {"phase",            &NodalTemperature::phase},
    {"color",            &NodalTemperature::color},
    {"layer",            &NodalTemperature::layer},
    {"expanded",         &NodalTemperature::expanded},
};

inline constexpr Member<ElementalTemperature> elementalTemperatureMembers[] = {
    {"ID",               &ElementalTemperature::entityID},
    {"setID",            &ElementalTemperature::setID},
    {"LoadDefinitionID", &ElementalTemperature::definitionID},
    {"temp",             &ElementalTemperature::temp},
    {"phase",            &ElementalTemperature::phase},
    {"gradient",         &ElementalTemperature::gradient},
    {"color",            &ElementalTemperature::color},
    {"layer",            &ElementalTemperature::layer},
    {"expanded",         &ElementalTemperature::expanded},
};
// clang-format on

/// All members of a kind of data.
constexpr std::span<const Member<Node>> membersOf(Kind<Node>)
{
    return nodeMembers;
}
constexpr std::span<const Member<Element>> membersOf(Kind<Element>)
{
    return elementMembers;
}
constexpr std::span<const Member<Property>> membersOf(Kind<Property>)
{
    return propertyMembers;
}
constexpr std::span<const Member<Material>> membersOf(Kind<Material>)
{
    return materialMembers;
}
constexpr std::span<const Member<MeshLoad>> membersOf(Kind<MeshLoad>)
{
    return meshLoadMembers;
}
constexpr std::span<const Member<GeometryLoad>> membersOf(Kind<GeometryLoad>)
{
    return geometryLoadMembers;
}
constexpr std::span<const Member<NodalTemperature>> membersOf(Kind<NodalTemperature>)
{
    return nodalTemperatureMembers;
}
constexpr std::span<const Member<ElementalTemperature>> membersOf(Kind<ElementalTemperature>)
{
    return elementalTemperatureMembers;
}

template <class Pointer>
constexpr int lengthOf(Pointer /*pointer*/)
{
    return 0;  // no array
}
template <class Data, class Number, std::size_t size>
constexpr int lengthOf(std::array<Number, size> Data::* /*pointer*/)
{
    return static_cast<int>(size);
}
template <class Data>
constexpr int lengthOf(std::vector<double> Data::* /*pointer*/)
{
    return static_cast<int>(numbersLength);
}

/// The length of the array that the member's index counts in; 0 for a member without an index.
template <class Data>
constexpr int arrayLength(const Member<Data>& member)
{
    if (member.element >= 0)
        return 0;
    return std::visit([](auto pointer) { return lengthOf(pointer); }, member.pointer);
}

}  // namespace femap::embedded
