#include "generate/ModelPath.h"
#include "reliability/RealFolder.h"
#include "system/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace reliability
{

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

namespace
{

std::vector<std::string> levelsOfLength(std::size_t length)
{
    std::vector<std::string> levels;
    for (; length > 100; length -= 101)
        levels.push_back(std::string(100, 'd'));
    if (length > 1)
        levels.push_back(std::string(length - 1, 'e'));
    return levels;
}

}  // namespace

TEST(Apply, WorksInFoldersOfUnusualNames)
{
    RealFolder place({"with  blanks", "v1.2.3", "it's & 100% (a) [b] {c} #1 ~x~ $HOME %TEMP%",
                      "Träger Ø12", "梁 κ", "e\u0301"});

    expectThatApplyWorks(place, "beam");
}

TEST(Apply, WorksForModelsOfUnusualNames)
{
    for (const std::string name : {"a b", "v1.2", "it's", "R&D", "100%", "%TEMP%", "beam (2)"}) {
        RealFolder place({}, name);

        expectThatApplyWorks(place, name);
    }
}

TEST(Apply, WorksForAModelWithANonAsciiName)
{
    RealFolder place({}, "Träger Ø12");

    place.apply("Ombra");

    EXPECT_THAT(place.folder.listing(),
                testing::IsSupersetOf({"Träger Ø12.kvp", "Träger Ø12.pcs", "Träger Ø12.par",
                                       "Träger Ø12Control.txt"}));
    EXPECT_THAT(place.read("Träger Ø12.kvp"), HasSubstr("set linkfile \"Tr\xE4ger \xD8"
                                                        "12.pcs\""));
}

TEST(Apply, WritesNothingForAModelWhoseNameTheCodePageLacks)
{
    for (const std::string name : {"梁", "beam κ", "e\u0301"}) {
        RealFolder place({"梁 κ"}, name);

        try {
            place.apply("Velmar");
            ADD_FAILURE() << "the batch file would delete the results of other models";
        }
        catch (const sys::RuntimeError& error) {
            EXPECT_EQ(error.description(),
                      "This machine's code page lacks a character of the model's name. Save the "
                      "model under a name without it and try again: " +
                          name + ".mod");
        }

        EXPECT_EQ(place.femap.lockCount, 0);
        EXPECT_TRUE(std::filesystem::is_empty(
            std::u8string(place.modelFolder.begin(), place.modelFolder.end())));
    }
}

TEST(Apply, WorksWithPathsOfAnyLength)
{
    for (const std::size_t length : {240U, 260U, 1000U}) {
        const std::size_t above = fake::TemporaryFolder().path().size();
        RealFolder place(levelsOfLength(length - above - std::string("/beam.mod").size()));
        ASSERT_NEAR(static_cast<double>(place.femap.modelName.size()), static_cast<double>(length),
                    12);

        expectThatApplyWorks(place, "beam");
    }
}

TEST(Apply, SaysWhichFileCannotBeWrittenBecauseOfALongNameAndCutsNone)
{
    RealFolder place({}, std::string(300, 'n'));

    try {
        place.apply("Ombra");
        ADD_FAILURE() << "there is no file system with such names";
    }
    catch (const sys::RuntimeError& error) {
        EXPECT_THAT(error.description(), AllOf(StartsWith("File name too long. "),
                                               EndsWith("try again: " + place.modelFolder +
                                                        std::string(300, 'n') + ".kvp")));
    }

    EXPECT_THAT(place.folder.listing(), IsEmpty());
}

TEST(Apply, SaysThatTheFolderIsGone)
{
    RealFolder place;
    place.femap.modelName = place.modelFolder + "gone" + separator + "beam.mod";

    try {
        place.apply("Ombra");
        ADD_FAILURE() << "the folder is not there";
    }
    catch (const sys::RuntimeError& error) {
        EXPECT_THAT(error.description(), HasSubstr(". beam.kvp was not written. "));
        EXPECT_THAT(error.description(), StartsWith("No such file or directory"));
        EXPECT_THAT(error.description(), HasSubstr("See that its folder is there"));
    }
}

}  // namespace reliability
