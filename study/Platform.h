// What velmar-study does differently on Windows and on other systems.
#pragma once

#include "femap/Application.h"
#include "femap/SelectionDialogs.h"

#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace study
{

/// A connector to the FEMAP that runs on this machine, with its selection dialogs answered. Empty
/// on platforms that FEMAP does not run on.
std::function<std::unique_ptr<femap::Connector>(femap::SelectionDialogs&)> runningFemap();

/// Shows the form until it is closed and records what is done in it as a script. Raises
/// RuntimeError when the script cannot be written. Empty on platforms without the form.
std::function<void(const std::string& script, const std::string& arguments)> recordedForm();

/// Probes the FEMAP of this machine as the arguments say; what is to be said meanwhile goes to the
/// stream. Returns the exit code: 0 FEMAP was probed, 1 it was not reached or went, 2 wrong
/// arguments. Raises RuntimeError when the report cannot be written. Empty on platforms that FEMAP
/// does not run on.
std::function<int(const std::vector<std::string>& arguments, std::ostream& said)> femapProbe();

/// Whether standard error is a terminal that shows colours. On Windows this also turns colours on.
bool errorsShowColours();

}  // namespace study
