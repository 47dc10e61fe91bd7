#pragma once

#include "logging/System.h"

namespace femap::com
{

/// The machine as Windows shows it: its ANSI code page, its local time, its environment.
logging::System windowsSystem();

}  // namespace femap::com
