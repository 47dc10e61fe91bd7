#pragma once

#include "app/form/Context.h"

namespace selection
{

/// Lets the engineer pick one function in FEMAP and makes it an input parameter as a whole. What
/// FEMAP's dialog returned is kept in form.returnCode.
void FetchFunctionData(form::Context& context);

}  // namespace selection
