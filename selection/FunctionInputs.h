// Functions as inputs: lets the engineer select one function in FEMAP and makes it an input
// parameter as a whole. What FEMAP's dialog returned is kept in form.returnCode.
#pragma once

#include "form/Context.h"

namespace selection
{

void FetchFunctionData(form::Context& context);

}  // namespace selection
