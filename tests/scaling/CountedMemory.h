#pragma once

#include <cstddef>

namespace scaling
{

/// What this program has taken from the heap so far.
struct Taken
{
    std::size_t pieces = 0;
    std::size_t bytes = 0;
};

Taken takenSoFar();

}  // namespace scaling
