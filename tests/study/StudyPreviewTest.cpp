#include "StudyFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace study
{
namespace
{

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class StudyPreview : public testing::Test
{
protected:
    StudyFixture f;

    bool isThere(const std::string& name) const
    {
        return std::filesystem::exists(f.folder.path(name));
    }
};

constexpr const char* aSelection = R"text(set Solver NXNastran
set InputSelection Nodes
pick 1 2
choose x
click InputsButton
)text";

TEST_F(StudyPreview, ListsTheFilesAndWritesNone)
{
    EXPECT_EQ(f.run(std::string(aSelection) + "preview\n"), 0);

    EXPECT_THAT(f.outputLines(), Contains(AllOf(StartsWith("new "), EndsWith(" FDFemap.bat"))));
    EXPECT_THAT(f.outputLines(), Contains(AllOf(StartsWith("new "), EndsWith("beamControl.txt"))));
    EXPECT_FALSE(isThere("FDFemap.bat"));
    EXPECT_FALSE(isThere("beamControl.txt"));
}

TEST_F(StudyPreview, ShowsTheDifferenceOfOneFile)
{
    EXPECT_EQ(f.run(std::string(aSelection) + "click GenerateButton\n"
                                              "set CommandLine own \u00e4\n"
                                              "preview FDFemap.bat\n"
                                              "preview InputValues.txt\n"),
              0);

    const std::vector<std::string> lines = f.outputLines();
    const auto begin = std::ranges::find(lines, "--- FDFemap.bat");
    EXPECT_THAT(std::vector(begin, lines.end()),
                ElementsAre("--- FDFemap.bat", "+++ FDFemap.bat", "@@ -1,1 +1,1 @@",
                            StartsWith("-"), "+own \u00e4"))
        << "what is the same has no difference";
    EXPECT_THAT(f.read("FDFemap.bat"), Not(HasSubstr("own")));
}

TEST_F(StudyPreview, StopsAtAFileThatIsNotWritten)
{
    EXPECT_EQ(f.run("preview none.txt\n"), 1);

    EXPECT_EQ(f.error(),
              "beam.study:2: \"none.txt\" is no file that \"Apply\" would write now; those are "
              "listed by preview without a name\n");
}

TEST_F(StudyPreview, TellsWhatWouldFail)
{
    std::filesystem::create_directory(f.folder.path("CAEInput.txt"));

    EXPECT_EQ(f.run(std::string(aSelection) + "preview\n"), 0);

    EXPECT_THAT(f.outputLines(),
                Contains(AllOf(StartsWith("would-fail "),
                               HasSubstr(" CAEInput.txt: it is a folder, not a file. CAEInput"))));
    EXPECT_THAT(f.outputLines(), Contains(StartsWith("\"Apply\" would tell: it is a folder")));
}

TEST_F(StudyPreview, IsTriedByACheck)
{
    f.write("beam.study", "start " + f.modelPath() + "\npreview\npreview none.txt\n");

    EXPECT_EQ(f.call({"--check", f.folder.path("beam.study")}), 1);

    EXPECT_THAT(f.error(), StartsWith("beam.study:3: \"none.txt\" is no file"));
    EXPECT_THAT(f.outputLines(), Not(Contains(StartsWith("new "))));
}

}  // namespace
}  // namespace study
