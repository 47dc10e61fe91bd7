#include "loop/evaluate/Call.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

using loop::evaluate::Call;
using loop::evaluate::parseCall;
using testing::ElementsAre;

namespace
{

std::string problemOf(const std::vector<std::string>& words)
{
    return parseCall(words).problem;
}

TEST(TheCall, NeedsNoWord)
{
    const Call call = parseCall({});

    EXPECT_EQ(call.problem, "");
    EXPECT_EQ(call.copies, 1U);
    EXPECT_FALSE(call.isEmbedded || call.timeout || call.solver);
}

TEST(TheCall, TakesEveryOption)
{
    const Call call = parseCall({"--femap=embedded", "--folder", "a b", "--points", "p.csv",
                                 "--results", "r.csv", "--again", "-j", "4", "--with", "one",
                                 "--with", "two", "--solver", "solve it", "--timeout", "2.5"});

    EXPECT_EQ(call.problem, "");
    EXPECT_EQ(call.isEmbedded, true);
    EXPECT_EQ(call.folder, "a b");
    EXPECT_EQ(call.points, "p.csv");
    EXPECT_EQ(call.results, "r.csv");
    EXPECT_TRUE(call.repeatsFailures);
    EXPECT_EQ(call.copies, 4U);
    EXPECT_THAT(call.furtherFiles, ElementsAre("one", "two"));
    EXPECT_EQ(call.solver, "solve it");
    EXPECT_EQ(call.timeout, 2.5);
}

TEST(TheCall, TakesTheFilesOfDakotaOneAfterTheOther)
{
    const Call call = parseCall({"--dakota", "params.in", "results.out", "--femap=running"});

    EXPECT_EQ(call.problem, "");
    EXPECT_EQ(call.dakotaParameters, "params.in");
    EXPECT_EQ(call.dakotaResults, "results.out");
    EXPECT_EQ(call.isEmbedded, false);
}

TEST(TheCall, SaysWhatIsWrongWithIt)
{
    EXPECT_EQ(problemOf({"--what"}), "unknown option --what");
    EXPECT_EQ(problemOf({"what"}), "unknown argument what");
    EXPECT_EQ(problemOf({"--folder"}), "--folder needs a value behind it");
    EXPECT_EQ(problemOf({"--timeout"}), "--timeout needs a value behind it");
    EXPECT_EQ(problemOf({"-j"}), "-j needs a value behind it");
    EXPECT_EQ(problemOf({"--dakota", "params.in"}), "--dakota needs a value behind it");
    EXPECT_EQ(problemOf({"-j", "0"}), "-j takes a number from 1 to 256, not \"0\"");
    EXPECT_EQ(problemOf({"-j", "257"}), "-j takes a number from 1 to 256, not \"257\"");
    EXPECT_EQ(problemOf({"--timeout", "0"}), "--timeout takes seconds, such as 600, not \"0\"");
    EXPECT_EQ(problemOf({"--timeout", "5m"}), "--timeout takes seconds, such as 600, not \"5m\"");
}

TEST(TheCall, IsOfOneKindOnly)
{
    EXPECT_EQ(problemOf({"--prove", "--table"}),
              "--points, --dakota, --prove and --table exclude each other");
    EXPECT_EQ(problemOf({"--points", "p.csv"}), "--points and --results go together");
    EXPECT_EQ(problemOf({"--results", "p.csv"}), "--points and --results go together");
    EXPECT_EQ(problemOf({"--points", "p.csv", "--results", "p.csv"}),
              "--points and --results name the same file");
    EXPECT_EQ(problemOf({"--again"}), "--again and -j are for --points");
    EXPECT_EQ(problemOf({"-j", "2"}), "--again and -j are for --points");
    EXPECT_EQ(problemOf({"--with", "x"}), "--with is for the copies of -j");
}

}  // namespace
