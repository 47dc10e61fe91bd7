// Finds some entities in a neutral file, and where in its text their numbers stand.
#pragma once

#include "femap/neutral/Model.h"
#include "femap/neutral/NeutralPlaces.h"

#include <string>
#include <string_view>
#include <tuple>
#include <vector>

namespace femap::neutral
{

/// An entity as the file has it.
template <class Data>
struct Record
{
    Data data;
    Data places;  // the same, but with a place where a number can be replaced
    const char* begin = nullptr;
};

template <class Data>
struct Sought
{
    std::vector<int> ids;             // ascending
    std::vector<Record<Data>> found;  // ascending ID, those of one ID in the order of the file
};

using SoughtRecords = std::tuple<Sought<Node>, Sought<Element>, Sought<Property>, Sought<Material>,
                                 Sought<Function>, Sought<LoadSet>>;

/// Finds the records with these IDs; of the others no more is read than is needed to find the next
/// one. Raises RuntimeError as readNeutralFile does. Titles are not looked at.
Places findRecords(std::string_view content, const std::string& fileName, SoughtRecords& sought);

}  // namespace femap::neutral
