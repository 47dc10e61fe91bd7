#pragma once

#include "logging/System.h"

namespace femap::com
{

/// The machine as Windows shows it: its ANSI code page, its local time, its environment.
logging::System windowsSystem();

/// Lets every library come from Windows' own folder from now on, never from the model's.
void takeLibrariesFromSystemOnly();

/// Whether standard error is a console that shows colours, which it is told to do.
bool errorsShowColours();

}  // namespace femap::com
