// Writes the points of every function among the inputs into FunctionsInputvalues.txt beside the
// open model. A function that FEMAP does not have is left out, and the engineer is told.
#pragma once

#include "form/Progress.h"

namespace generate
{

void WriteFunctionInputs(form::Context& context, form::Progress& progress);

}  // namespace generate
