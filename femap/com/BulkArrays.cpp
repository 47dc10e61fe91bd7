#include "femap/com/BulkArrays.h"

#include "femap/Numbers.h"
#include "femap/com/BulkCapabilities.h"
#include "femap/com/Codes.h"

#include <algorithm>
#include <iterator>

namespace femap::com
{

using sys::ErrorNumber;
using sys::RuntimeError;

namespace
{

constexpr const char* mixedMember = "GetValueArray";
constexpr std::size_t numbersAtOnce = 16384;

// The values given to the named numbers of a fresh material: this one and those 1, 2 … above it.
constexpr double firstNumber = 4096.5;

}  // namespace

const ArrayKind propertyArray = {EntityType::Property, "pval", "vpval", false};
const ArrayKind materialArray = {EntityType::Material, "mval", "vmval", true};

bool MaterialIndices::isNamed(const std::string& member)
{
    return std::ranges::any_of(materialNumbers, [&](const MaterialNumber& number) {
        return isSameName(number.name, member);
    });
}

void MaterialIndices::find(Dispatch& application, const std::vector<std::string>& members)
{
    Dispatch material = application.object("feMatl");
    double number = firstNumber;
    std::map<std::string, double> given;
    for (const std::string& member : members) {
        indices_[member];
        try {
            material.put(member, number);
            given[member] = number++;
        }
        catch (const RuntimeError&) {
            // A number that cannot be set stays without an index.
        }
    }
    const std::vector<double> all = material.call(materialArray.whole).reals();
    for (const auto& [member, own] : given)
        if (std::count(all.begin(), all.end(), own) == 1)
            indices_[member] =
                static_cast<int>(std::find(all.begin(), all.end(), own) - all.begin());
}

std::optional<int> MaterialIndices::of(const std::string& member) const
{
    const auto found = indices_.find(member);
    return found == indices_.end() ? std::nullopt : found->second;
}

std::vector<bool> ArrayFetcher::choose(const std::vector<MemberName>& members)
{
    chosen_.clear();
    std::vector<bool> result;
    for (const MemberName& wanted : members) {
        const bool isIndexed =
            wanted.index && *wanted.index >= 0 && isSameName(wanted.name, kind_.array);
        const bool isNamed =
            kind_.hasNamed && !wanted.index && MaterialIndices::isNamed(wanted.name);
        result.push_back(isIndexed || isNamed);
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
    return allIDs(context_.application, kind_.type);
}

std::vector<bulk::Column> ArrayFetcher::fetch(std::span<const int> ids)
{
    const std::vector<std::optional<int>> wanted = indices();
    return portion_ == 1 ? fetchLoaded(wanted) : fetchMixed(ids, wanted);
}

std::vector<std::string> ArrayFetcher::namesToFind() const
{
    std::vector<std::string> names;
    for (const MemberName& member : chosen_)
        if (!member.index && !context_.bulk->materialIndices.isLookedFor(member.name))
            names.push_back(member.name);
    return names;
}

// The array indices of the chosen members; none for a member whose index is not known.
std::vector<std::optional<int>> ArrayFetcher::indices()
{
    MaterialIndices& named = context_.bulk->materialIndices;
    const std::vector<std::string> names = namesToFind();
    if (!names.empty())
        named.find(context_.application, names);
    std::vector<std::optional<int>> result;
    for (const MemberName& member : chosen_)
        result.push_back(member.index ? member.index : named.of(member.name));
    return result;
}

std::vector<bulk::Column> ArrayFetcher::fetchMixed(std::span<const int> ids,
                                                   const std::vector<std::optional<int>>& indices)
{
    std::vector<int> entities;
    std::vector<int> entityIndices;
    for (const std::optional<int>& index : indices) {
        if (!index)
            continue;
        entities.insert(entities.end(), ids.begin(), ids.end());
        entityIndices.insert(entityIndices.end(), ids.size(), *index);
    }
    const std::size_t count = entities.size();
    Variant returned;
    demandOk(code(object_.call(mixedMember, static_cast<int>(count), entities, entityIndices,
                               &returned)),
             "GetValueArray failed");
    const std::vector<double> values = returned.reals();
    if (values.size() != count)
        throw RuntimeError(ErrorNumber::ObjectFailed, "GetValueArray returned a wrong count");

    std::vector<bulk::Column> columns;
    auto next = values.begin();
    for (const std::optional<int>& index : indices) {
        if (!index) {
            columns.emplace_back();
            continue;
        }
        const auto end = next + static_cast<std::ptrdiff_t>(ids.size());
        columns.emplace_back(std::vector<double>(next, end));
        next = end;
    }
    return columns;
}

// A member beyond the array is not fetched: it is read one by one, and FEMAP answers.
std::vector<bulk::Column> ArrayFetcher::fetchLoaded(const std::vector<std::optional<int>>& indices)
{
    const std::vector<double> all = object_.call(kind_.whole).reals();
    std::vector<bulk::Column> columns;
    for (const std::optional<int>& index : indices) {
        if (index && static_cast<std::size_t>(*index) < all.size())
            columns.emplace_back(std::vector<double>{all[static_cast<std::size_t>(*index)]});
        else
            columns.emplace_back();
    }
    return columns;
}

}  // namespace femap::com
