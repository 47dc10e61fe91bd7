#include "femap/com/BulkArrays.h"

#include "femap/com/BulkSession.h"
#include "femap/com/Codes.h"

#include <algorithm>
#include <iterator>

namespace femap::com
{

using logging::ErrorNumber;
using logging::RuntimeError;

namespace
{

constexpr const char* mixedMember = "GetValueArray";
constexpr std::size_t numbersAtOnce = 16384;

constexpr std::string_view namedNumbers[] = {"Ex",
                                             "Ey",
                                             "Ez",
                                             "Gx",
                                             "Gy",
                                             "Gz",
                                             "Nuxy",
                                             "Nuyz",
                                             "Nuxz",
                                             "Alphaxx",
                                             "Alphayy",
                                             "Alphazz",
                                             "Alphaxy",
                                             "Alphayz",
                                             "Alphazx",
                                             "Kxx",
                                             "Kyy",
                                             "Kzz",
                                             "Kxy",
                                             "Kyz",
                                             "Kzx",
                                             "Cp",
                                             "Density",
                                             "Damping",
                                             "RefTemp",
                                             "TensionLimit1",
                                             "TensionLimit2",
                                             "CompressionLimit1",
                                             "CompressionLimit2",
                                             "ShearLimit",
                                             "TsaiWu"};

// The first of the numbers that are given to a fresh material, which holds none of them.
constexpr double firstNumber = 4096.5;

}  // namespace

const ArrayKind propertyArray = {EntityType::Property, "pval", "vpval", false};
const ArrayKind materialArray = {EntityType::Material, "mval", "vmval", true};

bool MaterialPlaces::isNamed(const std::string& member)
{
    return std::any_of(std::begin(namedNumbers), std::end(namedNumbers),
                       [&](std::string_view name) { return isSameName(name, member); });
}

void MaterialPlaces::find(Dispatch& application, const std::vector<std::string>& members)
{
    Dispatch material = application.object("feMatl");
    double number = firstNumber;
    std::map<std::string, double> given;
    for (const std::string& member : members) {
        places_[member];
        try {
            material.put(member, number);
            given[member] = number++;
        }
        catch (const RuntimeError&) {
            // A number that cannot be given stays without a place.
        }
    }
    const std::vector<double> all = material.call(materialArray.whole).reals();
    for (const auto& [member, own] : given)
        if (std::count(all.begin(), all.end(), own) == 1)
            places_[member] =
                static_cast<int>(std::find(all.begin(), all.end(), own) - all.begin());
}

std::optional<int> MaterialPlaces::of(const std::string& member) const
{
    const auto found = places_.find(member);
    return found == places_.end() ? std::nullopt : found->second;
}

std::vector<bool> ArrayFetcher::choose(const std::vector<MemberName>& members)
{
    chosen_.clear();
    std::vector<bool> result;
    for (const MemberName& wanted : members) {
        const bool isPlace =
            wanted.index && *wanted.index >= 0 && isSameName(wanted.name, kind_.array);
        const bool isNamed =
            kind_.hasNamed && !wanted.index && MaterialPlaces::isNamed(wanted.name);
        result.push_back(isPlace || isNamed);
        if (result.back())
            chosen_.push_back(wanted);
    }
    portion_ = 1;
    if (!chosen_.empty() && object_.has(mixedMember))
        portion_ = std::max<std::size_t>(2, numbersAtOnce / chosen_.size());
    return result;
}

bulk::Cost ArrayFetcher::cost() const
{
    const std::size_t names = namesToFind().size();
    return {names == 0 ? 0 : names + 2, 1};  // a fresh material, its numbers, its array
}

std::vector<int> ArrayFetcher::existing()
{
    return allIDs(session_.application, kind_.type);
}

std::vector<bulk::Column> ArrayFetcher::fetch(std::span<const int> ids)
{
    const std::vector<std::optional<int>> wanted = places();
    return portion_ == 1 ? ofLoaded(wanted) : mixed(ids, wanted);
}

std::vector<std::string> ArrayFetcher::namesToFind() const
{
    std::vector<std::string> names;
    for (const MemberName& member : chosen_)
        if (!member.index && !session_.bulk->materialPlaces.isLookedFor(member.name))
            names.push_back(member.name);
    return names;
}

// Of the chosen members; none for those that have no place.
std::vector<std::optional<int>> ArrayFetcher::places()
{
    MaterialPlaces& named = session_.bulk->materialPlaces;
    const std::vector<std::string> names = namesToFind();
    if (!names.empty())
        named.find(session_.application, names);
    std::vector<std::optional<int>> result;
    for (const MemberName& member : chosen_)
        result.push_back(member.index ? member.index : named.of(member.name));
    return result;
}

std::vector<bulk::Column> ArrayFetcher::mixed(std::span<const int> ids,
                                              const std::vector<std::optional<int>>& places)
{
    std::vector<int> entities;
    std::vector<int> indexes;
    for (const std::optional<int>& place : places) {
        if (!place)
            continue;
        entities.insert(entities.end(), ids.begin(), ids.end());
        indexes.insert(indexes.end(), ids.size(), *place);
    }
    const std::size_t count = entities.size();
    Variant returned;
    demandOk(code(object_.call(mixedMember, static_cast<int>(count), entities, indexes, &returned)),
             "GetValueArray failed");
    const std::vector<double> values = returned.reals();
    if (values.size() != count)
        throw RuntimeError(ErrorNumber::ObjectFailed, "GetValueArray returned a wrong count");

    std::vector<bulk::Column> columns;
    auto next = values.begin();
    for (const std::optional<int>& place : places) {
        if (!place) {
            columns.emplace_back();
            continue;
        }
        const auto end = next + static_cast<std::ptrdiff_t>(ids.size());
        columns.emplace_back(std::vector<double>(next, end));
        next = end;
    }
    return columns;
}

// Places beyond the array are left to FEMAP's own answer.
std::vector<bulk::Column> ArrayFetcher::ofLoaded(const std::vector<std::optional<int>>& places)
{
    const std::vector<double> all = object_.call(kind_.whole).reals();
    std::vector<bulk::Column> columns;
    for (const std::optional<int>& place : places) {
        if (place && static_cast<std::size_t>(*place) < all.size())
            columns.emplace_back(std::vector<double>{all[static_cast<std::size_t>(*place)]});
        else
            columns.emplace_back();
    }
    return columns;
}

}  // namespace femap::com
