// Shows the property list dialog for one kind of entity and notes why nothing came of it.
#pragma once

#include "form/Context.h"
#include "selection/Outcome.h"
#include "selection/PropertyListDialog.h"

#include <string>

namespace selection
{

/// Shows the filled dialog. askedFor, when not empty, stands on the status line meanwhile: which of
/// several kinds the list is for.
void offer(form::Context& context, frmPropertyList& dialog, Outcome& outcome,
           const std::string& askedFor = {});

/// Notes why FEMAP's selection dialog, which gave this code, left the set empty.
void noteNothingPicked(Outcome& outcome, int returnCode);

}  // namespace selection
