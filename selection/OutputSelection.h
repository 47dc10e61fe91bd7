// "Select..." under Output: the engineer selects entities in FEMAP, if needed, and output vectors
// or mass properties in the property list dialog; they become rows of the output grid.
#pragma once

#include "form/Context.h"
#include "selection/PropertyListDialog.h"

namespace selection
{

void OutputsButton_Click(form::Context& context, frmPropertyList& dialog);

}  // namespace selection
