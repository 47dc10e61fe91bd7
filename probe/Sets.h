// Sets of entities: which IDs there are, and FEMAP's set objects for calls that take one.
#pragma once

#include "femap/Constants.h"
#include "probe/Session.h"

namespace probe
{

/// All IDs of a kind, ascending; none when FEMAP does not tell.
std::vector<int> allIDs(const Object& application, femap::EntityType type);

/// A set object of FEMAP's with these IDs, and the number that other calls take for it.
struct FemapSet
{
    Object object;
    int number = 0;
};
FemapSet setOf(const Object& application, const std::vector<int>& ids);
FemapSet setOfAll(const Object& application, femap::EntityType type);

/// At most so many of them, evenly spread.
std::vector<int> sampleOf(const std::vector<int>& ids, std::size_t most);

/// "1 3 5 … 99", and how many they are.
std::string shown(const std::vector<int>& ids);

}  // namespace probe
