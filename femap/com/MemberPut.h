// Puts a member of FEMAP's objects in the type that FEMAP declares for it. COM would convert any
// other by rules of its own, and round what is no whole number.
#pragma once

#include "femap/Objects.h"
#include "femap/com/Dispatch.h"

namespace femap::com
{

/// Into the object only. A text is taken for the number that it shows. Raises RuntimeError for a
/// value that does not fit.
void putMember(Dispatch& object, const MemberName& member, const Value& value);

}  // namespace femap::com
