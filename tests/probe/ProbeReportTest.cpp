#include "ReportReader.h"
#include "fake/Golden.h"
#include "fake/TemporaryFolder.h"
#include "femap/com/Apartment.h"
#include "standin/Generations.h"
#include "standin/StartedStandin.h"
#include "system/Files.h"
#include "windows/Text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>

namespace probetest
{

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace
{

class ReportOf : public testing::TestWithParam<const char*>
{};

INSTANTIATE_TEST_SUITE_P(BothGenerations, ReportOf, comtest::bothGenerations,
                         comtest::nameOfGeneration);

// The line after the first one that begins with that.
std::string lineAfter(const Lines& report, const std::string& what)
{
    const auto found = std::ranges::find_if(
        report, [&](const std::string& line) { return line.starts_with(what); });
    return found == report.end() || found + 1 == report.end() ? "" : *(found + 1);
}

}  // namespace

TEST_P(ReportOf, ACopyOfTheExampleModelIsTheGoldenOne)
{
    const SolvedCopy copy;

    const Lines report = copy.probe(GetParam());

    fake::MemoryFiles files;
    const auto file = files.create("report\\report.txt");
    for (const std::string& line : copy.masked(report))
        file->write(line + "\r\n");
    EXPECT_THAT(fake::differencesFromGolden(
                    files, "report\\",
                    SOURCE_FOLDER "/tests/golden/probe-" + std::string(GetParam()).substr(2)),
                IsEmpty());
    EXPECT_THAT(report.front(), StartsWith("Probe of FEMAP by velmar-study "));
    EXPECT_THAT(lineOf(report, "bitness"), HasSubstr("this program 64 bit"));
    EXPECT_THAT(lineOf(report, "code pages"), HasSubstr("ANSI "));
    EXPECT_THAT(report, Contains(AllOf(StartsWith("test-standin.exe, process "),
                                       HasSubstr("test-standin.exe\", version "))));
    EXPECT_THAT(report, Contains(AllOf(StartsWith("femap.model, "), HasSubstr(" DIFFERS "),
                                       HasSubstr("{7C1B5A64-2D0E-4B53-9E0B-5D6F3A1C8E27}"))));
    EXPECT_THAT(lineOf(report, "table of running objects"), HasSubstr("1 of FEMAP"));
    EXPECT_THAT(lineOf(report, "GetActiveObject"), HasSubstr(" same "));
}

TEST_P(ReportOf, AllOptionsTellsChangesDialogsAndEvents)
{
    const fake::TemporaryFolder folder;
    const std::string copy = folder.path("panel.neu");
    std::filesystem::copy_file(SOURCE_FOLDER "/examples/panel.neu", windows::toWide(copy));

    const Lines report = probeModel(
        GetParam(), copy, "--ask --events 3 --write \"" + copy + '"',
        [](femap::com::Dispatch& standin) {
            standin.call("standinPick", "1-3");
            standin.call("standinPick", "cancel");
        },
        [](femap::com::Dispatch& standin) {
            ASSERT_TRUE(comesInAMinute(
                [&] { return !standin.call("standinRegistrations").text().empty(); }));
            standin.call("standinSendEvent", 2);
            standin.call("standinSendEvent", 12);
        });

    for (const char* const value : {"feNode.x of 1", "feMatl.Damping of 1"})
        EXPECT_THAT(lineOf(report, value), AllOf(HasSubstr(" same "), HasSubstr(", put back")));
    EXPECT_THAT(lineOf(report, "a selection dialog while FEMAP is not locked"),
                HasSubstr(" same      status -1, 3 picked"));
    EXPECT_THAT(answersTo(7, report),
                ElementsAre("answer: while FEMAP is not locked: status -1, 3 picked",
                            "answer: while FEMAP is locked: status 2, 0 picked"));
    EXPECT_THAT(lineOf(report, "event 2, a model was opened"), HasSubstr("posted, lParam 0"));
    EXPECT_THAT(answersTo(8, report),
                ElementsAre(StartsWith("answer: event 2: posted, lParam 0; inside, EventLParam is"),
                            StartsWith("answer: event 12: posted")));
    EXPECT_THAT(report, Contains(StartsWith("Imodel.feAppRegisterAddInPane(False, ")));
}

TEST(ReportOfChanges, TellsWhatFemapDidNotDo)
{
    const SolvedCopy copy;
    sys::DiskFiles().create(copy.deck())->write("of an earlier probe");

    const Lines report = copy.probe("--modern", [](femap::com::Dispatch& standin) {
        standin.call("standinFault", "feNode.x", "refused");
        standin.call("standinFault", "feMatl.Put", "ignored");
        standin.call("standinFault", "feProp.PutValueArray", "fails");
        standin.call("standinFault", "feFunction.Put", "ignored");
        standin.call("standinFault", "application.feFileWriteNastran", "ignored");
        standin.call("standinFault", "application.feDelete", "fails");
        standin.call("standinFault", "load.Put", "ignored");
    });

    EXPECT_THAT(lineOf(report, "feNode.x of 1"),
                AllOf(HasSubstr(" DIFFERS "), HasSubstr(" NOT CHANGED"), HasSubstr("; put: ")));
    EXPECT_THAT(lineOf(report, "feMatl.Damping of 1"),
                AllOf(HasSubstr(" DIFFERS "), HasSubstr(" NOT CHANGED, then 0.02, put back")));
    EXPECT_THAT(lineOf(report, "  the deck"),
                AllOf(HasSubstr(" DIFFERS "), HasSubstr("is not there: ")));
    EXPECT_THAT(lineOf(report, "  output sets that are left"), HasSubstr(" DIFFERS "));
    EXPECT_THAT(lineOf(report, "feProp.PutValueArray(1, array of I4, array of I4, array of R8)"),
                HasSubstr(" found     I4 0"));
    EXPECT_THAT(lineAfter(report, "feProp.PutValueArray("), HasSubstr(" DIFFERS "));
    EXPECT_THAT(report, Contains(AllOf(StartsWith("  read again"), HasSubstr("other points"))));
    EXPECT_THAT(lineAfter(report, "load.Put("), HasSubstr(" DIFFERS "));
}

TEST(ReportOfChanges, IsRefusedForAnotherModel)
{
    const Lines report =
        probeModel("--modern", comtest::panelModel(), "--write C:\\other.modfem", {}, {}, 1);

    EXPECT_THAT(report, Not(Contains(StartsWith("F "))));
    EXPECT_THAT(report, Not(Contains(StartsWith("B "))));
}

TEST(ReportWithoutNames, HasNoTitleAndNoPathAndSaysThatNoEventCame)
{
    const Lines report = probe("--modern", "--no-names --events 1");

    for (const char* const name : {"panel.neu", "AlMg3", "Total Translation", "-standin.exe\""})
        EXPECT_THAT(report, Not(Contains(HasSubstr(name)))) << name;
    EXPECT_THAT(report, Contains(AllOf(StartsWith("Imodel.ModelName "), HasSubstr("BSTR #"))));
    EXPECT_THAT(lineOf(report, "vector 1"), HasSubstr("feResults: #"));
    EXPECT_THAT(lineOf(report, "event messages"), HasSubstr("none came in 1 seconds"));
    EXPECT_THAT(answersTo(8, report), ElementsAre(StartsWith("not answered: run it with")));
}

TEST(ReportOfAFemapThatEnds, TellsAtWhat)
{
    const fake::TemporaryFolder folder;
    const femap::com::Apartment apartment;
    comtest::StartedStandin started("--classic --model \"" + comtest::panelModel() + '"');
    started.control().call("standinDieAt", 200);
    const std::string file = folder.path("report.txt");

    EXPECT_EQ(comtest::runProgram(PROGRAM_FOLDER "/velmar-study.exe", "--probe \"" + file + '"'),
              1U);

    const std::string report = sys::DiskFiles().read(file);
    EXPECT_THAT(report, HasSubstr("THE PROBE ENDS HERE: 0x8007"));
    EXPECT_THAT(report, HasSubstr("call. It was asked for: one feElem of each type."));
    EXPECT_THAT(report, HasSubstr("Q Open questions"));
}

TEST(ReportWithoutAFemap, TellsWhatIsMissing)
{
    const Lines report = probeAlone();

    EXPECT_THAT(lineOf(report, "femap.exe"), HasSubstr("no such program runs"));
    EXPECT_THAT(lineOf(report, "CLSIDFromProgID of femap.model"), HasSubstr(" ABSENT "));
    EXPECT_THAT(lineOf(report, "GetActiveObject"), HasSubstr(" REFUSED   0x800401F3"));
    EXPECT_THAT(lineOf(report, "CoCreateInstance"), HasSubstr(" REFUSED   0x800401F3"));
    EXPECT_THAT(report, Contains("S What is to be looked at"));
    EXPECT_THAT(report, Not(Contains(StartsWith("B "))));
}

TEST(ReportOfAFemapWithoutAModel, TellsWhatItsNameIs)
{
    const Lines report =
        probeModel("--modern", comtest::panelModel(), "",
                   [](femap::com::Dispatch& standin) { standin.call("standinModel", "none"); });

    EXPECT_THAT(answersTo(4, report), ElementsAre(StartsWith("answer: 0x80020009")));
    EXPECT_THAT(lineOf(report, "output sets"), HasSubstr(" not tried 0"));
}

TEST(ReportOfAFemapThatWasStarted, TellsThatItEnds)
{
    ASSERT_EQ(comtest::runStandin("/regserver"), 0U);

    const Lines report = probeAlone(0);

    comtest::runStandin("/unregserver");
    EXPECT_THAT(lineOf(report, "CoCreateInstance"), HasSubstr("FEMAP is started"));
    EXPECT_THAT(answersTo(12, report), ElementsAre("answer: it ends by itself"));
    EXPECT_THAT(lineOf(report, "one feElem of each type"), HasSubstr(" not tried "));
}

}  // namespace probetest
