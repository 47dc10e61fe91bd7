// Runs every procedure of the form. Only one runs at a time, and an error that ends it leaves FEMAP
// unlocked and the form usable.
#pragma once

#include "app/Session.h"
#include "femap/Objects.h"

#include <functional>
#include <string>
#include <string_view>

namespace app
{

/// How the run of a procedure ended.
enum class Ended
{
    Normally,
    ByError,
    NotStarted,  // another procedure was running, or the form is closed
};

class EventDispatcher
{
public:
    explicit EventDispatcher(Session& session) : session_(session) {}

    /// Runs a procedure; the name is for the log. Memory that is used up ends it by an error.
    /// Exceptions other than that, RuntimeError, ConnectionLost and WaitEnded pass through.
    Ended run(std::string_view name, const std::function<void()>& procedure);

    bool isBusy() const { return busy_; }

    /// Why the latest procedure that ended by an error did so; empty while none has.
    const std::string& lastFailure() const { return lastFailure_; }

private:
    Ended carryOut(const std::string& where, const std::function<void()>& procedure);
    void flushLog();
    void reportPending(const std::string& where);
    void showFailure(const std::string& where);
    void forgetFemap(const std::string& where, const std::string& reason);
    void leaveFemapAlone(const std::string& where, const std::string& reason);
    void resetPointers();

    Session& session_;
    bool busy_ = false;
    bool logFailureIsTold_ = false;
    std::string lastFailure_;
};

/// Unlocks FEMAP as often as it is still locked.
void releaseLocks(form::Context& context);

}  // namespace app
