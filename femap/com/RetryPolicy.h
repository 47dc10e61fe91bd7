// How long to wait for a busy FEMAP: quietly for half a minute, then with a message to the
// engineer. When it rejects a call, that is repeated for ten minutes, or for seconds when the
// program ends; a call that it has taken lasts until it answers. The engineer can end both kinds of
// waits, but not the one for a dialog of FEMAP's, which is ended there.
#pragma once

#include "femap/Objects.h"

#include <windows.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace femap::com
{

/// Whether FEMAP rejected a call because it is busy for now: at work, or showing a dialog.
bool meansBusy(HRESULT result);

class RetryPolicy
{
public:
    using Duration = std::chrono::milliseconds;

    static constexpr Duration pause{250};
    static constexpr Duration quietTime{30'000};
    static constexpr Duration longest{600'000};
    static constexpr Duration longestAtEnd{3'000};
    /// A shorter one is no wait that anybody would end.
    static constexpr Duration shortest{500};

    /// The name of a call: "feNode" and "Get".
    struct CallName
    {
        std::string_view object;
        std::string_view member;
        bool showsDialog = false;  // in FEMAP, where alone the wait for its end can be ended
    };

    /// Called when a wait begins.
    std::function<void()> begins;
    /// Called once for each long wait, and when one is ended.
    std::function<void(const std::string& text)> report;
    /// Asked again and again while the program waits: whether the engineer ends that.
    std::function<bool()> isToEnd = [] { return false; };

    // The clock. While wait runs, the program's windows are painted and handle nothing else.
    std::function<Duration()> now = systemTime;
    std::function<void(Duration)> wait = waitPainting;
    std::function<std::string(Duration)> timeBefore = localTimeBefore;  // "14:03:22"

    /// Makes a call, and makes it again while FEMAP is busy. Returns its last result; raises
    /// WaitEnded when the engineer ended the wait.
    template <class Call>
    HRESULT whileBusy(CallName name, const Call& call)
    {
        HRESULT result = made(name, call);
        while (meansBusy(result)) {
            const std::optional<Duration> time = rejected();
            if (!time)
                break;
            wait(*time);
            result = made(name, call);
        }
        answered();
        if (std::exchange(isEnded_, false) && FAILED(result))
            throw ended();
        return result;
    }

    /// Whether a rejected call is repeated for a few seconds only, as when the program ends.
    void waitBriefly(bool briefly) { limit_ = briefly ? longestAtEnd : longest; }
    /// While it lives no rejected call is repeated.
    class NoWaits
    {
    public:
        explicit NoWaits(RetryPolicy& policy)
            : policy_(policy), before_(std::exchange(policy.limit_, Duration::zero()))
        {}
        ~NoWaits() { policy_.limit_ = before_; }
        NoWaits(const NoWaits&) = delete;
        NoWaits& operator=(const NoWaits&) = delete;

    private:
        RetryPolicy& policy_;
        Duration before_;
    };

    /// FEMAP rejected the call: how long to wait before the next try; none: give up.
    std::optional<Duration> rejected();
    /// The call ended, well or not; the waiting time of the next one starts at zero.
    void answered() { began_.reset(); }

    /// FEMAP has not answered the present call yet, if there is one. Returns whether it is to be
    /// abandoned.
    bool pending();
    /// Whether a call is under way. Other threads may ask.
    bool isCalling() const { return isCalling_; }

private:
    template <class Call>
    HRESULT made(CallName name, const Call& call)
    {
        callName_ = name;
        callBegan_ = now();
        isLongCallReported_ = false;
        isTaken_ = false;
        const bool isWithinAnother = isCalling_.exchange(true);
        const HRESULT result = call();
        isCalling_ = isWithinAnother;
        return result;
    }
    bool endsNow(bool isTaken);
    WaitEnded ended() const;
    static std::string localTimeBefore(Duration time);
    static Duration systemTime();
    static void waitPainting(Duration time);

    Duration limit_ = longest;
    std::optional<Duration> began_;
    bool reported_ = false;

    CallName callName_;
    Duration callBegan_{};
    bool isLongCallReported_ = false;
    std::atomic<bool> isCalling_ = false;
    bool isEnded_ = false;  // by the engineer
    bool isTaken_ = false;  // by FEMAP, the call whose wait was ended
};

}  // namespace femap::com
