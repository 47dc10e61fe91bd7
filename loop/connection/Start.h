// Where the programs of the loop start, with the things of this machine around them.
#pragma once

#include "loop/Program.h"

#include <string>
#include <string_view>
#include <vector>

namespace loop::connection
{

using Run = int (*)(const std::vector<std::string>& arguments, const Environment& environment);

/// Arguments are UTF-8. Returns the exit code.
int runHere(std::string_view program, Run run, const std::vector<std::string>& arguments);

}  // namespace loop::connection
