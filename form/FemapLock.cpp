#include "form/FemapLock.h"

#include "logging/Module1.h"

namespace form
{

void lockFemap(Context& context)
{
    context.femap().feAppLock();
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
