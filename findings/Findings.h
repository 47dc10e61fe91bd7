// Looks through a study for what would fail or mislead in the loop, before "Apply" writes it.
#pragma once

#include "findings/Finding.h"
#include "form/Context.h"

#include <string>
#include <vector>

namespace findings
{

/// What the form alone tells: reads no file and asks FEMAP nothing, so it can follow each action.
/// modelFile: of the model that FEMAP has open; when it is empty, what goes by it is left out.
std::vector<Finding> quickFindings(form::Context& context, const std::string& modelFile);

/// That and what files and FEMAP tell. Changes nothing. ConnectionLost passes through.
std::vector<Finding> allFindings(form::Context& context);

}  // namespace findings
