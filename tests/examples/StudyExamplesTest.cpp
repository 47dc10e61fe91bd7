#include "fake/Golden.h"
#include "fake/MemoryMachine.h"
#include "findings/Rules.h"
#include "form/MainForm.h"
#include "study/StudyProgram.h"
#include "system/CodePage.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <iterator>
#include <regex>
#include <set>
#include <sstream>

using testing::HasSubstr;
using testing::IsEmpty;

namespace
{

const std::filesystem::path examples = std::filesystem::path(SOURCE_FOLDER) / "examples";

std::string readExample(const std::string& name)
{
    return sys::DiskFiles().read((examples / name).string());
}

/// velmar-study, started in the folder of the examples, on a disk in memory: only the model is read
/// from the real one.
class Replay : public fake::MemoryMachine
{
public:
    Replay()
    {
        std::filesystem::current_path(examples);
        folder = std::filesystem::current_path().string() + sys::pathSeparator;
    }
    ~Replay() { std::filesystem::current_path(folderBefore_); }
    Replay(const Replay&) = delete;
    Replay& operator=(const Replay&) = delete;

    int run(const std::string& script) { return run(script, readExample(script)); }
    int run(const std::string& script, const std::string& content)
    {
        files.contents[script] = content;
        return call({"--quiet", "--femap=embedded", script});
    }
    int check(const std::string& script)
    {
        files.contents[script] = readExample(script);
        return call({"--quiet", "--femap=embedded", "--strict", "--check", script});
    }

    /// What the study wrote beside the model.
    std::vector<std::string> differencesFromGolden(const std::string& scenario) const
    {
        return fake::differencesFromGolden(
            files, folder, std::filesystem::path(SOURCE_FOLDER) / "tests" / "golden" / scenario);
    }

    std::string folder;  // of the model
    std::ostringstream output;
    std::ostringstream errors;

private:
    int call(const std::vector<std::string>& arguments)
    {
        std::istringstream noInput;
        output.str("");
        return study::runStudy(arguments, {noInput, output, errors, system, {}});
    }

    const std::filesystem::path folderBefore_ = std::filesystem::current_path();
};

std::string withoutCarriageReturns(std::string text)
{
    std::erase(text, '\r');
    return text;
}

class ExampleStudies : public testing::TestWithParam<std::string>
{};

TEST_P(ExampleStudies, WriteTheGoldenFiles)
{
    Replay replay;

    const int exitCode = replay.run(GetParam() + ".study");

    EXPECT_EQ(0, exitCode) << replay.errors.str();
    EXPECT_THAT(replay.differencesFromGolden("example/" + GetParam()), IsEmpty());
}

// What a check tells of an example, by its codes.
std::set<std::string> codesIn(const std::string& output)
{
    std::set<std::string> codes;
    std::istringstream lines(output);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string severity;
        std::string code;
        words >> severity >> code;
        if (severity == "warning" || severity == "hint")
            codes.insert(code.substr(0, code.find(':')));
    }
    return codes;
}

TEST_P(ExampleStudies, HaveNoErrorAndTellTheirWarningsInComments)
{
    Replay replay;

    const int exitCode = replay.check(GetParam() + ".study");

    EXPECT_EQ(0, exitCode) << replay.output.str();
    const std::set<std::string> codes = codesIn(replay.output.str());
    EXPECT_THAT(codes, testing::Contains("name-special"));
    const std::string script = readExample(GetParam() + ".study");
    for (const findings::Rule& rule : findings::rules()) {
        const bool isInComment =
            std::regex_search(script, std::regex("#[^\n]*\\b" + std::string(rule.code) + "\\b"));
        EXPECT_EQ(codes.contains(std::string(rule.code)), isInComment) << rule.code;
    }
}

INSTANTIATE_TEST_SUITE_P(All, ExampleStudies, testing::Values("panel", "ombra"),
                         [](const auto& each) { return each.param; });

TEST(PanelStudy, WritesTheSameFilesWhenItIsReplayedOverItsOwn)
{
    Replay replay;
    replay.run("panel.study");
    const auto first = replay.files.inFolder(replay.folder);

    const int exitCode = replay.run("panel.study");

    EXPECT_EQ(0, exitCode) << replay.errors.str();
    EXPECT_EQ(replay.files.inFolder(replay.folder), first);
}

TEST(PanelStudy, PrintsTheRowsThatTheControlFileKeeps)
{
    Replay replay;

    replay.run("panel.study");

    const std::string kept = withoutCarriageReturns(
        sys::windows1252().decode(replay.files.contents.at(replay.folder + "panelControl.txt")));
    const std::size_t blankLine = kept.find("\n\n");
    EXPECT_THAT(replay.output.str(), HasSubstr(kept.substr(0, blankLine + 1)));
    EXPECT_THAT(replay.output.str(), HasSubstr(kept.substr(blankLine + 2)));
}

TEST(PanelStudy, LeavesAFullLogBehind)
{
    Replay replay;

    replay.run("panel.study");

    const std::string& log = replay.files.contents.at(Replay::logPath("panel.log"));
    EXPECT_TRUE(log.starts_with("ALWAYS: Execution starts at 2024-03-07 Time 09:05:02.045\r\n"));
    EXPECT_THAT(log, HasSubstr("\r\nDEBUG: Position at Unloading the form\r\n"));
}

TEST(PanelStudy, GoesThroughEveryKindOfInputAndOutput)
{
    const std::string script = readExample("panel.study");

    const form::MainForm form;
    for (const std::string& kind : form.InputSelection.List)
        EXPECT_THAT(script, HasSubstr("\nset InputSelection " + kind + "\n"));
    for (const std::string& kind : form.OutputSelection.List)
        EXPECT_THAT(script, HasSubstr("\nset OutputSelection " + kind + "\n"));
    for (const std::string& solver : form.Solver.List)
        EXPECT_THAT(script, HasSubstr("\nset Solver " + solver + "\n"));
}

// The user guide shows its ten steps as a script, too.
TEST(StudyOfTheGuide, WritesTheFilesThatTheGuideNames)
{
    const auto between = [](const char* page, const std::string& before, const std::string& after) {
        const std::string text = sys::DiskFiles().read((examples / ".." / "docs" / page).string());
        const std::size_t start = text.find(before) + before.size();
        return text.substr(start, text.find(after, start) - start);
    };
    std::istringstream words(between("first-study.md", "model's folder:\n\n", "\n\n"));
    const std::set<std::string> named{std::istream_iterator<std::string>(words), {}};
    Replay replay;

    const int exitCode = replay.run("guide.study", between("guide.md", "```text\n", "```"));

    EXPECT_EQ(0, exitCode) << replay.errors.str();
    std::set<std::string> written;
    for (const auto& file : replay.files.inFolder(replay.folder))
        written.insert(file.first);
    EXPECT_THAT(written, testing::ContainerEq(named));
    EXPECT_THAT(replay.output.str(), HasSubstr("ThicknessAtProp1\t3\t"));
    EXPECT_THAT(replay.output.str(), testing::Not(HasSubstr("NSMassLenAtProp1")));
}

}  // namespace
