#include "StudyFixture.h"
#include "app/WhichFemap.h"
#include "fake/FakeConnector.h"
#include "fake/FormFixture.h"
#include "system/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

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
using testing::StartsWith;

TEST(StudyCall, TellsItsUsage)
{
    StudyFixture f;

    EXPECT_EQ(f.call({"--help"}), 0);

    EXPECT_THAT(f.output.str(), StartsWith("usage: velmar-study [--femap=embedded|running] "
                                           "[--quiet] [--findings text|json] [--strict]\n"));
    EXPECT_EQ(f.errors.str(), "");
}

TEST(StudyCall, TellsTheVersionOfTheProject)
{
    StudyFixture f;

    EXPECT_EQ(f.call({"--version"}), 0);

    EXPECT_EQ(f.output.str(), "velmar-study " VELMAR_VERSION "\n");
}

struct WrongCallExample
{
    std::vector<std::string> arguments;
    std::string problem;
};

class WrongCall : public testing::TestWithParam<WrongCallExample>
{};

TEST_P(WrongCall, ShowsTheUsageAndExitsWith2)
{
    StudyFixture f;

    EXPECT_EQ(f.call(GetParam().arguments), 2);

    EXPECT_THAT(f.errors.str(),
                StartsWith("velmar-study: " + GetParam().problem + "\nusage: velmar-study "));
    EXPECT_EQ(f.output.str(), "");
}

INSTANTIATE_TEST_SUITE_P(
    All, WrongCall,
    testing::Values(WrongCallExample{{}, "no script is named"},
                    WrongCallExample{{"--quiet"}, "no script is named"},
                    WrongCallExample{{"--loud", "a.study"}, "unknown option --loud"},
                    WrongCallExample{{"-q", "a.study"}, "unknown option -q"},
                    WrongCallExample{{"--femap=other", "a.study"}, "unknown option --femap=other"},
                    WrongCallExample{{"a.study", "b.study"},
                                     "one script at a time, not also b.study"},
                    WrongCallExample{{"--record"}, "no script is named"},
                    WrongCallExample{{"--findings", "a.study"}, "--findings takes text or json"},
                    WrongCallExample{{"a.study", "--findings"}, "--findings takes text or json"},
                    WrongCallExample{{"--check", "--record", "a.study"},
                                     "a script is either checked or recorded"}));

TEST(StudyCall, RecordsTheFormStartedWithAllThatStandsBehindTheScript)
{
    StudyFixture f;
    std::vector<std::string> given;
    f.recordedForm = [&](const std::string& script, const std::string& arguments) {
        given = {script, arguments};
    };

    EXPECT_EQ(f.call({"--record", "a.study", "C:\\my", "beam.modfem$--check$DEBUG"}), 0);

    EXPECT_THAT(given, ElementsAre("a.study", "C:\\my beam.modfem$--check$DEBUG"));
    EXPECT_EQ(f.output.str(), "a.study is recorded\n");
}

TEST(StudyCall, SaysWhereTheFormCanBeRecorded)
{
    StudyFixture f;

    EXPECT_EQ(f.call({"--record", "a.study"}), 1);

    EXPECT_EQ(f.errors.str(),
              "velmar-study: the form can be shown, and recorded, on Windows only\n");
}

TEST(StudyCall, TellsWhyARecordingEnded)
{
    StudyFixture f;
    f.recordedForm = [](const std::string&, const std::string&) {
        throw sys::RuntimeError(sys::ErrorNumber::FileError, "The script ends too early");
    };

    EXPECT_EQ(f.call({"--record", "a.study"}), 1);

    EXPECT_EQ(f.errors.str(), "velmar-study: The script ends too early\n");
}

TEST(StudyCall, SaysWhereAFemapCanBeProbed)
{
    StudyFixture f;

    EXPECT_EQ(f.call({"--probe", "--unknown"}), 1);

    EXPECT_EQ(f.errors.str(), "velmar-study: a FEMAP can be probed on Windows only\n");
}

TEST(StudyCall, ProbesWithAllOtherArguments)
{
    StudyFixture f;
    std::vector<std::string> given;
    f.femapProbe = [&](const std::vector<std::string>& arguments, std::ostream& said) {
        given = arguments;
        said << "done\n";
        return 7;
    };

    EXPECT_EQ(f.call({"--ask", "--probe", "report.txt"}), 7);

    EXPECT_THAT(given, ElementsAre("--ask", "report.txt"));
    EXPECT_EQ(f.errors.str(), "done\n");
}

