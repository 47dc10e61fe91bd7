// "Apply", and the choices of solver and optimisation tool that it goes by.
#pragma once

#include "form/Context.h"
#include "generate/Targets.h"

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace generate
{

/// Gets the paths of the files that "Apply" wrote, in that order, while the folder is still kept.
using AfterFiles = std::function<void(const std::vector<std::string>& files)>;

/// "Apply": writes all files of the chosen tool, then the control file. Does nothing, with a
/// message, when the model has no file yet.
void GenerateButton_Click(form::Context& context, const AfterFiles& afterFiles = {});

/// What "Apply" writes for a tool, but for the control file; none for a name that is no tool's.
std::span<const Target> filesOfTool(std::string_view tool);

/// A choice of solver: sets the command line that runs it on the open model.
void Solver_Click(form::Context& context);

/// Writes the command line for the model that became the current one, unless the engineer edited
/// it. Without a name it is due when the model has one.
void renewCommandLine(form::Context& context, const std::string& modelFile);

/// A choice of tool: goes back to the first one when no files can be generated for it.
void Optimizer_Click(form::Context& context);

}  // namespace generate
