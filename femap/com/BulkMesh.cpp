#include "femap/com/BulkMesh.h"

#include "femap/com/Codes.h"

#include <algorithm>
#include <string>
#include <variant>

namespace femap::com
{

using sys::ErrorNumber;
using sys::RuntimeError;

namespace
{

// Enough for few calls, yet few enough for FEMAP and this program to hold several copies.
constexpr std::size_t entitiesAtOnce = 16384;

// clang-format off
constexpr BulkCall nodeCalls[] = {
    {"GetCoordArray", 2},
    {"GetAllArray",   8},
};
constexpr std::size_t nodeCounts[] = {1, 3, 1, 1, 1, 1, 1, 6};
constexpr BulkMember nodeMembers[] = {
    {"x",       -1, 1, 0},
    {"y",       -1, 1, 1},
    {"z",       -1, 1, 2},
    {"layer",   -1, 2},
    {"color",   -1, 3},
    {"type",    -1, 4},
    {"defCSys", -1, 5},
    {"outCSys", -1, 6},
};

constexpr BulkCall elementCalls[] = {
    {"GetAllArray", 15},
};
constexpr std::size_t elementCounts[] = {1, 1, 1, 1, 1, 1, 2, 3, 6, 12, 1, 1, 20, 1, 1};
constexpr BulkMember elementMembers[] = {
    {"propID",   -1, 1},
    {"type",     -1, 2},
    {"topology", -1, 3},
    {"layer",    -1, 4},
    {"color",    -1, 5},
    {"orient",    0, 7, 0},
    {"orient",    1, 7, 1},
    {"orient",    2, 7, 2},
    {"orientID", -1, 11},
    {"node",      0, 12, 0},
    {"node",      1, 12, 1},
    {"node",      2, 12, 2},
    {"node",      3, 12, 3},
    {"node",      4, 12, 4},
    {"node",      5, 12, 5},
    {"node",      6, 12, 6},
    {"node",      7, 12, 7},
    {"node",      8, 12, 8},
    {"node",      9, 12, 9},
    {"node",     10, 12, 10},
    {"node",     11, 12, 11},
    {"node",     12, 12, 12},
    {"node",     13, 12, 13},
    {"node",     14, 12, 14},
    {"node",     15, 12, 15},
    {"node",     16, 12, 16},
    {"node",     17, 12, 17},
    {"node",     18, 12, 18},
    {"node",     19, 12, 19},
};
// clang-format on

const BulkMember* findMember(const BulkKind& kind, const MemberName& wanted)
{
    const auto found =
        std::find_if(kind.members.begin(), kind.members.end(), [&](const BulkMember& member) {
            return isSameName(member.name, wanted.name) &&
                   member.index == wanted.index.value_or(-1);
        });
    return found == kind.members.end() ? nullptr : &*found;
}

template <class Number>
std::vector<Number> everyNth(const std::vector<Number>& numbers, std::size_t first,
                             std::size_t step)
{
    std::vector<Number> result;
    result.reserve(numbers.size() / step);
    for (std::size_t i = first; i < numbers.size(); i += step)
        result.push_back(numbers[i]);
    return result;
}

// The numbers of one returned array.
using Numbers = std::variant<std::vector<int>, std::vector<double>>;

Numbers numbersOf(const Variant& array, std::size_t count)
{
    Numbers numbers;
    if (array.raw().vt == (VT_ARRAY | VT_R8))
        numbers = array.reals();
    else
        numbers = array.numbers();
    if (std::visit([](const auto& all) { return all.size(); }, numbers) != count)
        throw RuntimeError(ErrorNumber::ObjectFailed, "FEMAP returned an array of a wrong size");
    return numbers;
}

}  // namespace

const BulkKind bulkNodes = {EntityType::Node, nodeMembers, nodeCalls, nodeCounts};
const BulkKind bulkElements = {EntityType::Element, elementMembers, elementCalls, elementCounts};

std::vector<bool> MeshFetcher::choose(const std::vector<MemberName>& members)
{
    chosen_.clear();
    std::vector<bool> result;
    std::size_t last = 0;
    for (const MemberName& wanted : members) {
        const BulkMember* const member = findMember(kind_, wanted);
        result.push_back(member != nullptr);
        if (member == nullptr)
            continue;
        chosen_.push_back(member);
        last = std::max(last, member->array);
    }
    call_ = &*std::find_if(kind_.calls.begin(), kind_.calls.end(),
                           [&](const BulkCall& call) { return last < call.arrays; });
    return result;
}

bulk::Cost MeshFetcher::cost() const
{
    return {2, 3};  // making the set; emptying and filling it and the call itself
}

std::size_t MeshFetcher::portion() const
{
    return entitiesAtOnce;
}

std::vector<int> MeshFetcher::existing()
{
    return allIDs(context_.application, kind_.type);
}

std::vector<bulk::Column> MeshFetcher::fetch(std::span<const int> ids)
{
    const std::vector<Variant> arrays = fetchArrays(ids);
    const std::vector<int> returned = arrays.front().numbers();
    if (!std::equal(ids.begin(), ids.end(), returned.begin(), returned.end()))
        throw RuntimeError(ErrorNumber::ObjectFailed, "FEMAP returned other entities");

    std::vector<std::optional<Numbers>> numbers(arrays.size());
    std::vector<bulk::Column> columns;
    for (const BulkMember* const member : chosen_) {
        const std::size_t perEntity = kind_.numbersPerEntity[member->array];
        std::optional<Numbers>& all = numbers[member->array];
        if (!all)
            all = numbersOf(arrays[member->array], ids.size() * perEntity);
        columns.push_back(std::visit(
            [&](const auto& array) -> bulk::Column {
                return everyNth(array, member->offset, perEntity);
            },
            *all));
    }
    return columns;
}

// Makes the bulk call for the entities and returns its arrays.
std::vector<Variant> MeshFetcher::fetchArrays(std::span<const int> ids)
{
    if (!set_)
        set_.emplace(context_.application);
    set_->fill(ids);

    std::vector<Variant> arrays(call_->arrays);
    LONG count = 0;
    std::vector<Variant> arguments;
    arguments.emplace_back(set_->ID());
    arguments.emplace_back(&count);
    for (Variant& array : arrays)
        arguments.emplace_back(&array);
    const std::string name(call_->name);
    demandOk(code(object_.callWith(name, arguments)), name + " failed");
    if (static_cast<std::size_t>(count) != ids.size())
        throw RuntimeError(ErrorNumber::ObjectFailed, name + " returned other entities");
    return arrays;
}

}  // namespace femap::com
