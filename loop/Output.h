// The responses of a run, from the results and the model into OutputValues.txt.
#pragma once

#include "form/Context.h"
#include "loop/Description.h"
#include "loop/Problems.h"

#include <string>

namespace loop
{

/// Reads the outputs from the connected FEMAP and writes OutputValues.txt when each has a number.
/// results: the path of what is imported; it is read only where there are rows of results. What is
/// wrong becomes problems, and then nothing is written.
void takeOutputValues(form::Context& context, const Description& outputs,
                      const std::string& results, Problems& problems);

}  // namespace loop
