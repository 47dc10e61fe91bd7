// "Select..." under Input: the engineer selects entities of the chosen kind in FEMAP and their
// fields in the property list dialog; each pair becomes a row of the input grid.
#pragma once

#include "form/Context.h"
#include "selection/PropertyListDialog.h"

namespace selection
{

void InputsButton_Click(form::Context& context, frmPropertyList& dialog);

}  // namespace selection
