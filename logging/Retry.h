#pragma once

#include "logging/RuntimeError.h"
#include "logging/System.h"

#include <chrono>

namespace logging
{

constexpr int retries = 5;
constexpr std::chrono::milliseconds pauseBeforeRetry(100);

/// Does something with a file, and once more a little later while the system denies it: virus
/// scanners and sync clients hold a fresh file open for a moment. What is denied to the end raises.
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

}  // namespace logging
