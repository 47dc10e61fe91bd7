// FDFemap.bat, by which the optimisation tool starts the solver.
#pragma once

#include "form/Progress.h"

#include <string>

namespace generate
{

/// Writes FDFemap.bat, which holds the command line. The name of the model plays no part.
void WriteBatchFile(form::Context& context, form::Progress& progress, const std::string& folder,
                    const std::string& name);

}  // namespace generate
