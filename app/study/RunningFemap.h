#pragma once

#include "femap/Application.h"
#include "femap/SelectionDialogs.h"
#include "logging/System.h"

#include <functional>
#include <memory>

namespace study
{

/// The way to a FEMAP that runs on this machine, with its selection dialogs answered. Empty on
/// platforms that FEMAP does not run on.
std::function<std::unique_ptr<femap::Connector>(femap::SelectionDialogs&)> runningFemap();

/// The machine as this platform shows it.
logging::System platformSystem();

}  // namespace study
