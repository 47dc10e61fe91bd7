// The control file beside the open model, which keeps the rows of both grids from run to run.
#pragma once

#include "form/Progress.h"
#include "generate/ModelPath.h"

#include <optional>
#include <string>

namespace generate
{

/// Writes both grids into the file. Only tells the engineer when the model has no file yet. What
/// the file held is kept as a copy, unless this run read it whole or wrote it.
void Save_Config(form::Context& context, form::Progress& progress);

/// What the control file of a model holds, as text; nothing when there is none. Raises RuntimeError
/// when it cannot be read.
std::optional<std::string> storedSelection(form::Context& context, const ModelPath& model);

/// Replaces both grids by what the control file of this model holds, and tells what of it was lost.
/// Leaves them as they are when there is no file.
void Load_Click(form::Context& context, const std::string& modelFile);

/// The same for a model that became the current one, unless its file was read in this run or the
/// grids hold rows.
void takeOverSelection(form::Context& context, const std::string& modelFile);

}  // namespace generate
