#pragma once

#include "femap/bulk/EntityFetcher.h"
#include "femap/com/BulkCalls.h"
#include "femap/com/ComObjects.h"

#include <optional>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace femap::com
{

/// A member and where FEMAP's bulk calls put it: in which of the returned arrays, and in which of
/// the places that an entity has there.
struct BulkMember
{
    std::string_view name;
    int index;  // -1: a plain member
    std::size_t array;
    std::size_t place = 0;
};

/// A call that returns arrays about the entities of a set; the first one holds their IDs.
struct BulkCall
{
    std::string_view name;
    std::size_t arrays;
};

/// What can be fetched of a kind, and by which calls, those that return less first.
struct BulkKind
{
    EntityType type;
    std::span<const BulkMember> members;
    std::span<const BulkCall> calls;
    std::span<const std::size_t> places;  // of an entity in each array
};

extern const BulkKind bulkNodes;
extern const BulkKind bulkElements;

/// Nodes or elements, by the calls that return arrays.
class MeshFetcher : public bulk::EntityFetcher
{
public:
    MeshFetcher(Session session, const BulkKind& kind, Dispatch& object)

        : session_(std::move(session)), kind_(kind), object_(object)
    {}

    std::vector<bool> choose(const std::vector<MemberName>& members) override;
    bulk::Cost cost() const override;
    std::size_t portion() const override;
    std::vector<int> existing() override;
    std::vector<bulk::Column> fetch(std::span<const int> ids) override;

private:
    std::vector<Variant> callFor(std::span<const int> ids);

    Session session_;
    const BulkKind& kind_;
    Dispatch& object_;
    std::vector<const BulkMember*> chosen_;
    const BulkCall* call_ = nullptr;
    std::optional<ScratchSet> set_;
};

}  // namespace femap::com
