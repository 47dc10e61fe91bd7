#include "femap/com/standin/EntityObject.h"

#include "femap/com/standin/Server.h"
#include "femap/embedded/MemberTables.h"

#include <array>
#include <optional>
#include <string>

namespace femap::com::standin
{

namespace
{

constexpr int ok = static_cast<int>(ReturnCode::Ok);
constexpr int failed = static_cast<int>(ReturnCode::Fail);

using enum Type;
constexpr Kind method = Kind::Method;
constexpr Kind property = Kind::Property;

// A member of the copy, the array members with their index.
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
    std::vector<int> ids;
    std::vector<std::string> titles;
    const int most = arguments.number(1);
    for (const Data& one : entity.server().host.openModel().*embedded::Kind<Data>::table) {
        if (one.id < arguments.number(0) || (most != 0 && one.id > most))
            continue;
        ids.push_back(one.id);
        titles.push_back(one.title);
    }
    arguments.fill(2, static_cast<int>(ids.size()));
    if (ids.empty())
        return failed;
    arguments.fillAny(3, ids);
    arguments.fillAny(4, titles);
    return ok;
}

// The whole of an array member, which has the name after the "v".
template <class Data, std::vector<double> Data::*array>
Variant wholeArray(EntityObject<Data>& entity, Arguments&)
{
    std::vector<double> places = entity.data.*array;
    places.resize(200);
    return places;
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

using embedded::Element;
using embedded::Material;
using embedded::Node;
using embedded::Property;

// The entities that a bulk member lists, with zeros for those that are not there.
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

// One number, or all of an array's, of each entity.
template <class Data, class Held>
Variant column(const std::vector<Data>& entities, Held Data::*member)
{
    if constexpr (std::is_same_v<Held, int>) {
        std::vector<int> result;
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

// How many there are, their IDs, and whether there are any.
template <class Data>
Variant fillIDs(const std::vector<Data>& entities, Arguments& arguments)
{
    arguments.fill(1, static_cast<int>(entities.size()));
    arguments.fillAny(2, column(entities, &Data::id));
    return entities.empty() ? failed : ok;
}

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

// Any mix of entities and places of their arrays.
template <class Data, std::vector<double> Data::*array>
Variant getValueArray(EntityObject<Data>& entity, Arguments& arguments)
{
    const auto& table = entity.server().host.openModel().*embedded::Kind<Data>::table;
    const auto count = static_cast<std::size_t>(std::max(arguments.number(0), 0));
    const std::vector<int> ids = arguments.numbers(1);
    const std::vector<int> places = arguments.numbers(2);
    if (ids.size() < count || places.size() < count)
        return failed;
    std::vector<double> values(count);
    for (std::size_t i = 0; i < count; ++i) {
        const Data* const found = table.find(ids[i]);
        const auto place = static_cast<std::size_t>(places[i]);
        if (found != nullptr && place < (found->*array).size())
            values[i] = (found->*array)[place];
    }
    arguments.fillAny(3, values);
    return ok;
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
    {{"offset",        property, {I4}, 18000}, read},  // the end and the direction are one place
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
        getValueArray<Property, &Property::pval>},
    {{"GetTitleList",  method, {I4, I4, OutI4, OutAny, OutAny}, 29021}, getTitleList},
};

constexpr Member<EntityObject<Material>> materialMembers[] = {
    {{"ID",                property, {},   17000}, read, put<Material, &Material::id>},
    {{"title",             property, {},   10000}, title, put<Material, &Material::title>, Text},
    {{"color",             property, {},   10001}, read, put<Material, &Material::color>},
    {{"type",              property, {},   10002}, read, put<Material, &Material::type>},
    {{"layer",             property, {},   10003}, read, put<Material, &Material::layer>},
    {{"subtype",           property, {},   10004}, read, put<Material, &Material::subtype>},
    {{"Ex",                property, {},   10010}, read},
    {{"Ey",                property, {},   10011}, read},
    {{"Ez",                property, {},   10012}, read},
    {{"Gx",                property, {},   10013}, read},
    {{"Gy",                property, {},   10014}, read},
    {{"Gz",                property, {},   10015}, read},
    {{"Nuxy",              property, {},   10016}, read},
    {{"Nuyz",              property, {},   10017}, read},
    {{"Nuxz",              property, {},   10018}, read},
    {{"Alphaxx",           property, {},   10019}, read},
    {{"Alphayy",           property, {},   10020}, read},
    {{"Alphazz",           property, {},   10021}, read},
    {{"Alphaxy",           property, {},   10022}, read},
    {{"Alphayz",           property, {},   10023}, read},
    {{"Alphazx",           property, {},   10024}, read},  // there is no Alphaxz
    {{"Kxx",               property, {},   10025}, read},
    {{"Kyy",               property, {},   10026}, read},
    {{"Kzz",               property, {},   10027}, read},
    {{"Kxy",               property, {},   10028}, read},
    {{"Kyz",               property, {},   10029}, read},
    {{"Kzx",               property, {},   10030}, read},  // there is no Kxz
    {{"Cp",                property, {},   10031}, read},
    {{"Density",           property, {},   10032}, read},
    {{"Damping",           property, {},   10033}, read},
    {{"RefTemp",           property, {},   10034}, read},
    {{"TensionLimit1",     property, {},   10035}, read},
    {{"TensionLimit2",     property, {},   10036}, read},
    {{"CompressionLimit1", property, {},   10037}, read},
    {{"CompressionLimit2", property, {},   10038}, read},
    {{"ShearLimit",        property, {},   10039}, read},
    {{"TsaiWu",            property, {},   10040}, read},
    {{"vmval",             property, {},   10500}, wholeArray<Material, &Material::mval>},
    {{"mval",              property, {I4}, 18001}, read},
    {{"Get",               method,   {I4}, 20000}, get},
    {{"Put",               method,   {I4}, 20001}, store},
    {{"Exist",             method,   {I4}, 29006}, exist},
    {{"CountSet",          method,   {},   29027}, countSet},
    {{"GetValueArray",     method,   {I4, Any, Any, OutAny}, 20004, Generation::Modern},
        getValueArray<Material, &Material::mval>},
    {{"GetTitleList",      method,   {I4, I4, OutI4, OutAny, OutAny}, 29021}, getTitleList},
};
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

}  // namespace femap::com::standin
