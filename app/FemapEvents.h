// How the form reacts to FEMAP's event messages: a new model, a closed model, FEMAP ending.
#pragma once

#include "app/Session.h"

#include <cstdint>

namespace app
{

/// Whether the form reacts to an event message with this code.
bool isFemapEvent(std::intptr_t code);

/// Reacts to an event message. The caller unloads the form when this set closeWanted.
void FormWindowProc(Session& session, int code);

}  // namespace app
