#include "app/EventDispatcher.h"

#include "app/AfterWait.h"
#include "app/Bindings.h"
#include "app/SecondForm.h"
#include "form/FemapLock.h"
#include "form/Progress.h"
#include "logging/Module1.h"
#include "system/Memory.h"

#include <algorithm>
#include <utility>

namespace app
{

using form::Context;
using logging::logDebug;
using logging::logPositionAndClearErrorIfAny;

namespace
{

class Busy
{
public:
    explicit Busy(bool& flag) : flag_(flag) { flag = true; }
    ~Busy() { flag_ = false; }
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;

private:
    bool& flag_;
};

void disableWhatNeedsFemap(form::MainForm& form)
{
    for (const form::NamedControl& each : form.controls())
        for (const Binding& binding : bindings())
            if (binding.needsFemap && binding.event.control == each.name)
                each.control->Enabled = false;
}

}  // namespace

Ended EventDispatcher::run(std::string_view name, const std::function<void()>& procedure)
{
    if (busy_)
        return Ended::NotStarted;
    const Busy busy(busy_);
    const Ended ended = carryOut("In " + std::string(name), procedure);
    lookForSecondForm(session_);
    flushLog();
    return ended;
}

Ended EventDispatcher::carryOut(const std::string& where, const std::function<void()>& procedure)
{
    try {
        const bool endedNormally =
            session_.context.error.attempt([&] { sys::whileMemoryLasts("", procedure); });
        if (!endedNormally)
            lastFailure_ = session_.context.error.description();
        reportPending(where);
        // The procedure may have left these steps out because of an error that it ignored.
        form::endProgress(session_.context);
        releaseLocks(session_.context);
        resetPointers();
        if (endedNormally)
            return Ended::Normally;
        showFailure(where);
    }
    catch (const femap::ConnectionLost& lost) {
        forgetFemap(where, lost.what());
    }
    catch (const femap::WaitEnded& ended) {
        leaveFemapAlone(where, ended.what());
    }
    return Ended::ByError;
}

// People read the log while the form is open and after the program broke down.
void EventDispatcher::flushLog()
{
    Context& context = session_.context;
    context.log.flush();
    if (!context.log.failure().empty() && !std::exchange(logFailureIsTold_, true))
        context.form.status.tellAsWell(context.log.failure());
}

// No error is lost without a line in the log.
void EventDispatcher::reportPending(const std::string& where)
{
    Context& context = session_.context;
    if (context.error.isPending())
        logPositionAndClearErrorIfAny(context.log, context.error, where);
}

// Shows the latest failure on the status line and in FEMAP's message window.
void EventDispatcher::showFailure(const std::string& where)
{
    Context& context = session_.context;
    context.form.status.tellFailure(lastFailure_);
    if (context.application != nullptr)
        context.error.attempt([&] { form::showMessage(context, lastFailure_); });
    reportPending(where);
}

// Gives up a FEMAP that is gone: nothing is asked of it any more.
void EventDispatcher::forgetFemap(const std::string& where, const std::string& reason)
{
    Context& context = session_.context;
    lastFailure_ = femapIsGone;
    context.lockDepth = 0;
    context.femapShowsProgress = false;
    form::endProgress(context);
    context.form.function.reset();
    context.form.openModel.reset();
    context.application.reset();
    session_.eventFemap.reset();
    session_.endedWait = {};
    disableWhatNeedsFemap(context.form);
    context.form.status.tellFailure(femapIsGone);

    context.error.note({sys::ErrorNumber::ObjectFailed, reason});
    reportPending(where);
    resetPointers();
}

// Asks nothing of a FEMAP that is busy. What is to be undone there waits until it answers.
void EventDispatcher::leaveFemapAlone(const std::string& where, const std::string& reason)
{
    Context& context = session_.context;
    EndedWait& ended = session_.endedWait;
    ended.isThere = true;
    ended.locks += std::exchange(context.lockDepth, 0);
    ended.showsProgress |= std::exchange(context.femapShowsProgress, false);
    form::endProgress(context);
    ended.reason = reason;
    lastFailure_ = reason;
    tellEndedWait(session_);

    context.error.note({sys::ErrorNumber::ObjectFailed, reason});
    reportPending(where);
    resetPointers();
}

void EventDispatcher::resetPointers()
{
    Context& context = session_.context;
    const auto isChanged = [](const form::NamedControl& each) {
        return each.control->MousePointer != form::pointerDefault;
    };
    if (std::ranges::none_of(context.form.controls(), isChanged))
        return;
    context.form.setMousePointers(form::pointerDefault);
    logDebug(context.log, "Mouse pointers are back to the default");
}

void releaseLocks(Context& context)
{
    while (context.lockDepth > 0) {
        const int held = context.lockDepth;
        if (context.error.attempt([&] { form::unlockFemap(context); }))
            logDebug(context.log, "Released Femap lock");
        else
            logPositionAndClearErrorIfAny(context.log, context.error, "Releasing the Femap lock");
        context.lockDepth = held - 1;
    }
}

}  // namespace app
