// Fetches numbers of properties or materials, which FEMAP keeps in one long array for each entity.
// Newer versions return any mix of entities and array indices in one call, older ones the whole
// array of the loaded entity.
#pragma once

#include "femap/com/BulkCalls.h"
#include "femap/com/ComObjects.h"
#include "femap/com/bulk/EntityFetcher.h"

#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace femap::com
{

/// The names of the members that give the array of a kind of entity.
struct ArrayKind
{
    EntityType type;
    const char* array;  // takes an index and returns one number
    const char* whole;  // returns the whole array
    bool hasNamed;      // some numbers also have a member of their own, such as "Ex"
};

extern const ArrayKind propertyArray;
extern const ArrayKind materialArray;

class ArrayFetcher : public bulk::EntityFetcher
{
public:
    ArrayFetcher(ComContext context, const ArrayKind& kind, Dispatch& object)
        : context_(std::move(context)), kind_(kind), object_(object)
    {}

    std::vector<bool> choose(const std::vector<MemberName>& members) override;
    bulk::Cost cost() const override;
    std::size_t portion() const override { return portion_; }
    std::vector<int> existing() override;
    std::vector<bulk::Column> fetch(std::span<const int> ids) override;

private:
    std::vector<std::string> namesToFind() const;
    std::vector<std::optional<int>> indices();
    std::vector<bulk::Column> fetchMixed(std::span<const int> ids,
                                         const std::vector<std::optional<int>>& indices);
    std::vector<bulk::Column> fetchLoaded(const std::vector<std::optional<int>>& indices);

    ComContext context_;
    const ArrayKind& kind_;
    Dispatch& object_;
    std::vector<MemberName> chosen_;
    std::size_t portion_ = 1;
};

}  // namespace femap::com
