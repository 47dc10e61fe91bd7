// The files of a run beside those that "Apply" writes.
#pragma once

#include "loop/Description.h"
#include "loop/Program.h"

#include <string>
#include <vector>

namespace loop
{

/// The model as the model host reads it …
std::string neutralFile(const Description& description);
/// … the same with the values of the run …
std::string runFile(const Description& description);
/// … and the results of the run, as it reads them.
std::string neutralResults(const Description& description);

/// The results of a run, which are those of the last one until the solver has run.
std::vector<std::string> resultsOf(const Description& description, const Connection& connection);

}  // namespace loop
