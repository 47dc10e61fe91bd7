#pragma once

#include "app/form/Context.h"

namespace generate
{

/// Writes both grids into the control file beside the open model. Does nothing, with a message,
/// when the model has no file yet.
void Save_Config(form::Context& context);

/// Puts what the control file beside the open model holds in the place of both grids. Leaves them
/// as they are when there is no such file.
void Load_Click(form::Context& context);

}  // namespace generate
