#pragma once

#include <windows.h>

#include <chrono>
#include <functional>
#include <optional>
#include <string>

namespace femap::com
{

/// Whether FEMAP rejected a call because it is at work or shows a dialog; the same call may be well
/// a little later.
bool meansBusy(HRESULT result);

/// How long a busy FEMAP is waited for: quietly for half a minute, then with a word to the
/// engineer, and after ten minutes no longer.
class Patience
{
public:
    using Duration = std::chrono::milliseconds;

    static constexpr Duration pause{250};
    static constexpr Duration quietTime{30'000};
    static constexpr Duration longest{600'000};

    /// Called once for each long wait.
    std::function<void(const std::string& text)> report;

    // The clock. wait lets the program's windows be painted meanwhile, and nothing else.
    std::function<Duration()> now = systemTime;
    std::function<void(Duration)> wait = waitPainting;

    /// Makes a call, and makes it again while FEMAP is busy. Returns how it ended.
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

    /// FEMAP rejected the call that is at work: how long to wait before the next try. None: give
    /// up.
    std::optional<Duration> rejected();
    /// The call came to its end, well or not; the next one is waited for anew.
    void answered() { began_.reset(); }

private:
    static Duration systemTime();
    static void waitPainting(Duration time);

    std::optional<Duration> began_;
    bool reported_ = false;
};

}  // namespace femap::com
