// Reads members of nodes, elements, properties, materials and loads by their names in FEMAP.
#pragma once

#include "femap/Objects.h"
#include "femap/neutral/Model.h"

#include <optional>
#include <string>
#include <string_view>

namespace femap::embedded
{

using neutral::Element;
using neutral::Material;
using neutral::Node;
using neutral::Property;

/// A load as FEMAP's load objects show it: with its load set, which the model's loads lack.
struct MeshLoad : neutral::Load
{
    int setID = 0;
    double temp = 0;  // of convection and radiation
};

struct GeometryLoad : MeshLoad
{
    int geomTYPE = 0;  // 3 point, 4 curve, 5 surface
};

struct NodalTemperature : neutral::TemperatureLoad
{
    int setID = 0;
};

struct ElementalTemperature : NodalTemperature
{};

/// The name that FEMAP gives to a kind of data, and the table of the model that holds it.
template <class Data>
struct Kind;

template <>
struct Kind<Node>
{
    static constexpr std::string_view object = "feNode";
    static constexpr auto table = &neutral::Model::nodes;
};
template <>
struct Kind<Element>
{
    static constexpr std::string_view object = "feElem";
    static constexpr auto table = &neutral::Model::elements;
};
template <>
struct Kind<Property>
{
    static constexpr std::string_view object = "feProp";
    static constexpr auto table = &neutral::Model::properties;
};
template <>
struct Kind<Material>
{
    static constexpr std::string_view object = "feMatl";
    static constexpr auto table = &neutral::Model::materials;
};
template <>
struct Kind<MeshLoad>
{
    static constexpr std::string_view object = "feLoadMesh";
};
template <>
struct Kind<GeometryLoad>
{
    static constexpr std::string_view object = "feLoadGeom";
};
template <>
struct Kind<NodalTemperature>
{
    static constexpr std::string_view object = "feLoadNTemp";
};
template <>
struct Kind<ElementalTemperature>
{
    static constexpr std::string_view object = "feLoadETemp";
};

/// The value of a member; an array member takes an index, any other one none. Raises
/// RuntimeError: NoSuchMember for an unknown name, InvalidCall for an index that is missing or not
/// taken, and SubscriptOutOfRange for an index beyond the array, unless that reads as 0.
template <class Data>
Value readMember(const Data& data, const std::string& name, std::optional<int> index,
                 bool indexBeyondArrayRaises);

/// Changes the value of a member. Raises RuntimeError as readMember does, and InvalidCall for a
/// member that means nothing for this entity and for a value that does not fit. Where an index
/// beyond the array reads as 0, nothing changes for it.
template <class Data>
void writeMember(Data& data, const std::string& name, std::optional<int> index, const Value& value,
                 bool indexBeyondArrayRaises = true);

/// Raises RuntimeError (NoSuchMember) for an object that FEMAP's model does not hand out.
[[noreturn]] void refuseWord(const std::string& word);

/// Calls the visitor with the Kind of an entity word: "Node", "Elem", "Prop" or "Matl".
template <class Visitor>
auto withKind(const std::string& word, const Visitor& visitor)
{
    if (isSameName(word, "Node"))
        return visitor(Kind<Node>());
    if (isSameName(word, "Elem"))
        return visitor(Kind<Element>());
    if (isSameName(word, "Prop"))
        return visitor(Kind<Property>());
    if (isSameName(word, "Matl"))
        return visitor(Kind<Material>());
    refuseWord(word);
}

}  // namespace femap::embedded
