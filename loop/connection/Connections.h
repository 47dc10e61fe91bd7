// Which FEMAPs a program of the loop can work with.
#pragma once

#include "loop/Program.h"

#include <functional>
#include <ostream>

namespace loop::connection
{

/// The model host, for a model in a neutral file; what it says goes to the stream.
Connection toModelHost(std::ostream& said);

/// A way to the FEMAP of this machine, where a program may wait so long for it that the optimiser
/// does not end it first; what is to be said meanwhile goes to the stream. Empty on platforms that
/// FEMAP does not run on.
std::function<Connection()> toFemap(std::ostream& said);

}  // namespace loop::connection
