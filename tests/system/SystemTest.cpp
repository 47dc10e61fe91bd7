#include "system/System.h"

#include <gtest/gtest.h>

using sys::LocalTime;
using sys::System;
using sys::thisMachine;

namespace
{

TEST(ThisMachine, KnowsTheLocalTime)
{
    const System system = thisMachine();

    const LocalTime now = system.localTime();

    EXPECT_GE(now.year, 2024);
    EXPECT_TRUE(now.month >= 1 && now.month <= 12);
    EXPECT_TRUE(now.day >= 1 && now.day <= 31);
    EXPECT_TRUE(now.hour >= 0 && now.hour <= 23);
    EXPECT_TRUE(now.minute >= 0 && now.minute <= 59);
    EXPECT_TRUE(now.second >= 0 && now.second <= 60);
    EXPECT_TRUE(now.millisecond >= 0 && now.millisecond <= 999);
}

TEST(ThisMachine, HasAClockThatNeverGoesBack)
{
    const System system = thisMachine();

    const double first = system.monotonicSeconds();
    const double second = system.monotonicSeconds();

    EXPECT_LE(first, second);
}

}  // namespace
