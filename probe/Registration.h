// How FEMAP is registered with COM, and whether the running one can be found.
#pragma once

#include "probe/Session.h"

namespace probe
{

/// A line for each place of the registry and for the table of running objects.
void probeRegistration(Session& session);

/// The application of the FEMAP that runs; one that is not there when none is found.
Object attach(Session& session);

/// The application of a FEMAP that COM starts; one that is not there when it cannot. Its processes
/// are noted in the session.
Object start(Session& session);

/// Looks whether a FEMAP that was started ends by itself, now that no object of it is held.
void watchEnd(Session& session);

}  // namespace probe
