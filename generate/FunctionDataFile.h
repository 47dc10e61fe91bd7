#pragma once

#include "app/form/Context.h"

namespace generate
{

/// Writes the points of every function among the inputs into FunctionsInputvalues.txt beside the
/// open model. A function that FEMAP does not have is left out, with a message.
void WriteFunctionInputs(form::Context& context);

}  // namespace generate
