// Repeats an operation on a file while the system denies it: virus scanners and sync clients hold a
// fresh file open for a moment. Raises when it is still denied at the last try.
#pragma once

#include "system/RuntimeError.h"
#include "system/System.h"

#include <chrono>

namespace sys
{

constexpr int retries = 5;
constexpr std::chrono::milliseconds pauseBeforeRetry(100);

template <class Step>
auto retriedWhileDenied(const System& system, Step&& step)
{
    for (int left = retries;; --left) {
        try {
            return step();
        }
        catch (const RuntimeError& error) {
            if (error.number() != ErrorNumber::PermissionDenied || left == 0)
                throw;
        }
        if (system.wait)
            system.wait(pauseBeforeRetry);
    }
}

}  // namespace sys
