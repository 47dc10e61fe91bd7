// Fetches nodes or elements by the calls of FEMAP that return arrays about all entities of a set.
#pragma once

#include "femap/com/BulkCalls.h"
#include "femap/com/ComObjects.h"
#include "femap/com/bulk/EntityFetcher.h"

#include <optional>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace femap::com
{

/// A member and where FEMAP's bulk calls return it.
struct BulkMember
{
    std::string_view name;
    int index;               // -1: a plain member
    std::size_t array;       // which of the returned arrays
    std::size_t offset = 0;  // among the numbers that an entity has in it
};

/// A call that returns arrays about the entities of a set; the first one holds their IDs.
struct BulkCall
{
    std::string_view name;
    std::size_t arrays;
};

/// What can be fetched of a kind of entity. The calls that return fewer arrays come first.
struct BulkKind
{
    EntityType type;
    std::span<const BulkMember> members;
    std::span<const BulkCall> calls;
    std::span<const std::size_t> numbersPerEntity;  // in each array
};

extern const BulkKind bulkNodes;
extern const BulkKind bulkElements;

class MeshFetcher : public bulk::EntityFetcher
{
public:
    MeshFetcher(ComContext context, const BulkKind& kind, Dispatch& object)
        : context_(std::move(context)), kind_(kind), object_(object)
    {}

    std::vector<bool> choose(const std::vector<MemberName>& members) override;
    bulk::Cost cost() const override;
    std::size_t portion() const override;
    std::vector<int> existing() override;
    std::vector<bulk::Column> fetch(std::span<const int> ids) override;

private:
    std::vector<Variant> fetchArrays(std::span<const int> ids);

    ComContext context_;
    const BulkKind& kind_;
    Dispatch& object_;
    std::vector<const BulkMember*> chosen_;
    const BulkCall* call_ = nullptr;
    std::optional<ScratchSet> set_;
};

}  // namespace femap::com
