// FEMAP's selection dialog, open and locked, and its event messages: both need the engineer.
#pragma once

#include "probe/Session.h"

#include <ostream>

namespace probe
{

/// Shows two selection dialogs; what is to be picked is told on the stream.
void probeDialogs(Session& session, const Object& application, std::ostream& said);

/// Registers a window of its own as a pane for so many seconds and tells what comes.
void probeEvents(Session& session, const Object& application, int seconds, std::ostream& said);

}  // namespace probe
