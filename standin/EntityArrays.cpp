#include "standin/EntityArrays.h"

#include "standin/Server.h"

#include <algorithm>
#include <cstddef>
#include <type_traits>
#include <utility>
#include <vector>

namespace standin
{

namespace
{

using neutral::Element;
using neutral::Material;
using neutral::Node;
using neutral::Property;

// The entities of a set; those that do not exist hold zeros.
template <class Data>
std::vector<Data> listed(EntityObject<Data>& entity, int set, EntityType type)
{
    const auto& table = entity.server().host.openModel().*embedded::Kind<Data>::table;
    std::vector<Data> result;
    for (const int id : entity.server().idsIn(set, type)) {
        const Data* const found = table.find(id);
        Data nothing{};
        nothing.id = id;
        result.push_back(found == nullptr ? nothing : *found);
    }
    return result;
}

// The numbers that one member holds, of all entities one after the other.
template <class Data, class Held>
Variant column(const std::vector<Data>& entities, Held Data::*member)
{
    if constexpr (std::is_same_v<Held, int>) {
        std::vector<int> result;
        result.reserve(entities.size());
        for (const Data& one : entities)
            result.push_back(one.*member);
        return result;
    }
    else {
        using Number = typename Held::value_type;
        std::vector<std::conditional_t<std::is_same_v<Number, double>, double, int>> result;
        for (const Data& one : entities)
            result.insert(result.end(), (one.*member).begin(), (one.*member).end());
        return result;
    }
}

Variant coordinates(const std::vector<Node>& nodes)
{
    std::vector<double> result;
    for (const Node& node : nodes)
        result.insert(result.end(), {node.x, node.y, node.z});
    return result;
}

// Fills in the count and the IDs. Returns failed when there are none.
template <class Data>
Variant fillIDs(const std::vector<Data>& entities, Arguments& arguments)
{
    arguments.fill(1, static_cast<int>(entities.size()));
    arguments.fillAny(2, column(entities, &Data::id));
    return entities.empty() ? failed : ok;
}

// Any mix of entities and indices of their arrays.
template <class Data, std::vector<double> Data::*array>
Variant getValueArray(EntityObject<Data>& entity, Arguments& arguments)
{
    const auto& table = entity.server().host.openModel().*embedded::Kind<Data>::table;
    const auto count = static_cast<std::size_t>(std::max(arguments.number(0), 0));
    const std::vector<int> ids = arguments.numbers(1);
    const std::vector<int> indices = arguments.numbers(2);
    if (ids.size() < count || indices.size() < count)
        return failed;
    std::vector<double> values(count);
    for (std::size_t i = 0; i < count; ++i) {
        const Data* const found = table.find(ids[i]);
        const auto index = static_cast<std::size_t>(indices[i]);
        if (found != nullptr && index < (found->*array).size())
            values[i] = (found->*array)[index];
    }
    arguments.fillAny(3, values);
    return ok;
}

constexpr int missing = static_cast<int>(ReturnCode::NotExist);

// A number of an array that is to be written.
struct Place
{
    int id;
    int index;
    double value;
};

template <class Data>
Variant putPlaces(EntityObject<Data>& entity, std::vector<double> Data::*array,
                  const std::vector<Place>& places)
{
    embedded::Host& host = entity.server().host;
    auto& table = host.openModel().*embedded::Kind<Data>::table;
    for (const Place& place : places) {
        if (place.index < 0 || static_cast<std::size_t>(place.index) >= femap::numbersLength)
            return failed;
        if (table.find(place.id) == nullptr)
            return missing;
    }
    for (const Place& place : places) {
        std::vector<double>& numbers = table.find(place.id)->*array;
        const auto index = static_cast<std::size_t>(place.index);
        if (index >= numbers.size())
            numbers.resize(index + 1);
        numbers[index] = place.value;
        host.isModified = true;
    }
    return ok;
}

// As getValueArray, the other way round.
template <class Data, std::vector<double> Data::*array>
Variant putValueArray(EntityObject<Data>& entity, Arguments& arguments)
{
    const auto count = static_cast<std::size_t>(std::max(arguments.number(0), 0));
    const std::vector<int> ids = arguments.numbers(1);
    const std::vector<int> indices = arguments.numbers(2);
    const std::vector<double> values = arguments.reals(3);
    if (ids.size() < count || indices.size() < count || values.size() < count)
        return failed;
    std::vector<Place> places;
    for (std::size_t i = 0; i < count; ++i)
        places.push_back({ids[i], indices[i], values[i]});
    return putPlaces(entity, array, places);
}

template <class Data, std::vector<double> Data::*array>
Variant putValue(EntityObject<Data>& entity, Arguments& arguments, EntityType type)
{
    std::vector<Place> places;
    for (const int id : entity.server().idsIn(arguments.number(0), type))
        places.push_back({id, arguments.number(1), arguments.real(2)});
    return places.empty() ? Variant(missing) : putPlaces(entity, array, places);
}

}  // namespace

Variant getCoordArray(EntityObject<Node>& entity, Arguments& arguments)
{
    const auto nodes = listed(entity, arguments.number(0), EntityType::Node);
    arguments.fillAny(3, coordinates(nodes));
    return fillIDs(nodes, arguments);
}

Variant getAllNodes(EntityObject<Node>& entity, Arguments& arguments)
{
    const auto nodes = listed(entity, arguments.number(0), EntityType::Node);
    arguments.fillAny(3, coordinates(nodes));
    arguments.fillAny(4, column(nodes, &Node::layer));
    arguments.fillAny(5, column(nodes, &Node::color));
    arguments.fillAny(6, column(nodes, &Node::type));
    arguments.fillAny(7, column(nodes, &Node::defCSys));
    arguments.fillAny(8, column(nodes, &Node::outCSys));
    arguments.fillAny(9, column(nodes, &Node::permBC));
    return fillIDs(nodes, arguments);
}

Variant getAllElements(EntityObject<Element>& entity, Arguments& arguments)
{
    const auto elements = listed(entity, arguments.number(0), EntityType::Element);
    const std::size_t count = elements.size();
    arguments.fillAny(3, column(elements, &Element::propID));
    arguments.fillAny(4, column(elements, &Element::type));
    arguments.fillAny(5, column(elements, &Element::topology));
    arguments.fillAny(6, column(elements, &Element::layer));
    arguments.fillAny(7, column(elements, &Element::color));
    arguments.fillAny(8, std::vector<int>(2 * count));  // formulation
    arguments.fillAny(9, column(elements, &Element::orient));
    arguments.fillAny(10, column(elements, &Element::offset));
    arguments.fillAny(11, std::vector<int>(12 * count));  // release
    arguments.fillAny(12, std::vector<int>(count));       // orientSET
    arguments.fillAny(13, column(elements, &Element::orientID));
    arguments.fillAny(14, column(elements, &Element::node));
    arguments.fillAny(15, std::vector<int>(count));  // connectTYPE
    arguments.fillAny(16, std::vector<int>(count));  // connectSEG
    return fillIDs(elements, arguments);
}

Variant getPropertyValues(EntityObject<Property>& entity, Arguments& arguments)
{
    return getValueArray<Property, &Property::pval>(entity, arguments);
}

Variant getMaterialValues(EntityObject<Material>& entity, Arguments& arguments)
{
    return getValueArray<Material, &Material::mval>(entity, arguments);
}

// A node that is not there is made, as Put makes one.
Variant putCoordArray(EntityObject<Node>& entity, Arguments& arguments)
{
    constexpr std::size_t directions = 3;
    const auto count = static_cast<std::size_t>(std::max(arguments.number(0), 0));
    const std::vector<int> ids = arguments.numbers(1);
    const std::vector<double> xyz = arguments.reals(2);
    if (ids.size() < count || xyz.size() < directions * count ||
        std::any_of(ids.begin(), ids.begin() + static_cast<std::ptrdiff_t>(count),
                    [](int id) { return id <= 0; }))
        return failed;
    embedded::Host& host = entity.server().host;
    std::vector<Node> nodes;
    for (std::size_t i = 0; i < count; ++i) {
        const Node* const found = host.openModel().nodes.find(ids[i]);
        Node& node = nodes.emplace_back(found == nullptr ? Node() : *found);
        node.id = ids[i];
        node.x = xyz[directions * i];
        node.y = xyz[directions * i + 1];
        node.z = xyz[directions * i + 2];
        host.isModified = true;
    }
    host.openModel().nodes.merge(std::move(nodes));
    return ok;
}

Variant putPropertyValues(EntityObject<Property>& entity, Arguments& arguments)
{
    return putValueArray<Property, &Property::pval>(entity, arguments);
}

Variant putMaterialValues(EntityObject<Material>& entity, Arguments& arguments)
{
    return putValueArray<Material, &Material::mval>(entity, arguments);
}

Variant putPropertyValue(EntityObject<Property>& entity, Arguments& arguments)
{
    return putValue<Property, &Property::pval>(entity, arguments, EntityType::Property);
}

Variant putMaterialValue(EntityObject<Material>& entity, Arguments& arguments)
{
    return putValue<Material, &Material::mval>(entity, arguments, EntityType::Material);
}

}  // namespace standin
