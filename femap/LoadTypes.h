// FEMAP's types of loads: what a load is, which numbers it holds, and what it acts on.
#pragma once

#include <array>
#include <span>
#include <string_view>

namespace femap
{

struct LoadType
{
    std::string_view word;
    std::array<std::string_view, 4> values;  // names of load(0) to load(3); empty: not used
    std::span<const int> numbers;            // on a node, an element, a point, a curve, a surface
};

/// Null for a number that stands for no load with values.
const LoadType* findLoadType(int number);

/// FEMAP's number for the kind of geometry that loads of this type act on; 0 for those on the mesh.
int geometryTypeOf(int loadType);

}  // namespace femap
