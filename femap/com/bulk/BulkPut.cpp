#include "femap/com/bulk/BulkPut.h"

#include "system/RuntimeError.h"

#include <algorithm>
#include <optional>
#include <set>

namespace femap::com::bulk
{

using sys::RuntimeError;

namespace
{

struct Split
{
    std::vector<Number> numbers;
    std::vector<EntityValue> rest;
};

Split splitValues(std::span<const EntityValue> values, EntityPutter& putter)
{
    Split split;
    for (const EntityValue& each : values) {
        const std::optional<double> number = realOf(each.value);
        if (number && putter.takes(each.member))
            split.numbers.push_back({each.id, each.member, *number});
        else
            split.rest.push_back(each);
    }
    return split;
}

// Each number is a call of its own, and an entity of which nothing else is put is loaded and stored
// for them alone.
std::size_t plainCost(const Split& split)
{
    constexpr std::size_t callsOfEntity = 2;
    std::set<int> anyway;
    std::set<int> own;
    for (const EntityValue& each : split.rest)
        anyway.insert(each.id);
    for (const Number& each : split.numbers)
        if (!anyway.contains(each.id))
            own.insert(each.id);
    return split.numbers.size() + callsOfEntity * own.size();
}

// FEMAP might make an entity that it lacks.
bool areThere(const std::vector<Number>& numbers, const std::vector<int>& existing)
{
    return std::ranges::all_of(
        numbers, [&](const Number& one) { return std::ranges::binary_search(existing, one.id); });
}

}  // namespace

std::vector<EntityValue> putInBulk(std::span<const EntityValue> values, EntityPutter& putter,
                                   Capability& capability)
{
    std::vector<EntityValue> all(values.begin(), values.end());
    if (!capability.isUsable)
        return all;
    Split split = splitValues(values, putter);
    if (split.numbers.empty() || putter.cost(split.numbers) >= plainCost(split))
        return all;
    try {
        if (!areThere(split.numbers, putter.existing()))
            return all;  // one by one FEMAP tells which is not
        putter.put(split.numbers);
        const Number& last = split.numbers.back();
        capability.isUsable = realOf(putter.present(last)) == last.value;
    }
    catch (const RuntimeError&) {
        capability.isUsable = false;
    }
    return capability.isUsable ? split.rest : all;
}

}  // namespace femap::com::bulk
