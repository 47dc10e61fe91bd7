#include "system/System.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace
{

TEST(ThisMachine, ReadsEnvironmentVariables)
{
    const sys::System system = sys::thisMachine();
    setenv("VELMAR_TEST_VARIABLE", "a value", 1);

    EXPECT_EQ(system.environment("VELMAR_TEST_VARIABLE"), "a value");
    EXPECT_EQ(system.environment("VELMAR_TEST_VARIABLE_THAT_IS_NOT_SET"), "");
}

TEST(ThisMachine, WritesWindows1252)
{
    EXPECT_EQ(&sys::thisMachine().codePage, &sys::windows1252());
}

}  // namespace