TEST(StudyCall, ReadsStandardInput)
{
    StudyFixture f;
    f.input.str("start " + f.modelPath() + "\nprint Solver\n");

    EXPECT_EQ(f.call({"-"}), 0);

    EXPECT_EQ(f.output.str(), "NXNastran\n");
}

TEST(StudyCall, NamesStandardInputInErrors)
{
    StudyFixture f;
    f.input.str("# nothing yet\nstop\n");

    EXPECT_EQ(f.call({"-"}), 1);

    EXPECT_THAT(f.errors.str(), StartsWith("-:2: \"stop\" is no action"));
}

TEST(StudyCall, StopsForAScriptThatCannotBeRead)
{
    StudyFixture f;

    EXPECT_EQ(f.call({f.folder.path("none.study")}), 1);

    EXPECT_THAT(f.error(),
                AllOf(StartsWith("velmar-study: File not opened: "), EndsWith(": none.study\n")));
}

TEST(StudyCall, RunsAnEmptyScript)
{
    StudyFixture f;

    EXPECT_EQ(f.runScript("# nothing to do\n"), 0);

    EXPECT_EQ(f.errors.str(), "");
    EXPECT_EQ(f.output.str(), "");
}

TEST(StudyCall, UsesTheEmbeddedHostWhereNoFemapCanRun)
{
    StudyFixture f;
    f.write("a.study", "start " + f.modelPath() + "\n");

    EXPECT_EQ(f.call({f.folder.path("a.study")}), 0);
    EXPECT_EQ(f.call({"--femap=embedded", f.folder.path("a.study")}), 0);
}

TEST(StudyCall, SaysWhereARunningFemapCanBeUsed)
{
    StudyFixture f;
    f.write("a.study", "start " + f.modelPath() + "\n");

    EXPECT_EQ(f.call({"--femap=running", f.folder.path("a.study")}), 1);

    EXPECT_EQ(f.errors.str(),
              "velmar-study: a running FEMAP can be used on Windows only; start it "
              "with --femap=embedded\n");
}

// A FEMAP outside the program, with a model that holds one node.
class RunningFixture : public StudyFixture
{
public:
    RunningFixture()
    {
        runningFemap = [this](femap::SelectionDialogs& dialogs) {
            host = std::make_unique<femap::embedded::Host>(dialogs);
            host->isModified = isModified;
            host->modelName = folder.path("running.mod");
            host->openModel().nodes.put({.id = 5, .x = 1.5});
            auto connector = std::make_unique<fake::FakeConnector>(*host);
            connector->attachRaises = isMissing || isStarted;
            connector->createRaises = isMissing;
            connector->femaps.count = count;
            connector->attachFindsNothing = connector->createGivesNothing = findsNothing;
            return connector;
        };
    }

    std::unique_ptr<femap::embedded::Host> host;
    bool isMissing = false;
    bool isStarted = false;  // by the program
    bool findsNothing = false;
    bool isModified = false;
    int count = 1;  // of all that run
};

TEST(StudyOnARunningFemap, IsTheUsualWayWhereThereCanBeOne)
{
    RunningFixture f;

    EXPECT_EQ(f.runScript("start\npick 5\nchoose x\nclick InputsButton\nprint InputsList\n"), 0);

    EXPECT_THAT(f.outputLines(), ElementsAre("xAtNode5\t1.5\tNode\t5\tx\t"));
}

TEST(StudyOnARunningFemap, TellsThatItLetsOneGoWithChangesThatAreNotSaved)
{
    RunningFixture f;
    f.isStarted = f.isModified = true;

    EXPECT_EQ(f.runScript("start\n"), 0);

    EXPECT_EQ(f.errors.str(), std::string(app::unsavedInStudy) + '\n');
    EXPECT_EQ(f.host->messages.back().text, femap::cutToMessage(std::string(app::unsavedInStudy)));
}

TEST(StudyOnARunningFemap, SaysNothingOfChangesInOneThatStays)
{
    RunningFixture f;
    f.isModified = true;

    EXPECT_EQ(f.runScript("start\n"), 0);

    EXPECT_EQ(f.errors.str(), "");
}

TEST(StudyOnARunningFemap, TellsOnceWhichOneOfSeveralItIs)
{
    RunningFixture f;
    f.count = 2;

    EXPECT_EQ(f.runScript("start\nevent 2\n"), 0);

    EXPECT_EQ(f.errors.str(),
              "2 FEMAPs are running: one with \"" + f.folder.path("running.mod") + "\" is used\n");
}

