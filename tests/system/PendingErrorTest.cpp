#include "system/PendingError.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

using sys::ErrorNumber;
using sys::PendingError;
using sys::RuntimeError;

namespace
{

TEST(Attempt, SaysWhetherTheStatementWorked)
{
    PendingError error;
    int runs = 0;

    const bool good = error.attempt([&] { ++runs; });
    const bool bad = error.attempt([&] {
        ++runs;
        throw RuntimeError(ErrorNumber::InvalidCall, "no");
    });

    EXPECT_TRUE(good);
    EXPECT_FALSE(bad);
    EXPECT_EQ(runs, 2);
}

TEST(Attempt, KeepsTheNewestErrorUntilItIsCleared)
{
    PendingError error;

    error.attempt([] { throw RuntimeError(ErrorNumber::InvalidCall, "first"); });
    error.attempt([] { throw RuntimeError(ErrorNumber::ObjectFailed, "second"); });
    error.attempt([] {});
    const std::string pending = error.description();
    error.clear();

    EXPECT_EQ(pending, "second");
    EXPECT_FALSE(error.isPending());
    EXPECT_EQ(error.description(), "");
}

TEST(Attempt, LeavesTheTargetAsItWasWhenTheRightSideFails)
{
    PendingError error;
    std::string value = "old";
    const auto read = []() -> std::string { throw RuntimeError(ErrorNumber::NoSuchMember, "no"); };

    error.attempt([&] { value = read(); });

    EXPECT_EQ(value, "old");
}

TEST(Attempt, LetsAMistakeInTheProgramThrough)
{
    PendingError error;

    EXPECT_THROW(error.attempt([] { throw std::logic_error("ours"); }), std::logic_error);

    EXPECT_FALSE(error.isPending());
}

TEST(RuntimeErrorTest, CarriesItsNumberAndDescription)
{
    const RuntimeError error(ErrorNumber::SubscriptOutOfRange, "The grid has no row 7");

    EXPECT_EQ(error.number(), ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(error.description(), "The grid has no row 7");
}

}  // namespace
