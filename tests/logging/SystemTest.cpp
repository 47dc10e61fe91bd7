#include "logging/System.h"

#include <gtest/gtest.h>

#include <cstdlib>

using logging::LocalTime;
using logging::standardSystem;
using logging::System;

namespace
{

void setVariable(const char* name, const char* value)
{
#ifdef _WIN32
    _putenv_s(name, value);
#else
    setenv(name, value, 1);
#endif
}

TEST(StandardSystem, KnowsTheLocalTime)
{
    const System system = standardSystem();

    const LocalTime now = system.localTime();

    EXPECT_GE(now.year, 2024);
    EXPECT_TRUE(now.month >= 1 && now.month <= 12);
    EXPECT_TRUE(now.day >= 1 && now.day <= 31);
    EXPECT_TRUE(now.hour >= 0 && now.hour <= 23);
    EXPECT_TRUE(now.minute >= 0 && now.minute <= 59);
    EXPECT_TRUE(now.second >= 0 && now.second <= 60);
    EXPECT_TRUE(now.millisecond >= 0 && now.millisecond <= 999);
}

TEST(StandardSystem, HasAClockThatNeverGoesBack)
{
    const System system = standardSystem();

    const double first = system.monotonicSeconds();
    const double second = system.monotonicSeconds();

    EXPECT_LE(first, second);
}

TEST(StandardSystem, ReadsEnvironmentVariables)
{
    const System system = standardSystem();
    setVariable("VELMAR_TEST_VARIABLE", "a value");

    EXPECT_EQ(system.environment("VELMAR_TEST_VARIABLE"), "a value");
    EXPECT_EQ(system.environment("VELMAR_TEST_VARIABLE_THAT_IS_NOT_SET"), "");
}

TEST(StandardSystem, WritesWindows1252)
{
    const System system = standardSystem();

    EXPECT_EQ(&system.codePage, &logging::windows1252());
}

}  // namespace
