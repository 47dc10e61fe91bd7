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
    {"FaceNumber",       &GeometryLoad::faceNumber},
    {"color",            &GeometryLoad::color},
    {"layer",            &GeometryLoad::layer},
    {"expanded",         &GeometryLoad::expanded},
};

inline constexpr Member<TemperatureObject> temperatureMembers[] = {
    {"ID",               &TemperatureObject::entityID},  // FEMAP numbers them by their entity
    {"setID",            &TemperatureObject::setID},
    {"LoadDefinitionID", &TemperatureObject::definitionID},
    {"temp",             &TemperatureObject::temp},
    {"phase",            &TemperatureObject::phase},
};
// clang-format on

inline std::span<const Member<Node>> membersOf(const Node&)
{
    return nodeMembers;
}
inline std::span<const Member<Element>> membersOf(const Element&)
{
    return elementMembers;
}
inline std::span<const Member<Property>> membersOf(const Property&)
{
    return propertyMembers;
}
inline std::span<const Member<Material>> membersOf(const Material&)
{
    return materialMembers;
}
inline std::span<const Member<MeshLoad>> membersOf(const MeshLoad&)
{
    return meshLoadMembers;
}
inline std::span<const Member<GeometryLoad>> membersOf(const GeometryLoad&)
{
    return geometryLoadMembers;
}
inline std::span<const Member<TemperatureObject>> membersOf(const TemperatureObject&)
{
    return temperatureMembers;
}

}  // namespace femap::embedded
