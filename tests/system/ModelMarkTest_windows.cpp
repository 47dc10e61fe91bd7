#include "system/ModelMark.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace
{

using sys::markModel;

TEST(ModelMark, IsTheSecondWhileAnotherIsThere)
{
    auto first = markModel("C:\\work\\beam.modfem");
    EXPECT_FALSE(first->isSecond());
    EXPECT_TRUE(markModel("C:\\work\\beam.modfem")->isSecond());
    first.reset();

    EXPECT_FALSE(markModel("C:\\work\\beam.modfem")->isSecond());
}

TEST(ModelMark, IsThatOfTheModelHoweverItsPathIsWritten)
{
    const auto first = markModel("C:\\Work\\Tr\u00e4ger.modfem");

    EXPECT_TRUE(markModel("c:/WORK/TR\u00c4GER.MODFEM")->isSecond());
    EXPECT_FALSE(markModel("C:\\Work\\Trager.modfem")->isSecond());
    EXPECT_FALSE(markModel("D:\\Work\\Tr\u00e4ger.modfem")->isSecond());
}

TEST(ModelMark, IsSetOnPathsOfAnyLength)
{
    const std::string path = "C:\\" + std::string(1000, 'a') + "\\beam.modfem";
    const auto first = markModel(path);

    EXPECT_FALSE(first->isSecond());
    EXPECT_TRUE(markModel(path)->isSecond());
    EXPECT_FALSE(markModel(path + "b")->isSecond());
}

}  // namespace
