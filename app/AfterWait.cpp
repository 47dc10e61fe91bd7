#include "app/AfterWait.h"

#include "app/EventDispatcher.h"
#include "app/StartUp.h"
#include "form/Progress.h"
#include "logging/Module1.h"

#include <string>
#include <string_view>
#include <utility>

namespace app
{

using form::Context;
using logging::logDebug;

namespace
{

constexpr std::string_view lockIsLeft = ". It is still locked; that ends as soon as it answers";
constexpr std::string_view closesThen =
    ". The form closes then; close it once more to close it at once";
constexpr std::string_view answersAgain = "FEMAP answers again";
constexpr std::string_view lockIsReleased = "FEMAP answers again, and its lock is released";

}  // namespace

void tellEndedWait(Session& session)
{
    EndedWait& ended = session.endedWait;
    form::Status& status = session.form.status;
    status.withdraw(ended.told);
    ended.told = ended.reason;
    if (ended.locks > 0) {
        ended.told += lockIsLeft;
        if (session.closeWanted)
            ended.told += closesThen;
    }
    status.tellFailure(ended.told);
}

void settleEndedWait(Session& session)
{
    Context& context = session.context;
    const EndedWait ended = std::exchange(session.endedWait, {});
    context.lockDepth += ended.locks;
    context.femapShowsProgress = ended.showsProgress;
    logDebug(context.log, std::string(answersAgain));
    releaseLocks(context);
    form::endProgress(context);
    context.form.status.withdraw(ended.told);
    context.form.status.tellResult(ended.locks > 0 ? lockIsReleased : answersAgain);
    if (ended.takesOver)
        takeOverFemap(session);
}

}  // namespace app
