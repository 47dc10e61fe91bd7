#include "form/FemapLock.h"

#include "logging/Module1.h"

namespace form
{

// A lock too few in the count would stay for ever; an unlock too many does FEMAP no harm.
void lockFemap(Context& context)
{
    try {
        context.femap().feAppLock();
    }
    catch (const femap::WaitEnded& ended) {
        context.lockDepth += ended.mayBeCarriedOut() ? 1 : 0;
        throw;
    }
    ++context.lockDepth;
}

void unlockFemap(Context& context)
{
    context.femap().feAppUnlock();
    --context.lockDepth;
}

FemapLock::FemapLock(Context& context, std::string_view words, Pointer pointer)
    : context_(context), pointer_(pointer)
{
    lockFemap(context_);
    logging::logDebug(context_.log, words);
    if (pointer_ == Hourglass)
        context_.form.setMousePointers(pointerHourglass);
}

void FemapLock::release(std::string_view words)
{
    unlockFemap(context_);
    logging::logDebug(context_.log, words);
    if (pointer_ == Hourglass)
        context_.form.setMousePointers(pointerDefault);
}

}  // namespace form
