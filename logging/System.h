#pragma once

#include "logging/CodePage.h"
#include "logging/Files.h"

#include <chrono>
#include <functional>
#include <string>

namespace logging
{

struct LocalTime
{
    int year = 0;
    int month = 0;  // 1 to 12
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
    int millisecond = 0;
};

/// What the program needs of the operating system. The programs bring the real things, tests
/// their own.
struct System
{
    Files& files;
    const CodePage& codePage;
    std::function<LocalTime()> localTime;
    /// Seconds since some fixed moment, never going back.
    std::function<double()> monotonicSeconds;
    /// Value of an environment variable, empty when it is not set.
    std::function<std::string(const std::string& name)> environment;
    /// Lets some time pass; empty where none passes.
    std::function<void(std::chrono::milliseconds pause)> wait = {};
};

/// The machine as the standard library shows it: disk, Windows-1252, clock, environment.
System standardSystem();

}  // namespace logging
