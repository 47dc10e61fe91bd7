// What the model holds at some places, read anew, and what differs there from what it should be.
#pragma once

#include "femap/Application.h"

#include <string>

namespace loop
{

/// The value of a member, with an index where the name has one.
femap::Value read(femap::MemberObject& object, const femap::MemberName& member);

/// The values that FEMAP has now where those are. Raises RuntimeError when one cannot be read.
femap::ModelValues presentValues(femap::Application& femap, const femap::ModelValues& places);

/// The first place where two sets of values of the same places differ, and both values; empty where
/// none does. FEMAP may keep a number in single precision.
std::string firstDifference(const femap::ModelValues& wanted, const femap::ModelValues& present);

}  // namespace loop
