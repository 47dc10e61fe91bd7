#include "fuzz/Fuzz.h"

#include <cstdlib>
#include <iostream>

namespace fuzz
{

void require(bool holds, std::string_view what)
{
    if (holds)
        return;
    std::cerr << "Does not hold: " << what << std::endl;
    std::abort();
}

}  // namespace fuzz
