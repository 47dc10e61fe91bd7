// How long to wait for a busy FEMAP: quietly for half a minute, then with a message to the
// engineer, and after ten minutes no longer.
#pragma once

#include <windows.h>

#include <chrono>
#include <functional>
#include <optional>
#include <string>

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

    /// Called when a wait begins.
    std::function<void()> begins;
    /// Called once for each long wait.
    std::function<void(const std::string& text)> report;

    // The clock. While wait runs, the program's windows are painted and handle nothing else.
    std::function<Duration()> now = systemTime;
    std::function<void(Duration)> wait = waitPainting;

    /// Makes a call, and makes it again while FEMAP is busy. Returns its last result.
    template <class Call>
    HRESULT whileBusy(const Call& call)
    {
        HRESULT result = call();
        while (meansBusy(result)) {
            const std::optional<Duration> time = rejected();
            if (!time)
                break;
            wait(*time);
            result = call();
        }
        answered();
        return result;
    }

    /// FEMAP rejected the call: how long to wait before the next try; none: give up.
    std::optional<Duration> rejected();
    /// The call ended, well or not; the waiting time of the next one starts at zero.
    void answered() { began_.reset(); }

private:
    static Duration systemTime();
    static void waitPainting(Duration time);

    std::optional<Duration> began_;
    bool reported_ = false;
};

}  // namespace femap::com
