#include "femap/com/RetryPolicy.h"

#include <array>
#include <ctime>

namespace femap::com
{

namespace
{

constexpr const char* waitingText =
    "FEMAP is working or shows a dialog. Waiting for it \xE2\x80\xA6";
constexpr const char* dialogText = "FEMAP shows a dialog of its own. End it there";

// Handles only paint messages and messages that other programs send. Keys, the mouse and timers
// stay queued: a handler must not begin while another waits for FEMAP.
void paintWindows()
{
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE | PM_QS_PAINT | PM_QS_SENDMESSAGE))
        DispatchMessageW(&message);
}

}  // namespace

bool meansBusy(HRESULT result)
{
    return result == RPC_E_CALL_REJECTED || result == RPC_E_SERVERCALL_RETRYLATER;
}

std::optional<RetryPolicy::Duration> RetryPolicy::rejected()
{
    const Duration time = now();
    if (!began_) {
        began_ = time;
        reported_ = false;
        if (begins)
            begins();
    }
    const Duration waited = time - *began_;
    if (isEnded_ || waited >= limit_ || (waited >= shortest && endsNow(false)))
        return std::nullopt;
    if (waited >= quietTime && !reported_) {
        reported_ = true;
        if (report)
            report(waitingText);
    }
    return pause;
}

bool RetryPolicy::pending()
{
    if (!isCalling_)
        return false;
    const Duration waited = now() - callBegan_;
    if (isEnded_ || (waited >= shortest && endsNow(true)))
        return true;
    if (waited < quietTime || isLongCallReported_)
        return false;
    isLongCallReported_ = true;
    if (report)
        report("FEMAP has not answered since " + timeBefore(waited) + " (" +
               std::string(callName_.object) + "." + std::string(callName_.member) +
               "). It computes, or it shows a dialog: look for one in FEMAP, also behind other "
               "windows");
    return false;
}

// Whether the engineer ends the wait; then says so at once, for that may be long before COM gives
// up the call.
bool RetryPolicy::endsNow(bool isTaken)
{
    if (!isToEnd())
        return false;
    isTaken_ = isTaken;
    isEnded_ = !(isTaken && callName_.showsDialog);
    if (report)
        report(isEnded_ ? ended().what() : dialogText);
    return isEnded_;
}

WaitEnded RetryPolicy::ended() const
{
    const std::string call = std::string(callName_.object) + "." + std::string(callName_.member);
    return {isTaken_ ? "The wait for FEMAP is ended. It may still carry out the call: " + call
                     : "The wait for FEMAP is ended, which did not take the call: " + call,
            isTaken_};
}

std::string RetryPolicy::localTimeBefore(Duration time)
{
    const std::time_t then = std::time(nullptr) - static_cast<std::time_t>(time.count() / 1000);
    std::tm parts{};
    if (localtime_s(&parts, &then) != 0)
        return "?";
    std::array<char, 16> text{};
    return {text.data(), std::strftime(text.data(), text.size(), "%H:%M:%S", &parts)};
}

RetryPolicy::Duration RetryPolicy::systemTime()
{
    return std::chrono::duration_cast<Duration>(
        std::chrono::steady_clock::now().time_since_epoch());
}

void RetryPolicy::waitPainting(Duration time)
{
    const Duration end = systemTime() + time;
    for (Duration left = time; left.count() > 0; left = end - systemTime()) {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(left.count()),
                                  QS_PAINT | QS_SENDMESSAGE);
        paintWindows();
    }
}

}  // namespace femap::com
