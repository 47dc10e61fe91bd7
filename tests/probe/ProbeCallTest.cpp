#include "probe/Probe.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace probe
{

namespace
{

std::string problemOf(const std::vector<std::string>& arguments)
{
    Options ignored;
    return parse(arguments, ignored);
}

}  // namespace

TEST(ProbeCall, TakesAllItsOptions)
{
    Options options;

    EXPECT_EQ(parse({"--ask", "--events", "30", "--write", "copy.modfem", "--no-names", "r.txt"},
                    options),
              "");

    EXPECT_EQ(options.report, "r.txt");
    EXPECT_TRUE(options.asks);
    EXPECT_EQ(options.eventSeconds, 30);
    EXPECT_EQ(options.copy, "copy.modfem");
    EXPECT_TRUE(options.hidesNames);
}

TEST(ProbeCall, ReadsOnlyWhereNothingElseIsSaid)
{
    Options options;

    EXPECT_EQ(parse({"r.txt"}, options), "");

    EXPECT_FALSE(options.asks);
    EXPECT_EQ(options.eventSeconds, 0);
    EXPECT_EQ(options.copy, "");
    EXPECT_FALSE(options.hidesNames);
}

TEST(ProbeCall, TellsWhatIsWrong)
{
    EXPECT_EQ(problemOf({}), "no file for the report is named");
    EXPECT_EQ(problemOf({"--ask"}), "no file for the report is named");
    EXPECT_EQ(problemOf({"a.txt", "b.txt"}), "one report at a time, not also b.txt");
    EXPECT_EQ(problemOf({"--loud", "a.txt"}), "--probe knows no --loud");
    EXPECT_EQ(problemOf({"a.txt", "--write"}), "--probe knows no --write");
    for (const char* const wrong : {"0", "3601", "2s", "-1", "", "99999999999"})
        EXPECT_EQ(problemOf({"--events", wrong, "a.txt"}),
                  std::string("--events takes seconds from 1 to 3600, not ") + wrong);
}

}  // namespace probe
