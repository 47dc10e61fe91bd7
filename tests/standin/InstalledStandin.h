// The stand-in as a program that is installed, as FEMAP is: COM starts it for who asks.
#pragma once

#include "standin/StartedStandin.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <string>

namespace comtest
{

/// Registered for good, as long as it lives.
class InstalledStandin
{
public:
    /// switches: what it is started with, a line for each.
    explicit InstalledStandin(const std::string& switches = {})
    {
        EXPECT_EQ(runStandin("/regserver"), 0U);
        SetEnvironmentVariableA("FEMAP_STANDIN_SWITCHES", switches.c_str());
    }
    ~InstalledStandin()
    {
        SetEnvironmentVariableA("FEMAP_STANDIN_SWITCHES", nullptr);
        EXPECT_EQ(runStandin("/unregserver"), 0U);
    }
    InstalledStandin(const InstalledStandin&) = delete;
    InstalledStandin& operator=(const InstalledStandin&) = delete;
};

}  // namespace comtest
