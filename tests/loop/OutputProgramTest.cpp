// CAEOutput as a whole, in folders on the real disk.
#include "FolderOfRun.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

namespace loop
{

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace
{

/// Something in the way of the values.
struct Obstacle
{
    const char* name;
    void (*prepare)(FolderOfRun& study);
    const char* told;  // a part of what is told
};

void PrintTo(const Obstacle& obstacle, std::ostream* out)
{
    *out << obstacle.name;
}

class OutputObstacle : public testing::TestWithParam<Obstacle>
{};

// clang-format off
const Obstacle obstacles[] = {
    {"NoDescription", [](FolderOfRun& s) { s.remove("CAEOutput.txt"); },
     "CAEOutput.txt: "},
    {"DamagedRow", [](FolderOfRun& s) { s.write("CAEOutput.txt", headOfOutputs + "Output\r\n"); },
     "CAEOutput.txt:4: "},
    {"NoSolver",
     [](FolderOfRun& s) {
         s.write("CAEOutput.txt", "Reference Model (FEMAP) = beam.neu\r\n"
                                  "OutputNameValue = OutputValues.txt\r\n" + resultRows);
     },
     "CAEOutput.txt:2: no results are named"},
    {"NoResults", [](FolderOfRun& s) { s.remove("beam.results.neu"); },
     "beam.results.neu: the results are not there"},
    {"NoModelOfRun", [](FolderOfRun& s) { s.remove("beam.run.neu"); },
     "beam.run.neu: the file is not there"},
    {"ResultsOlderThanTheModelOfTheRun", [](FolderOfRun& s) { s.age("beam.results.neu", 2); },
     "beam.results.neu: the results are older than beam.run.neu"},
    {"ResultsOlderThanTheDeck",
     [](FolderOfRun& s) { s.age("beam.results.neu", 3); s.age("beam.run.neu", 5); },
     "beam.results.neu: the results are older than beam.dat"},
    {"UnreadableResults", [](FolderOfRun& s) { s.write("beam.results.neu", "none"); },
     "beam.op2: "},
    {"UnreadableModel", [](FolderOfRun& s) { s.write("beam.run.neu", "none");
                                             s.age("beam.run.neu", 5); },
     "beam.run.neu"},
    {"TooManySets",
     [](FolderOfRun& s) { s.write("beam.results.neu", textOfResults({{}, {}})); },
     "FEMAP made 2 output sets of the results, and the model had 1 output set before"},
    {"NoVector", [](FolderOfRun& s) { s.write("beam.results.neu", textOfResults({{}})); },
     "CAEOutput.txt:4: the results have no output vector 1"},
    {"NoValue",
     [](FolderOfRun& s) {
         s.write("beam.results.neu",
                 textOfResults({{{1, "Total Translation", 7, {{1, 0.25}}}}}));
     },
     "CAEOutput.txt:4: "},
    {"AnotherTitle",
     [](FolderOfRun& s) {
         s.write("beam.results.neu", textOfResults({{{1, "T1", 7, {{4, 0.25}}}}}));
     },
     "\"TotalTrans1AtNode4\" points at what is \"T11AtNode4\" now"},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Of, OutputObstacle, testing::ValuesIn(obstacles),
                         [](const auto& each) { return std::string(each.param.name); });

}  // namespace

TEST(CAEOutput, WritesTheValuesOfARunOfTheModelHost)
{
    FolderOfRun study;
    const std::set<std::string> before = study.folder.listing();

    EXPECT_EQ(study.runEmbedded(), exitDone);

    EXPECT_EQ(study.errors.str(), "");
    EXPECT_EQ(study.output.str(), "beam.neu: 3 values are in OutputValues.txt\n");
    EXPECT_EQ(study.values(), valuesOfRun);
    EXPECT_EQ(study.folder.listing(), before);
}

TEST(CAEOutput, WritesTheValuesWithAFemapThatHasTheModelAndLeavesItAsItWas)
{
    FolderOfRun study;
    study.openInFemap();

    EXPECT_EQ(study.run(), exitDone);

    EXPECT_EQ(study.errors.str(), "");
    EXPECT_EQ(study.values(), valuesOfRun);
    EXPECT_THAT(study.femap.idsOf(femap::EntityType::OutputSet), ElementsAre(1));
    EXPECT_EQ(study.connector->objects, 0);
}

TEST(CAEOutput, TellsThatAMassIsNegative)
{
    FolderOfRun study;
    study.openInFemap();
    study.connector->answers["feMeasureMeshMassProp"] =
        femap::MassProperties{.totalMass = -2, .isNegative = true};

    EXPECT_EQ(study.run(), exitDone);

    EXPECT_THAT(study.values(), HasSubstr("TotalMass  -2\r\n"));
    EXPECT_THAT(study.errors.str(),
                StartsWith("CAEOutput: FEMAP measured a negative mass or volume"));
}

TEST(CAEOutput, NeedsNeitherResultsNorDeckForTheMassAlone)
{
    FolderOfRun study;
    study.write("CAEOutput.txt", headOfOutputs + massRow);
    for (const char* const name : {"beam.results.neu", "beam.op2", "beam.dat"})
        study.remove(name);

    EXPECT_EQ(study.runEmbedded(), exitDone);

    EXPECT_EQ(study.values(), "TotalMass  1\r\n");
    EXPECT_THAT(study.connector->calls,
                Not(Contains(testing::Field(&fake::Call::name, "feFileReadNastranResults"))));
}

TEST(CAEOutput, WritesWhatTheDescriptionNamesAndRemovesThatToo)
{
    FolderOfRun study;
    study.write("CAEOutput.txt",
                "Reference Model (FEMAP) = beam.neu\r\n"
                "Results File (NastranNX) = beam.op2\r\n"
                "OutputNameValue = Responses.txt\r\n" +
                    massRow);
    EXPECT_EQ(study.runEmbedded(), exitDone);
    EXPECT_TRUE(study.folder.listing().contains("Responses.txt"));
    study.remove("beam.run.neu");

    EXPECT_EQ(study.runEmbedded(), exitNotDone);

    EXPECT_FALSE(study.folder.listing().contains("Responses.txt"));
    EXPECT_FALSE(study.hasValues());
}

TEST(CAEOutput, RemovesTheOldValuesThoughTheFolderIsLocked)
{
    FolderOfRun study;
    const auto lock = sys::DiskFiles().lockFolder(study.folder.path() + sys::pathSeparator);

    EXPECT_EQ(study.runEmbedded(), exitNotDone);

    EXPECT_FALSE(study.hasValues());
    EXPECT_THAT(study.errors.str(), StartsWith("CAEOutput: another program works in the folder"));
}

TEST(CAEOutput, TakesNoLockWhereTheCallerHasIt)
{
    FolderOfRun study;
    const auto lock = sys::DiskFiles().lockFolder(study.folder.path() + sys::pathSeparator);

    EXPECT_EQ(study.run({"--femap=embedded", "--locked"}), exitDone);

    EXPECT_EQ(study.values(), valuesOfRun);
}

TEST(CAEOutput, ChangesNothingWhenItIsCalledWrongly)
{
    FolderOfRun study;

    EXPECT_EQ(study.run({"--check"}), exitWrongCall);

    EXPECT_EQ(study.values(), "old");
    EXPECT_THAT(study.errors.str(), AllOf(StartsWith("CAEOutput: unknown option --check\nusage: "),
                                          HasSubstr("--locked")));
}

TEST(CAEOutput, PutsTheValuesOfTheRunIntoAFemapThatDoesNotHoldThemToMeasureTheMass)
{
    FolderOfRun study;
    study.openInFemap();
    study.write("InputValues.txt", "ThicknessAtProp1  0.5\r\n");

    EXPECT_EQ(study.run(), exitDone);

    EXPECT_THAT(study.values(), HasSubstr("TotalMass  2\r\n"));
    EXPECT_EQ(study.errors.str(),
              "CAEOutput: The model did not hold the values of "
              "InputValues.txt; they are put into it again\n");
    EXPECT_EQ(study.thickness(), 0.5);
    EXPECT_FALSE(study.hasJournal());
}

TEST(CAEOutput, PutsNoValuesIntoTheModelForResultsAlone)
{
    FolderOfRun study;
    study.openInFemap();
    study.write("CAEOutput.txt", headOfOutputs + resultRows);
    study.remove("CAEInput.txt");

    EXPECT_EQ(study.run(), exitDone);

    EXPECT_EQ(study.errors.str(), "");
}

TEST(CAEOutput, LeavesNoValuesWhereFemapRefusesThoseOfTheRun)
{
    FolderOfRun study;
    study.openInFemap();
    study.write("InputValues.txt", "ThicknessAtProp1  0.5\r\n");
    study.connector->failAtFirst("Changes.put");

    EXPECT_EQ(study.run(), exitNotDone);

    EXPECT_FALSE(study.hasValues());
    EXPECT_THAT(study.errors.str(), HasSubstr("The former values are in the model again"));
    EXPECT_EQ(study.thickness(), 0.25);
}

TEST(CAEOutput, TellsInputsThatAreOthersNowWhereTheMassIsMeasured)
{
    FolderOfRun study;
    study.openInFemap();
    study.write("CAEInput.txt",
                "Reference Model (FEMAP) = beam.neu\r\n"
                "Input Deck (NastranNX) = beam.dat\r\n"
                "NameValue = InputValues.txt\r\n"
                "Prop  WidthAtProp1  1  pval  0\r\n");
    study.write("InputValues.txt", "WidthAtProp1  0.5\r\n");

    EXPECT_EQ(study.run(), exitNotDone);

    EXPECT_FALSE(study.hasValues());
    EXPECT_THAT(study.errors.str(), StartsWith("CAEInput.txt:4: "));
    EXPECT_EQ(study.thickness(), 0.25);
}

TEST(CAEOutput, PutsBackFirstWhatAnEarlierRunLeft)
{
    FolderOfRun study;
    study.openInFemap();
    study.write("CAEOutput.txt", headOfOutputs + resultRows);
    study.thickness() = 9;
    study.leaveJournal(0.125);

    EXPECT_EQ(study.run(), exitDone);

    EXPECT_EQ(study.thickness(), 0.125);
    EXPECT_THAT(study.errors.str(), HasSubstr("the former values are in the model again"));
    EXPECT_FALSE(study.hasJournal());
}

TEST(CAEOutput, LeavesTheJournalOfItsCallerAlone)
{
    FolderOfRun study;
    study.openInFemap();
    study.leaveJournal(0.125);
    const std::string before = sys::DiskFiles().read(study.journal());

    EXPECT_EQ(study.run({"--locked"}), exitDone);

    EXPECT_EQ(sys::DiskFiles().read(study.journal()), before);
    EXPECT_EQ(study.thickness(), 0.25);
}

TEST(CAEOutput, LetsFemapSkipItsDialogsWhileItReadsResults)
{
    FolderOfRun study;
    study.openInFemap();

    study.run();

    std::vector<std::string> calls;
    for (const fake::Call& call : study.connector->calls)
        if (call.name == "setDialogSwitches" || call.name == "feFileReadNastranResults")
            calls.push_back(call.name);
    EXPECT_THAT(calls,
                ElementsAre("setDialogSwitches", "feFileReadNastranResults", "setDialogSwitches"));
}

TEST_P(OutputObstacle, LeavesNoValuesAndIsTold)
{
    FolderOfRun study;
    GetParam().prepare(study);

    EXPECT_EQ(study.runEmbedded(), exitNotDone);

    EXPECT_FALSE(study.hasValues());
    EXPECT_THAT(study.errors.str(), HasSubstr(GetParam().told));
    EXPECT_EQ(study.output.str(), "");
}

}  // namespace loop
