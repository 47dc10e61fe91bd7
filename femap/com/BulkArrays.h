#pragma once

#include "femap/bulk/EntityFetcher.h"
#include "femap/com/BulkCalls.h"
#include "femap/com/ComObjects.h"

#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace femap::com
{

/// A kind of entity whose numbers stand in one long array.
struct ArrayKind
{
    EntityType type;
    const char* array;  // the member with an index
    const char* whole;  // the member that returns all of it
    bool hasNamed;      // some numbers have members of their own, as those of a material
};

extern const ArrayKind propertyArray;
extern const ArrayKind materialArray;

/// Properties or materials: newer versions return any mix of entities and places in one call, older
/// ones the whole array of the loaded entity.
class ArrayFetcher : public bulk::EntityFetcher
{
public:
    ArrayFetcher(Session session, const ArrayKind& kind, Dispatch& object)

        : session_(std::move(session)), kind_(kind), object_(object)
    {}

    std::vector<bool> choose(const std::vector<MemberName>& members) override;
    bulk::Cost cost() const override;
    std::size_t portion() const override { return portion_; }
    std::vector<int> existing() override;
    std::vector<bulk::Column> fetch(std::span<const int> ids) override;

private:
    std::vector<std::string> namesToFind() const;
    std::vector<std::optional<int>> places();
    std::vector<bulk::Column> mixed(std::span<const int> ids,
                                    const std::vector<std::optional<int>>& places);
    std::vector<bulk::Column> ofLoaded(const std::vector<std::optional<int>>& places);

    Session session_;
    const ArrayKind& kind_;
    Dispatch& object_;
    std::vector<MemberName> chosen_;
    std::size_t portion_ = 1;
};

}  // namespace femap::com
