// Changes to a copy of a model: values are put and put back, a deck is written, results are read
// and deleted again.
#pragma once

#include "probe/Names.h"
#include "probe/Session.h"

namespace probe
{

/// Raises RuntimeError when the copy is not the model that FEMAP has open.
void demandIsOpen(const Object& application, const std::string& copy);

void probeWrites(Session& session, const Object& application, Generation generation,
                 const std::string& copy);

}  // namespace probe
