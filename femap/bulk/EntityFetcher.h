#pragma once

#include "femap/Objects.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <variant>
#include <vector>

namespace femap::bulk
{

/// The values of one member, an element for each entity; nothing when it cannot be fetched after
/// all.
using Column = std::variant<std::monostate, std::vector<std::int32_t>, std::vector<double>>;

/// How many calls fetching takes.
struct Cost
{
    std::size_t once = 0;
    std::size_t each = 0;  // of each portion
};

/// Fetches members of many entities of one kind in few calls. What makes calls raises RuntimeError
/// when FEMAP refuses, lacks a member or answers with something unexpected.
class EntityFetcher
{
public:
    virtual ~EntityFetcher() = default;

    /// Which of the members can be fetched, in all likelihood. Those are the ones that fetch gives
    /// from now on.
    virtual std::vector<bool> choose(const std::vector<MemberName>& members) = 0;
    /// Of fetching the chosen members.
    virtual Cost cost() const = 0;
    /// How many entities are fetched at once. When it is one, the plain object must hold it.
    virtual std::size_t portion() const = 0;

    /// All IDs of the kind, ascending.
    virtual std::vector<int> existing() = 0;
    /// A column for each chosen member. The entities exist; their IDs ascend.
    virtual std::vector<Column> fetch(std::span<const int> ids) = 0;
};

}  // namespace femap::bulk
