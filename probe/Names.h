// FEMAP's members against the table of its type libraries: are the names there, have they the
// numbers and types that the table has?
#pragma once

#include "probe/Session.h"

namespace probe
{

/// Which of FEMAP's generations answers, by what only a newer one has.
enum class Generation
{
    Classic,
    Modern,
};

Generation generationOf(Session& session, const Object& application);

/// A line for each member of each interface.
void probeNames(Session& session, const Object& application, Generation generation);

}  // namespace probe
