// FEMAP's lock, under which a procedure has FEMAP's user interface stand still.
#pragma once

#include "form/Context.h"

#include <string_view>

namespace form
{

/// Lock and release FEMAP's user interface, and count the locks in lockDepth.
void lockFemap(Context& context);
void unlockFemap(Context& context);

/// The lock of one procedure, mostly with the hourglass. There is no destructor on purpose: what an
/// error leaves locked is released, and logged, where the error ends.
class FemapLock
{
public:
    enum Pointer
    {
        Hourglass,
        AnyPointer,  // it stays as it is
    };

    /// Locks, logs the words and shows the hourglass.
    FemapLock(Context& context, std::string_view words, Pointer pointer = Hourglass);
    /// Unlocks, logs the words and takes the hourglass back.
    void release(std::string_view words);

private:
    Context& context_;
    Pointer pointer_;
};

}  // namespace form
