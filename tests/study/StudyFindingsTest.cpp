#include "StudyFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace study
{
namespace
{

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

class StudyFindings : public testing::Test
{
protected:
    StudyFixture f;

    int call(std::vector<std::string> options, const std::string& script)
    {
        f.write("beam.study", "start " + f.modelPath() + "$beam.log$ALWAYS\n" + script);
        options.push_back(f.folder.path("beam.study"));
        return f.call(options);
    }
    // The lines on standard output that begin so.
    std::vector<std::string> linesWith(const std::string& start) const
    {
        std::vector<std::string> lines;
        for (const std::string& line : f.outputLines())
            if (line.starts_with(start))
                lines.push_back(line);
        return lines;
    }
    // Those that count findings, from the script's name on.
    std::vector<std::string> counts() const
    {
        std::vector<std::string> lines;
        for (const std::string& line : f.outputLines())
            if (const std::size_t at = line.find("beam.study:"); at != std::string::npos)
                lines.push_back(line.substr(at));
        return lines;
    }
};

constexpr const char* firstNodes = R"text(
set InputSelection Nodes
pick 1 2
choose x
click InputsButton
)text";

TEST_F(StudyFindings, EndACheckWithTheStudyThatIsApplied)
{
    EXPECT_EQ(call({"--check"}, std::string(firstNodes) + "click GenerateButton\nclick ClearAll\n"),
              0);

    EXPECT_THAT(counts(), ElementsAre("beam.study: no problem found",
                                      StartsWith("beam.study:7: 2 warnings")));
    EXPECT_THAT(linesWith("warning nothing-varied: No input"), testing::SizeIs(1));
    EXPECT_THAT(linesWith("warning no-template: "), testing::SizeIs(1));
}

TEST_F(StudyFindings, EndACheckWithEachStudyThatIsApplied)
{
    call({"--check"}, "click GenerateButton\nset CommandLine\nclick GenerateButton\n");

    EXPECT_THAT(counts(), ElementsAre("beam.study: no problem found", StartsWith("beam.study:2: "),
                                      StartsWith("beam.study:4: 1 error, ")));
}

TEST_F(StudyFindings, AreThoseAtTheEndOfAScriptWithoutApply)
{
    call({"--check"}, "set CommandLine\nset Solver none\nset CommandLine run\n");
    EXPECT_THAT(counts(),
                ElementsAre("beam.study: no problem found", StartsWith("beam.study:4: 1 error, ")));
    EXPECT_THAT(linesWith("error no-solver: "), testing::SizeIs(1));
}

TEST_F(StudyFindings, AreThoseBeforeTheFormIsClosed)
{
    call({"--check"}, "set CommandLine\nclose\n");

    EXPECT_THAT(counts(),
                ElementsAre("beam.study: no problem found", StartsWith("beam.study:3: 1 error, ")));
}

TEST_F(StudyFindings, AreNotToldOfAScriptWithProblems)
{
    EXPECT_EQ(call({"--check", "--strict"}, "set CommandLine\nstop\n"), 1);

    EXPECT_THAT(counts(), ElementsAre("beam.study: 1 problem"));
}

TEST_F(StudyFindings, DoNotCountFilesThatTheSameApplyWrites)
{
    call({"--check"},
         "set Optimizer Ombra\nclick GenerateButton\nset Optimizer Velmar\n"
         "click GenerateButton\n");

    EXPECT_THAT(linesWith("warning no-template: "), IsEmpty());
}

TEST_F(StudyFindings, GiveExitCode3WhenAskedFor)
{
    EXPECT_EQ(call({"--check", "--strict"}, "set CommandLine\n"), 3);
    EXPECT_EQ(call({"--check"}, "set CommandLine\n"), 0);
    EXPECT_EQ(call({"--check", "--strict"}, "click ClearAll\n"), 0) << "warnings only";
    EXPECT_EQ(call({"--strict"}, "set CommandLine\ncheck\n"), 3);
    EXPECT_EQ(call({"--strict"}, "set CommandLine\ncheck\nstop\n"), 1);
    EXPECT_EQ(call({"--strict"}, "set CommandLine\n"), 0) << "nobody looked";
}

TEST_F(StudyFindings, AreToldByTheActionWhereItStands)
{
    EXPECT_EQ(call({}, "set CommandLine\ncheck\nset CommandLine nastran beam.dat\ncheck\n"), 0);

    EXPECT_THAT(linesWith("error no-command: "), testing::SizeIs(1));
    EXPECT_THAT(f.outputLines(), Contains(StartsWith("1 error, 2 warnings")));
    EXPECT_THAT(f.outputLines().back(), StartsWith("2 warnings"));
}

TEST_F(StudyFindings, OfTheActionAreSilentInACheck)
{
    call({"--check"}, "set CommandLine\ncheck\nset CommandLine nastran beam.dat\n");

    EXPECT_THAT(linesWith("error"), IsEmpty());
}

TEST_F(StudyFindings, AreJsonWhenAskedFor)
{
    call({"--check", "--findings", "json"}, "set CommandLine\n");
    EXPECT_THAT(f.outputLines().back(),
                AllOf(StartsWith(R"({"errors":1,"warnings":2,)"), EndsWith("]}")));

    call({"--findings", "json"}, "check\n");
    EXPECT_THAT(f.outputLines().back(),
                AllOf(StartsWith(R"({"errors":0,)"), HasSubstr(R"("code":"nothing-varied")")));

    call({"--findings", "text"}, "check\n");
    EXPECT_THAT(f.outputLines().back(), Not(StartsWith("{")));
}

}  // namespace
}  // namespace study
