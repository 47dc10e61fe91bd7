// Values of a model and the places where they live: what the loop reads, puts and puts back.
#pragma once

#include "femap/Objects.h"

#include <cstddef>
#include <string>
#include <vector>

namespace femap
{

/// A member of a node, an element, a property or a material.
struct EntityValue
{
    std::string word;  // "Node", "Elem", "Prop" or "Matl"
    int id = 0;
    MemberName member;
    Value value;
};

/// A member of one load of a load definition.
struct LoadValue
{
    int loadSet = 0;
    int definition = 0;
    std::size_t load = 0;  // as NextLoad gives them, counted from 0
    MemberName member;
    Value value;
};

/// All points of a function.
struct FunctionValue
{
    int id = 0;
    FunctionPoints points;
};

struct ModelValues
{
    std::vector<EntityValue> entities;  // those of one entity beside each other
    std::vector<LoadValue> loads;  // those of one definition beside each other, loads ascending
    std::vector<FunctionValue> functions;
};

}  // namespace femap
