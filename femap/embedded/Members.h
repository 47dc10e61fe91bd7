#pragma once

#include "femap/Value.h"
#include "femap/embedded/Model.h"

#include <optional>
#include <string>
#include <string_view>

namespace femap::embedded
{

/// What FEMAP's load objects show of a load; the loads themselves do not know their load set.
struct MeshLoad : Load
{
    int setID = 0;
};

struct GeometryLoad : Load
{
    int setID = 0;
    int geomTYPE = 0;  // 3 point, 4 curve, 5 surface
};

struct TemperatureObject : TemperatureLoad
{
    int setID = 0;
};

/// How FEMAP and the model call a kind of data.
template <class Data>
struct Kind;

template <>
struct Kind<Node>
{
    static constexpr std::string_view object = "feNode";
    static constexpr auto table = &Model::nodes;
};
template <>
struct Kind<Element>
{
    static constexpr std::string_view object = "feElem";
    static constexpr auto table = &Model::elements;
};
template <>
struct Kind<Property>
{
    static constexpr std::string_view object = "feProp";
    static constexpr auto table = &Model::properties;
};
template <>
struct Kind<Material>
{
    static constexpr std::string_view object = "feMatl";
    static constexpr auto table = &Model::materials;
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
struct Kind<TemperatureObject>
{
    static constexpr std::string_view object = "A temperature load";
};

/// Whether two names are the same for FEMAP, which does not heed the case of ASCII letters.
bool isSameName(std::string_view one, std::string_view other);

/// The value of a member; an array member takes an index, any other one none. Raises
/// RuntimeError: NoSuchMember for an unknown name, InvalidCall for an index too many or too few and
/// SubscriptOutOfRange for one that the array does not have, unless that shall read as 0.
template <class Data>
Value readMember(const Data& data, const std::string& name, std::optional<int> index,
                 bool indexBeyondArrayRaises);

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
