#include "femap/com/bulk/MissingValue.h"

#include <gtest/gtest.h>

namespace femap::com::bulk
{
namespace
{

using sys::ErrorNumber;
using sys::RuntimeError;

RuntimeError refusal(const std::string& text, ErrorNumber number = ErrorNumber::ObjectFailed)
{
    return {number, text};
}

TEST(MissingValue, KnowsNothingAfterOneRefusal)
{
    MissingValue missing;
    missing.learn(17, refusal("no value at 17"));
    missing.learn(17, refusal("no value at 17"));

    EXPECT_FALSE(missing.refusalOf(18));
}

TEST(MissingValue, PutsTheIDWhereTwoRefusalsHadTheirs)
{
    MissingValue missing;
    missing.learn(7, refusal("vector 7 has no value at 7 (code 7)", ErrorNumber::InvalidCall));
    missing.learn(12, refusal("vector 7 has no value at 12 (code 7)", ErrorNumber::InvalidCall));

    const auto other = missing.refusalOf(345);

    ASSERT_TRUE(other);
    EXPECT_EQ(other->description(), "vector 7 has no value at 345 (code 7)");
    EXPECT_EQ(other->number(), ErrorNumber::InvalidCall);
}

TEST(MissingValue, RepeatsWordsWithoutAnID)
{
    MissingValue missing;
    missing.learn(1, refusal("code 1"));
    missing.learn(2, refusal("code 1"));

    ASSERT_TRUE(missing.refusalOf(3));
    EXPECT_EQ(missing.refusalOf(3)->description(), "code 1");
}

TEST(MissingValue, IsNotKnownFromUnlikeRefusals)
{
    MissingValue words;
    words.learn(1, refusal("no value at 1"));
    words.learn(2, refusal("the element 2 has none"));
    words.learn(3, refusal("no value at 3"));
    MissingValue numbers;
    numbers.learn(1, refusal("no value at 1"));
    numbers.learn(2, refusal("no value at 2", ErrorNumber::InvalidCall));

    EXPECT_FALSE(words.refusalOf(4));
    EXPECT_FALSE(numbers.refusalOf(4));
}

TEST(MissingValue, IsNotKnownOnceItWasGivenUp)
{
    MissingValue missing;
    missing.giveUp();
    missing.learn(1, refusal("no value at 1"));
    missing.learn(2, refusal("no value at 2"));

    EXPECT_FALSE(missing.refusalOf(3));
}

}  // namespace
}  // namespace femap::com::bulk
