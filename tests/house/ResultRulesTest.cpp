#include "ResultRules.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

using house::breachesOf;
using house::resultsThatNobodyLooksAt;
using house::SourceFile;
using house::streamsOnFiles;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

TEST(EveryResultOfCom, IsLookedAt)
{
    EXPECT_THAT(breachesOf(resultsThatNobodyLooksAt), IsEmpty());
}

TEST(EveryFile, IsReachedThroughOperationsThatRaise)
{
    EXPECT_THAT(breachesOf(streamsOnFiles), IsEmpty());
}

TEST(ResultsThatNobodyLooksAt, AreFoundAtTheBeginningOfAStatement)
{
    const SourceFile file = {
        "femap/com/A.cpp",
        {"{", "    CoInitializeEx(nullptr, 0);", "", "    // why", "    object_->Invoke(1,",
         "                    2);", "    const HRESULT result =", "        CoCreateInstance(id);",
         "    if (FAILED(object_->QueryInterface(id)))", "        return;",
         "    result = object_->Invoke(3);", "}"}};

    EXPECT_THAT(resultsThatNobodyLooksAt(file),
                ElementsAre("femap/com/A.cpp:2: nobody looks at the result",
                            "femap/com/A.cpp:5: nobody looks at the result"));
    EXPECT_THAT(resultsThatNobodyLooksAt({"tests/com/A.cpp", {"CoInitializeEx(nullptr, 0);"}}),
                IsEmpty());
}

TEST(StreamsOnFiles, AreFoundInTheProduct)
{
    EXPECT_THAT(streamsOnFiles({"generate/A.cpp", {"    std::ofstream out(path);"}}),
                ElementsAre("generate/A.cpp:1: std::ofstream keeps a failure to itself"));
    EXPECT_THAT(streamsOnFiles({"tests/A.cpp", {"    std::ofstream out(path);"}}), IsEmpty());
}

}  // namespace
