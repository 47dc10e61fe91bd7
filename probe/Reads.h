// Reads of all that the tool reads, each as a line of the report. Nothing in the model changes.
#pragma once

#include "probe/Names.h"
#include "probe/Session.h"

namespace probe
{

/// Version, models, what is active, how much there is of each kind.
void probeApplication(Session& session, const Object& application, Generation generation);
/// One node, and one element, property and material of each type: every field that the tool reads,
/// plainly and in bulk.
void probeEntities(Session& session, const Object& application, Generation generation);
/// The vectors of the active output set in both ways, their extremes, and entities without data.
void probeResults(Session& session, const Object& application, Generation generation);
/// The loads of the definitions of the active load set: places and named members.
void probeLoads(Session& session, const Object& application);
/// The masses of all elements, of one of each type and of none.
void probeMass(Session& session, const Object& application);
/// The points of the first function.
void probeFunction(Session& session, const Object& application);
/// Places that arrays do not have. Last, for nobody knows whether FEMAP stands it.
void probeBeyondTheEnd(Session& session, const Object& application);

}  // namespace probe
