#include "StudyFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

namespace study
{
namespace
{

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

class StudyCheck : public testing::Test
{
protected:
    StudyFixture f;

    // The exit code of a check of the script, which follows a line that starts the form.
    int check(const std::string& script)
    {
        return checkAll("start " + f.modelPath() + "$beam.log$ALWAYS\n" + script);
    }
    int checkAll(const std::string& script)
    {
        f.write("beam.study", script);
        return f.call({"--check", f.folder.path("beam.study")});
    }
    std::vector<std::string> errors() const { return splitLines(f.error()); }
    // The line on standard output that begins with the script, without the folder before that.
    std::string verdict() const
    {
        const std::string text = f.output.str();
        const std::size_t begin = text.find("beam.study: ");
        return text.substr(begin, text.find('\n', begin) - begin);
    }
    std::vector<std::string> files() const
    {
        std::vector<std::string> result;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(f.folder.path()))
            result.push_back(entry.path().filename().string());
        std::sort(result.begin(), result.end());
        return result;
    }
};

constexpr const char* goodStudy = R"text(
set InputSelection Nodes
pick all
choose x | y
click InputsButton
set OutputSelection Mass Properties
choose MassTotal
click OutputsButton
click GenerateButton
print InputsList
)text";

TEST_F(StudyCheck, FindsNoProblemInAScriptThatRuns)
{
    EXPECT_EQ(check(goodStudy), 0);

    EXPECT_EQ(verdict(), "beam.study: no problem found");
    EXPECT_THAT(errors(), IsEmpty());
}

TEST_F(StudyCheck, WritesNothing)
{
    check(goodStudy);

    EXPECT_THAT(files(), ElementsAre("beam.neu", "beam.study"));
}

TEST_F(StudyCheck, LeavesTheFilesOfTheLastRunAsTheyAre)
{
    f.run(goodStudy);
    const auto before = files();
    f.write("InputValues.txt", "kept");

    check(goodStudy);

    EXPECT_EQ(files(), before);
    EXPECT_EQ(f.read("InputValues.txt"), "kept");
}

TEST_F(StudyCheck, SeesTheFilesThatTheScriptItselfWouldWrite)
{
    f.write("beamControl.txt", "xAtNode1\t1\tNode\t1\tx\t\r\n\r\n");

    EXPECT_EQ(check("click GenerateButton\nevent 2\nclick RefreshInputs\n"), 0);

    EXPECT_EQ(f.read("beamControl.txt"), "xAtNode1\t1\tNode\t1\tx\t\r\n\r\n");
}

TEST_F(StudyCheck, TellsEveryProblemAtOnce)
{
    EXPECT_EQ(check("stop\n"
                    "set Colour red\n"
                    "pick 99\n"
                    "click InputsButton\n"
                    "pick 1\n"
                    "choose w\n"
                    "click InputsButton\n"
                    "print Nothing\n"
                    "put Node 99 x 1\n"
                    "choose y\n"),
              1);

    EXPECT_THAT(errors(),
                ElementsAre(StartsWith("beam.study:2: \"stop\" is no action"),
                            StartsWith("beam.study:3: \"Colour\" cannot be set"),
                            AllOf(StartsWith("beam.study:4: "), HasSubstr("the ID 99")),
                            AllOf(StartsWith("beam.study:7: "), HasSubstr("no item \"w\"")),
                            StartsWith("beam.study:9: \"Nothing\" cannot be printed"),
                            StartsWith("beam.study:10: "),
                            StartsWith("beam.study:11: this choose was never used")));
    EXPECT_EQ(verdict(), "beam.study: 7 problems");
}

TEST_F(StudyCheck, LeavesOutWhatOnlyFollowsFromAWrongAnswer)
{
    EXPECT_EQ(check("pick one\n"
                    "choose x\n"
                    "click InputsButton\n"
                    "pick 1\n"
                    "choose x | | y\n"
                    "click InputsButton\n"),
              1);

    EXPECT_THAT(errors(), ElementsAre(StartsWith("beam.study:2: \"one\" is no ID"),
                                      StartsWith("beam.study:6: choose names an empty item")));
}

TEST_F(StudyCheck, LeavesOutWhatOnlyFollowsFromAMissingModel)
{
    EXPECT_EQ(checkAll("start none.neu\n"
                       "pick 1\n"
                       "choose x\n"
                       "click InputsButton\n"
                       "put Node 1 x 2\n"
                       "click Nothing\n"),
              1);

    EXPECT_THAT(errors(), ElementsAre(AllOf(StartsWith("beam.study:1: "), HasSubstr("none.neu")),
                                      StartsWith("beam.study:6: \"Nothing\" is no button")));
}

TEST_F(StudyCheck, MissesTheStartOnlyOnce)
{
    EXPECT_EQ(checkAll("set Solver NXNastran\nclick InputsButton\n"), 1);

    EXPECT_THAT(errors(), ElementsAre(StartsWith("beam.study:1: the form is not started yet")));
    EXPECT_EQ(verdict(), "beam.study: 1 problem");
}

TEST_F(StudyCheck, GoesOnAfterALineThatIsNoText)
{
    EXPECT_EQ(check("set Solver \xff\nstop\n"), 1);

    EXPECT_THAT(errors(), ElementsAre(StartsWith("beam.study:2: the line is not UTF-8 text"),
                                      StartsWith("beam.study:3: \"stop\" is no action")));
}

TEST_F(StudyCheck, ShowsWhatFemapWouldSay)
{
    EXPECT_EQ(check("set Optimizer KORVA\nprint Optimizer\n"), 0);

    EXPECT_EQ(f.outputLines().front(), "FEMAP: KORVA format not currently supported");
    EXPECT_THAT(f.outputLines()[1], HasSubstr("no problem found"));
}

TEST_F(StudyCheck, TellsAFolderThatIsNotThere)
{
    f.write("a.study", "start " + f.modelPath() + "$beam.log$ALWAYS\n");
    f.environment = {{"TEMP", f.folder.path("none/at all")}};

    f.call({"--check", f.folder.path("a.study")});

    EXPECT_THAT(f.error(), HasSubstr("There is no log: "));
}

TEST(StudyColours, MarkThePlaceOfAProblem)
{
    StudyFixture f;
    f.showsColours = true;

    f.run("stop\n");

    EXPECT_THAT(f.error(), StartsWith("\x1b[1;31mbeam.study:2:\x1b[0m \"stop\" is no action"));
}

}  // namespace
}  // namespace study
