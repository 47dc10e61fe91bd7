#include "femap/Objects.h"

namespace femap
{

void Entity::readAhead(const std::vector<int>&, const std::vector<MemberName>&) {}

std::vector<int> EntitySet::ids()
{
    std::vector<int> result;
    Reset();
    while (const int id = Next())
        result.push_back(id);
    return result;
}

// Those who do something with the plan keep it.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
void OutputVector::readAhead(std::vector<VectorReading>) {}

}  // namespace femap
