#pragma once

#include "app/form/Context.h"
#include "selection/PropertyListDialog.h"

namespace selection
{

/// "Select..." under Output: the engineer picks entities in FEMAP, where the choice needs them, and
/// output vectors or mass properties in the property list dialog; they become rows of the output
/// grid.
void OutputsButton_Click(form::Context& context, frmPropertyList& dialog);

}  // namespace selection
