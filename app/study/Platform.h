#pragma once

#include "femap/Application.h"
#include "femap/SelectionDialogs.h"
#include "logging/System.h"

#include <functional>
#include <memory>
#include <string>

namespace study
{

/// The way to a FEMAP that runs on this machine, with its selection dialogs answered. Empty on
/// platforms that FEMAP does not run on.
std::function<std::unique_ptr<femap::Connector>(femap::SelectionDialogs&)> runningFemap();

/// The machine as this platform shows it.
logging::System platformSystem();

/// Shows the form, started with these arguments, until it is closed, and records what is done in it
/// as a script. Raises RuntimeError when the script cannot be written. Empty on platforms without
/// the form.
std::function<void(const std::string& script, const std::string& arguments)> recordedForm();

/// Whether standard error is a terminal that shows colours. On Windows it is told to do so.
bool errorsShowColours();

}  // namespace study
