// The control file beside the open model, which keeps the rows of both grids from run to run.
#pragma once

#include "form/Context.h"

namespace generate
{

/// Writes both grids into the file. Only tells the engineer when the model has no file yet.
void Save_Config(form::Context& context);

/// Replaces both grids by what the file holds. Leaves them as they are when there is no file.
void Load_Click(form::Context& context);

}  // namespace generate
