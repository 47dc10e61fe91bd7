// "Refresh Values" under Input and under Output: reads the value of every row again from the open
// model. A row whose value cannot be read keeps the one it has.
#pragma once

#include "form/Context.h"

namespace selection
{

void RefreshInputs_Click(form::Context& context);
void RefreshOutputs_Click(form::Context& context);

/// The same for the rows that are selected in the grid, and no others.
void refreshSelectedInputs(form::Context& context);
void refreshSelectedOutputs(form::Context& context);

}  // namespace selection
