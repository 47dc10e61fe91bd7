// Fetches members of many entities of one kind in few calls. The functions that call FEMAP raise
// RuntimeError when it refuses, lacks a member or answers with something unexpected.
#pragma once

#include "femap/Objects.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <variant>
#include <vector>

namespace femap::com::bulk
{

/// The values of one member, one for each entity; monostate when it could not be fetched.
using Column = std::variant<std::monostate, std::vector<std::int32_t>, std::vector<double>>;

/// How many calls fetching takes.
struct Cost
{
    std::size_t once = 0;
    std::size_t each = 0;  // of each portion
};

class EntityFetcher
{
public:
    virtual ~EntityFetcher() = default;

    /// Tells for each member whether it can probably be fetched; fetch gives those from now on.
    virtual std::vector<bool> choose(const std::vector<MemberName>& members) = 0;
    /// The cost of fetching the chosen members.
    virtual Cost cost() const = 0;
    /// How many entities are fetched at once. When it is 1, the plain object must hold the entity.
    virtual std::size_t portion() const = 0;

    /// All IDs of the kind, ascending.
    virtual std::vector<int> existing() = 0;
    /// A column for each chosen member. The entities exist; their IDs ascend.
    virtual std::vector<Column> fetch(std::span<const int> ids) = 0;
};

}  // namespace femap::com::bulk
