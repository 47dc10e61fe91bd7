#include "femap/com/BulkPuts.h"

#include "femap/com/BulkCapabilities.h"
#include "femap/com/Codes.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <string_view>
#include <variant>

namespace femap::com
{

using bulk::Number;
using sys::ErrorNumber;
using sys::RuntimeError;

namespace
{

constexpr std::string_view coordinates[] = {"x", "y", "z"};
constexpr const char* placesMember = "PutValueArray";

constexpr std::size_t callsAround = 5;         // listing all IDs, loading one entity and reading it
constexpr std::size_t callsOfCoordinates = 5;  // a set of three calls, the call itself, and reading

std::size_t directionOf(const MemberName& member)
{
    const auto* const found = std::ranges::find_if(
        coordinates, [&](std::string_view each) { return isSameName(each, member.name); });
    return static_cast<std::size_t>(found - std::begin(coordinates));
}

Value presentIn(Dispatch& object, const Number& number)
{
    demandOk(code(object.call("Get", number.id)), "What was put cannot be read");
    return (number.member.index ? object.call(number.member.name, *number.member.index)
                                : object.call(number.member.name))
        .value();
}

}  // namespace

std::unique_ptr<bulk::EntityPutter> makePutter(const std::string& word, const ComContext& context,
                                               Dispatch& object)
{
    if (word == "Node")
        return std::make_unique<CoordinatePutter>(context, object);
    if (word == "Prop")
        return std::make_unique<ArrayPutter>(context, propertyArray, object);
    if (word == "Matl")
        return std::make_unique<ArrayPutter>(context, materialArray, object);
    return nullptr;
}

bool CoordinatePutter::takes(const MemberName& member)
{
    return !member.index && directionOf(member) < std::size(coordinates);
}

std::size_t CoordinatePutter::cost(const std::vector<Number>&) const
{
    return callsAround + callsOfCoordinates;
}

void CoordinatePutter::put(const std::vector<Number>& numbers)
{
    std::set<int> sorted;
    for (const Number& each : numbers)
        sorted.insert(each.id);
    const std::vector<int> ids(sorted.begin(), sorted.end());

    std::vector<MemberName> members;
    for (const std::string_view name : coordinates)
        members.push_back({std::string(name)});
    fetcher_.choose(members);
    const std::vector<bulk::Column> columns = fetcher_.fetch(ids);
    std::vector<double> places;
    for (std::size_t i = 0; i < ids.size(); ++i)
        for (const bulk::Column& column : columns)
            places.push_back(std::get<std::vector<double>>(column)[i]);
    for (const Number& each : numbers) {
        const auto node = std::ranges::lower_bound(ids, each.id) - ids.begin();
        places[std::size(coordinates) * static_cast<std::size_t>(node) + directionOf(each.member)] =
            each.value;
    }
    demandOk(code(object_.call("PutCoordArray", static_cast<int>(ids.size()), ids, places)),
             "PutCoordArray failed");
}

Value CoordinatePutter::present(const Number& number)
{
    return presentIn(object_, number);
}

bool ArrayPutter::takes(const MemberName& member)
{
    if (!object_.has(placesMember))
        return false;
    if (member.index)
        return *member.index >= 0 && isSameName(member.name, kind_.array);
    return kind_.hasNamed && MaterialIndices::isNamed(member.name);
}

std::size_t ArrayPutter::cost(const std::vector<Number>& numbers) const
{
    const std::size_t names = namesToFind(numbers).size();
    return callsAround + 1 + (names == 0 ? 0 : names + 2);  // a fresh material and its array
}

std::vector<int> ArrayPutter::existing()
{
    return allIDs(context_.application, kind_.type);
}

void ArrayPutter::put(const std::vector<Number>& numbers)
{
    MaterialIndices& named = context_.bulk->materialIndices;
    const std::vector<std::string> names = namesToFind(numbers);
    if (!names.empty())
        named.find(context_.application, names);
    std::vector<int> ids;
    std::vector<int> places;
    std::vector<double> values;
    for (const Number& each : numbers) {
        const std::optional<int> place =
            each.member.index ? each.member.index : named.of(each.member.name);
        if (!place)
            throw RuntimeError(ErrorNumber::ObjectFailed, "A number of materials has no place");
        ids.push_back(each.id);
        places.push_back(*place);
        values.push_back(each.value);
    }
    demandOk(code(object_.call(placesMember, static_cast<int>(ids.size()), ids, places, values)),
             "PutValueArray failed");
}

Value ArrayPutter::present(const Number& number)
{
    return presentIn(object_, number);
}

std::vector<std::string> ArrayPutter::namesToFind(const std::vector<Number>& numbers) const
{
    std::set<std::string> names;
    for (const Number& each : numbers)
        if (!each.member.index && !context_.bulk->materialIndices.isLookedFor(each.member.name))
            names.insert(each.member.name);
    return {names.begin(), names.end()};
}

}  // namespace femap::com
