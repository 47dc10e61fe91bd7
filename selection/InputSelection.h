#pragma once

#include "app/form/Context.h"
#include "selection/PropertyListDialog.h"

namespace selection
{

/// "Select..." under Input: the engineer picks entities of the chosen kind in FEMAP and their
/// fields in the property list dialog; each pair becomes a row of the input grid.
void InputsButton_Click(form::Context& context, frmPropertyList& dialog);

}  // namespace selection
