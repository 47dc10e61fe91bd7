#include "femap/Objects.h"

namespace femap
{

std::string noValueText(int vectorID, int entityID)
{
    return "Output vector " + std::to_string(vectorID) + " has no value at the entity " +
           std::to_string(entityID);
}

void Entity::prefetch(const std::vector<int>&, const std::vector<MemberName>&) {}

std::vector<int> EntitySet::ids()
{
    std::vector<int> result;
    Reset();
    while (const int id = Next())
        result.push_back(id);
    return result;
}

// By value, because the implementations that prefetch keep the plan.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
void OutputVector::prefetch(std::vector<VectorReading>) {}

}  // namespace femap
