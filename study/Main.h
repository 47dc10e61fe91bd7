// Runs velmar-study on this machine. Arguments are UTF-8; returns the exit code.
#pragma once

#include <string>
#include <vector>

namespace study
{

int runHere(const std::vector<std::string>& arguments);

}  // namespace study
