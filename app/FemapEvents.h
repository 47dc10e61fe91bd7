#pragma once

#include "app/Session.h"

#include <cstdint>

namespace app
{

/// Whether the form reacts to an event message with this code.
bool isFemapEvent(std::intptr_t code);

/// What FEMAP's event message means for the form. Unloading is left to the caller: see closeWanted.
void FormWindowProc(Session& session, int code);

}  // namespace app
