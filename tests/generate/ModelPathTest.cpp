#include "fake/GenerateFixture.h"
#include "generate/ModelPath.h"
#include "system/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace generate
{

TEST(ModelPath, EndsItsFolderWithTheSeparatorAndItsNameBeforeTheLastPoint)
{
    const ModelPath model = splitModelPath(inWork("wing.v2.modfem"));

    EXPECT_EQ(model.folder, inWork(""));
    EXPECT_EQ(model.name, "wing.v2");
}

TEST(ModelPath, TakesEverythingAfterTheLastSeparatorWhenThereIsNoPoint)
{
    const ModelPath model = splitModelPath(inWork("plate"));

    EXPECT_EQ(model.folder, inWork(""));
    EXPECT_EQ(model.name, "plate");
}

TEST(ModelPath, IsAllNameWithoutASeparator)
{
    const ModelPath model = splitModelPath("beam.mod");

    EXPECT_EQ(model.folder, "");
    EXPECT_EQ(model.name, "beam");
}

TEST(ModelPath, MayHaveAnEmptyNameBeforeThePoint)
{
    EXPECT_EQ(splitModelPath(inWork(".mod")).name, "");
}

TEST(ModelPath, IsRefusedWhenTheOnlyPointLiesInAFolderName)
{
    const std::string path = inWork("run.1") + sys::pathSeparator + "plate";

    try {
        splitModelPath(path);
        FAIL() << "no error was raised";
    }
    catch (const sys::RuntimeError& error) {
        EXPECT_EQ(error.number(), sys::ErrorNumber::InvalidCall);
        EXPECT_EQ(error.description(),
                  "A folder of the model's file has a point in its name, but the file has no "
                  "extension of its own. Save the model under a name with an extension: " +
                      path);
    }
}

TEST(ModelPath, KeepsAPointInAFolderNameWhenTheFileHasOneToo)
{
    const std::string folder = inWork("run.1") + sys::pathSeparator;

    const ModelPath model = splitModelPath(folder + "plate.mod");

    EXPECT_EQ(model.folder, folder);
    EXPECT_EQ(model.name, "plate");
}

TEST(ModelPath, KeepsAThousandCharactersAndUnusualOnes)
{
    const std::string name = std::string(1000, 'x') + " & 100% o'clock Träger";

    EXPECT_EQ(splitModelPath(inWork(name + ".modfem")).name, name);
}

TEST(ModelPath, OfTheOpenModelRaisesWhenNoneIsOpen)
{
    GenerateFixture f;
    f.femap.model.reset();

    EXPECT_THROW(openModelPath(f.context), sys::RuntimeError);
}

TEST(APathElsewhere, MayHaveBackslashesInItsNames)
{
    EXPECT_EQ(splitModelPath("/models/a\\b.mod").folder, "/models/");
    EXPECT_EQ(splitModelPath("/models/a\\b.mod").name, "a\\b");
}

}  // namespace generate
