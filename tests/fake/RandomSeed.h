#pragma once

#include <cstdlib>
#include <iostream>
#include <random>
#include <string>

namespace fake
{

/// A fresh seed for a test with random input, or the one in the environment variable VELMAR_SEED.
/// It is printed, so that a failure can be repeated.
inline unsigned randomSeed()
{
    const char* const wanted = std::getenv("VELMAR_SEED");
    const unsigned seed = wanted != nullptr ? static_cast<unsigned>(std::stoul(wanted))
                                            : static_cast<unsigned>(std::random_device{}());
    std::cout << "VELMAR_SEED=" << seed << '\n';
    return seed;
}

}  // namespace fake
