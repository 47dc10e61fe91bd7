// CAEInput: puts the values that an optimiser gives into the model, and writes the deck for the
// solver.
#pragma once

#include "loop/Program.h"

#include <string>
#include <vector>

namespace loop
{

/// Arguments are UTF-8. Returns the exit code: 0 all is done, 1 not, and the model is as it was, or
/// it is said that it is not, 2 wrong arguments.
int runInput(const std::vector<std::string>& arguments, const Environment& environment);

}  // namespace loop
