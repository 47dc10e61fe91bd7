// Values that are put, by what they belong to: one entity or one load definition; and how that and
// its members are named where FEMAP refuses them.
#pragma once

#include "femap/ModelValues.h"

#include <cstddef>
#include <span>
#include <string>

namespace femap
{

inline bool isOfSame(const EntityValue& one, const EntityValue& other)
{
    return one.id == other.id && one.word == other.word;
}
inline bool isOfSame(const LoadValue& one, const LoadValue& other)
{
    return one.definition == other.definition && one.loadSet == other.loadSet;
}

/// Hands on what belongs together and stands beside each other.
template <class Each, class Take>
void forEachRun(std::span<const Each> values, const Take& take)
{
    for (std::size_t begin = 0, end = 0; begin < values.size(); begin = end) {
        for (end = begin + 1; end < values.size() && isOfSame(values[begin], values[end]);)
            ++end;
        take(values.subspan(begin, end - begin));
    }
}

/// "pval(7)"
inline std::string nameOf(const MemberName& member)
{
    return member.name + (member.index ? '(' + std::to_string(*member.index) + ')' : "");
}
/// "Prop 12"
inline std::string ownerOf(const EntityValue& value)
{
    return value.word + ' ' + std::to_string(value.id);
}
/// "load definition 3"
inline std::string ownerOf(const LoadValue& value)
{
    return "load definition " + std::to_string(value.definition);
}
/// "load 2 of load definition 3"; loads are counted from 1 where they are shown.
inline std::string loadOf(const LoadValue& value)
{
    return "load " + std::to_string(value.load + 1) + " of " + ownerOf(value);
}
/// "function 4"
inline std::string ownerOf(const FunctionValue& value)
{
    return "function " + std::to_string(value.id);
}

}  // namespace femap
