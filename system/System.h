// What the program needs of the operating system; tests bring a system of their own.
#pragma once

#include "system/CodePage.h"
#include "system/Files.h"

#include <chrono>
#include <functional>
#include <string>

namespace sys
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

struct System
{
    Files& files;
    const CodePage& codePage;
    std::function<LocalTime()> localTime;
    /// Seconds since some fixed moment, never going back.
    std::function<double()> monotonicSeconds;
    /// Value of an environment variable, empty when it is not set.
    std::function<std::string(const std::string& name)> environment;
    /// Waits that long; empty where there is no waiting, as in tests.
    std::function<void(std::chrono::milliseconds pause)> wait = {};
};

/// The same system with another disk, which must outlive the result.
System withDisk(const System& system, Files& files);

/// The same system with files in another code page.
System withCodePage(const System& system, const CodePage& codePage);

/// The real system. Its code page is the user's, or Windows-1252 where there is none.
System thisMachine();

}  // namespace sys
