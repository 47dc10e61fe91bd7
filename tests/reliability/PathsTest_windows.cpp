#include "generate/ModelPath.h"
#include "reliability/RealFolder.h"
#include "system/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace reliability
{

using generate::splitModelPath;
using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;

TEST(APathOnWindows, MayHaveEitherSlashAndAnyBeginning)
{
    EXPECT_EQ(splitModelPath("C:/models/a b/beam.mod").folder, "C:/models/a b/");
    EXPECT_EQ(splitModelPath("C:/models/a b/beam.mod").name, "beam");
    EXPECT_EQ(splitModelPath("C:\\work/v1.2\\beam.mod").folder, "C:\\work/v1.2\\");
    EXPECT_EQ(splitModelPath("\\\\server\\share\\beam.mod").folder, "\\\\server\\share\\");
    EXPECT_EQ(splitModelPath("\\\\?\\C:\\work\\beam.mod").folder, "\\\\?\\C:\\work\\");
    EXPECT_EQ(splitModelPath("\\\\?\\UNC\\server\\share\\beam.mod").name, "beam");
}

TEST(Apply, WorksWithForwardSlashes)
{
    RealFolder place({"inner"});
    for (char& c : place.femap.modelName)
        c = c == '\\' ? '/' : c;

    expectThatApplyWorks(place, "beam");
}

TEST(Apply, WorksWithThePrefixForLongPaths)
{
    RealFolder place({"inner"});
    place.femap.modelName = "\\\\?\\" + place.femap.modelName;

    expectThatApplyWorks(place, "beam");
}

TEST(Apply, SaysWhyAShareCannotBeReached)
{
    RealFolder place;
    place.femap.modelName = "\\\\no-such-server\\share\\beam.mod";

    try {
        place.apply("Ombra");
        ADD_FAILURE() << "there is no such server";
    }
    catch (const sys::RuntimeError& error) {
        EXPECT_THAT(error.description(), AllOf(HasSubstr(". beam.kvp was not written. "),
                                               EndsWith(": \\\\no-such-server\\share\\beam.kvp")));
    }
}

}  // namespace reliability
