// Puts numbers of many entities of one kind in few calls. The functions that call FEMAP raise
// RuntimeError when it refuses, lacks a member or answers with something unexpected.
#pragma once

#include "femap/Objects.h"

#include <cstddef>
#include <vector>

namespace femap::com::bulk
{

struct Number
{
    int id = 0;  // the entity's
    MemberName member;
    double value = 0;
};

class EntityPutter
{
public:
    virtual ~EntityPutter() = default;

    /// Whether the member can probably be put.
    virtual bool takes(const MemberName& member) = 0;
    /// How many calls putting these takes, a list of all IDs and reading one number included.
    virtual std::size_t cost(const std::vector<Number>& numbers) const = 0;
    /// All IDs of the kind, ascending.
    virtual std::vector<int> existing() = 0;
    /// The entities exist.
    virtual void put(const std::vector<Number>& numbers) = 0;
    /// What the model has in the place of a number now, read on its own.
    virtual Value present(const Number& number) = 0;
};

}  // namespace femap::com::bulk
