// Keeps what a control file holds before "Apply" replaces it, when this run does not know it.
#pragma once

#include "form/Context.h"

#include <string>

namespace generate
{

/// Keeps a copy of the control file beside it as "…Control.previous.txt", with a number when
/// another copy is there already, and tells so. Does nothing when there is no control file, or when
/// this run read it whole or wrote it. Raises RuntimeError when it cannot be copied.
void keepPreviousSelection(form::Context& context, const std::string& path);

/// This run knows what the control file holds now: these bytes, or what it wrote there.
void rememberControlFile(form::Context& context, const std::string& path, std::string_view bytes);
void rememberWrittenControlFile(form::Context& context, const std::string& path);

}  // namespace generate
