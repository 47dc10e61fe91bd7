#include "standin/EntityArrays.h"

#include "standin/Server.h"

#include <algorithm>
#include <type_traits>

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

}  // namespace standin
