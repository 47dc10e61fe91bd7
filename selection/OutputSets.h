// Which output set the results are read from.
#pragma once

#include "form/Context.h"

namespace selection
{

/// When the model has several output sets: says on the status line which one is read, and in the
/// log, too, when none is active and the lowest is taken.
void tellOutputSet(form::Context& context);

}  // namespace selection
