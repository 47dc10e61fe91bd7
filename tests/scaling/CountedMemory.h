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

/// Bytes that it holds now, and the most that it held since that was forgotten.
std::size_t heldNow();
std::size_t mostHeld();
void forgetMostHeld();

}  // namespace scaling
