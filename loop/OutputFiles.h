// The files of CAEOutput: results that must be those of the last run, and OutputValues.txt, which
// is of this run or not there.
#pragma once

#include "form/Context.h"
#include "loop/Problems.h"

#include <string>
#include <vector>

namespace loop
{

/// A problem unless the file of results is there and as new as each of those files that the run was
/// made of. Each of these must be there, too. All are names in the folder.
void demandFreshResults(sys::System& system, const std::string& folder, const std::string& results,
                        const std::vector<std::string>& madeOf, Problems& problems);

/// Writes names and values of the form's list of outputs, whole or not at all. Raises RuntimeError
/// when it cannot.
void writeOutputValues(form::Context& context, const std::string& path);

}  // namespace loop
