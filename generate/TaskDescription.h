// The task description of the tool "Velmar", and the files that are written along with it.
#pragma once

#include "form/Progress.h"
#include "generate/TextFile.h"

#include <string>

namespace generate
{

/// Writes everything that the tool "Velmar" needs for the open model: the task description, the
/// exchange files without their templates, the batch file and the function data file.
void WriteDescFile(form::Context& context, form::Progress& progress);

// The parts of the task description.
void WriteDescFileHead(form::Context& context, TextFile& file);
/// Brings the file to its place as well.
void WriteDescFileTail(form::Context& context, form::Progress& progress, TextFile& file,
                       const std::string& name);
void WriteDescFileOptimize(form::Context& context, form::Progress& progress, TextFile& file);

}  // namespace generate
