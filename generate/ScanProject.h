// The files of the tool "Ombra".
#pragma once

#include "form/Progress.h"
#include "generate/TextTemplate.h"

#include <string>

namespace generate
{

/// Writes everything that the tool "Ombra" needs for the open model: the three files of its
/// project and the exchange files.
void WriteOmbraProject(form::Context& context, form::Progress& progress);

/// What the parameter file gives to every parameter.
FixedBounds boundsOfParameters();

// The files of the project. Each lies in the folder and is named after the model.
void WriteProjectFile(form::Context& context, form::Progress& progress, const std::string& folder,
                      const std::string& name);
void WriteProcessFile(form::Context& context, form::Progress& progress, const std::string& folder,
                      const std::string& name);
void WriteParameterFile(form::Context& context, form::Progress& progress, const std::string& folder,
                        const std::string& name);

}  // namespace generate
