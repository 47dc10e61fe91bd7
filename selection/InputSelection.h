// "Select..." under Input: the engineer selects entities of the chosen kind in FEMAP and their
// fields in the property list dialog; each pair becomes a row of the input grid.
#pragma once

#include "form/Context.h"
#include "selection/FieldCatalogue.h"
#include "selection/PropertyListDialog.h"

#include <string_view>

namespace selection
{

/// The list of fields that is shown for an entity of this kind and type; null for a kind without.
const FieldList* fieldListFor(std::string_view kind, int type);

void InputsButton_Click(form::Context& context, frmPropertyList& dialog);

}  // namespace selection