TEST(StudyOnARunningFemap, CanBeAskedFor)
{
    RunningFixture f;
    f.write("a.study", "start\n");

    EXPECT_EQ(f.call({"--femap=running", f.folder.path("a.study")}), 0);

    EXPECT_NE(f.host, nullptr);
}

TEST(StudyOnARunningFemap, IsLeftAloneForTheEmbeddedHost)
{
    RunningFixture f;
    f.write("a.study", "start\n");

    EXPECT_EQ(f.call({"--femap=embedded", f.folder.path("a.study")}), 0);

    EXPECT_EQ(f.host, nullptr);
}

TEST(StudyOnARunningFemap, RegistersNoPaneForThereIsNoWindow)
{
    RunningFixture f;

    EXPECT_EQ(f.runScript("start\nevent 4\n"), 0);

    EXPECT_THAT(f.host->registrations, IsEmpty());
}

TEST(StudyOnARunningFemap, ShowsMessagesThereAndOnStandardOutput)
{
    RunningFixture f;

    EXPECT_EQ(f.runScript("start\nset Optimizer KORVA\n"), 0);

    EXPECT_THAT(f.outputLines(), ElementsAre("FEMAP: KORVA format not currently supported"));
    ASSERT_EQ(f.host->messages.size(), 1u);
    EXPECT_EQ(f.host->messages[0].text, "KORVA format not currently supported");
}

TEST(StudyOnARunningFemap, CannotChangeItsModel)
{
    RunningFixture f;

    EXPECT_EQ(f.runScript("start\nput Node 5 x 2\n"), 1);

    EXPECT_EQ(f.error(),
              "beam.study:2: put changes the embedded model host only; run the script "
              "with --femap=embedded\n");
}

TEST(StudyOnARunningFemap, StopsWhenThereIsNone)
{
    for (const bool findsNothing : {false, true}) {
        RunningFixture f;
        f.isMissing = !findsNothing;
        f.findsNothing = findsNothing;

        EXPECT_EQ(f.runScript("start $beam.log$ALWAYS\n"), 1);

        EXPECT_THAT(f.error(), testing::StartsWith(
                                   "beam.study:1: FEMAP does not run and could not be started: "));
        EXPECT_EQ(f.log().back(), "ERROR: FEMAP not found");
    }
}

TEST(StudyOnARunningFemap, StopsWhenItEnds)
{
    RunningFixture f;
    f.runningFemap = [old = f.runningFemap](femap::SelectionDialogs& dialogs) {
        auto connector = old(dialogs);
        static_cast<fake::FakeConnector&>(*connector).dieAt("feAppLock");
        return connector;
    };

    EXPECT_EQ(f.runScript("start\nclick RefreshInputs\n"), 1);

    EXPECT_EQ(f.error(),
              "beam.study:2: FEMAP has ended or cannot be reached. The rows are kept; "
              "the form goes on when FEMAP is back.\n");
}

TEST(StudyCall, FailsWhenStandardOutputCannotBeWritten)
{
    StudyFixture f;
    f.output.setstate(std::ios::badbit);

    EXPECT_EQ(f.run("print Solver\n"), 1);

    EXPECT_EQ(f.errors.str(), "velmar-study: standard output could not be written\n");
}

TEST(StudyCall, ShowsProgressOnStandardErrorUnlessItIsToBeQuiet)
{
    for (const bool quiet : {false, true}) {
        StudyFixture f;
        f.secondsPerLook = 2;
        std::string rows;
        for (int i = 0; i < 600; ++i)
            rows += "x" + std::to_string(i) + "\t1\tNode\t1\tx\t\r\n";
        f.write("beamControl.txt", rows + "\r\ny\t1\t1\t1\tOutput\r\n");
        f.write("a.study", "start " + f.modelPath() + "\nclick RefreshInputs\n");
        std::vector<std::string> arguments = {f.folder.path("a.study")};
        if (quiet)
            arguments.insert(arguments.begin(), "--quiet");

        EXPECT_EQ(f.call(arguments), 0);

        if (quiet)
            EXPECT_EQ(f.errors.str(), "");
        else
            EXPECT_THAT(splitLines(f.errors.str()), Contains(HasSubstr(" %")));
    }
}

}  // namespace
}  // namespace study
