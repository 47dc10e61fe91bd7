#include "femap/com/bulk/MissingValue.h"

#include <gtest/gtest.h>

namespace femap::com::bulk
{
namespace
{

using sys::ErrorNumber;

TEST(MissingValue, KnowsNothingAfterOneRefusal)
{
    MissingValue missing;
    missing.learn(17, ErrorNumber::ObjectFailed);
    missing.learn(17, ErrorNumber::ObjectFailed);

    EXPECT_FALSE(missing.isRefused());
}

TEST(MissingValue, IsRefusedEverywhereAfterTwoEntitiesWere)
{
    MissingValue missing;
    missing.learn(7, ErrorNumber::InvalidCall);
    missing.learn(12, ErrorNumber::InvalidCall);

    EXPECT_TRUE(missing.isRefused());
    EXPECT_EQ(missing.number(), ErrorNumber::InvalidCall);
}

TEST(MissingValue, IsNotKnownFromUnlikeRefusals)
{
    MissingValue missing;
    missing.learn(1, ErrorNumber::ObjectFailed);
    missing.learn(2, ErrorNumber::InvalidCall);
    missing.learn(3, ErrorNumber::InvalidCall);

    EXPECT_FALSE(missing.isRefused());
}

TEST(MissingValue, IsNotKnownOnceItWasGivenUp)
{
    MissingValue missing;
    missing.giveUp();
    missing.learn(1, ErrorNumber::ObjectFailed);
    missing.learn(2, ErrorNumber::ObjectFailed);

    EXPECT_FALSE(missing.isRefused());
}

}  // namespace
}  // namespace femap::com::bulk
