// CAEOutput: reads the responses of a run from its results and the model, and writes them for the
// optimiser.
#pragma once

#include "form/Context.h"
#include "loop/Description.h"
#include "loop/Program.h"

#include <string>
#include <vector>

namespace loop
{

/// Arguments are UTF-8. Returns the exit code: 0 the values are written, 1 there is no file of
/// values, 2 wrong arguments.
int runOutput(const std::vector<std::string>& arguments, const Environment& environment);

/// Reads the outputs from the connected FEMAP into the form's list. results: the path of what is
/// imported; it is read only where there are rows of results. Each row that has no number then is a
/// problem.
void readOutputs(form::Context& context, const Description& outputs, const std::string& results,
                 Problems& problems);

}  // namespace loop
