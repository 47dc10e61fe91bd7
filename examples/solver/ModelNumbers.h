// Numbers of the example's model by their places. All raise RuntimeError where the model lacks
// them.
#pragma once

#include "femap/neutral/Model.h"
#include "system/RuntimeError.h"

#include <cstddef>
#include <string>

namespace examples::solver
{

[[noreturn]] void refuse(const std::string& what);

template <class Entity>
const Entity& entityOf(const femap::neutral::Table<Entity>& table, int id, const char* kind)
{
    const Entity* const found = table.find(id);
    if (found == nullptr)
        refuse(std::string(kind) + ' ' + std::to_string(id));
    return *found;
}

// Places of values in properties and materials.
constexpr std::size_t thickness = 0;
constexpr std::size_t area = 0;
constexpr std::size_t inertia = 1;
constexpr std::size_t youngsModulus = 0;
constexpr std::size_t poissonsRatio = 6;
constexpr std::size_t tensionLimit = 52;

double ofProperty(const femap::neutral::Model& model, int id, std::size_t place);
double ofMaterial(const femap::neutral::Model& model, int id, std::size_t place);
/// Of the first load of the definition, component counted from 0.
double ofLoad(const femap::neutral::Model& model, int definition, std::size_t component);

// Load definitions.
constexpr int lugForceDefinition = 1;
constexpr int lugMomentDefinition = 2;
constexpr int pressureDefinition = 3;

// Properties and materials.
constexpr int skinProperty = 1;
constexpr int beamProperty = 4;
constexpr int barProperty = 5;
constexpr int rodProperty = 6;
constexpr int aluminium = 1;
constexpr int glass = 3;

}  // namespace examples::solver
