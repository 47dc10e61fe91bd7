#include "StreamRule.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

using house::breachesOf;
using house::SourceFile;
using house::streamsOnFiles;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

TEST(EveryFile, IsReachedThroughOperationsThatRaise)
{
    EXPECT_THAT(breachesOf(streamsOnFiles), IsEmpty());
}

TEST(StreamsOnFiles, AreFoundInTheProduct)
{
    EXPECT_THAT(streamsOnFiles({"generate/A.cpp", {"    std::ofstream out(path);"}}),
                ElementsAre("generate/A.cpp:1: std::ofstream keeps a failure to itself"));
    EXPECT_THAT(streamsOnFiles({"tests/A.cpp", {"    std::ofstream out(path);"}}), IsEmpty());
}

}  // namespace
