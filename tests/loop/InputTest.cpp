#include "InputFixture.h"
#include "loop/Former.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace loop
{

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

namespace
{

const std::string again = "; choose it again in the form and press \"Apply\"\n";

/// Runs it and demands that it says this and changes nothing.
void expectRefused(InputStudy& study, const std::string& told)
{
    EXPECT_EQ(study.run(), 1);
    EXPECT_EQ(study.told(), told);
    EXPECT_EQ(study.said(), "");
    EXPECT_EQ(study.values(), InputStudy::formerValues);
    EXPECT_EQ(study.read("beam.dat"), "old deck");
    EXPECT_EQ(study.read("beam.op2"), "old results");
    EXPECT_FALSE(study.host.isModified);
}

}  // namespace

TEST(CAEInput, PutsTheValuesOfEveryKindAndWritesTheDeck)
{
    InputStudy study;
    const std::set<std::string> before = study.folder.listing();

    EXPECT_EQ(study.run(), 0);

    EXPECT_EQ(study.told(), "");
    EXPECT_EQ(study.said(),
              "beam.modfem: 7 values and 1 function are in the model, beam.dat is written\n");
    EXPECT_EQ(study.values(), InputStudy::wantedValues);
    EXPECT_THAT(study.read("beam.dat"), AllOf(HasSubstr("brand 8"), HasSubstr("-0.125")));
    std::set<std::string> after = before;
    after.erase("beam.op2");
    EXPECT_EQ(study.folder.listing(), after);
    EXPECT_EQ(study.femap.created, 0);
    EXPECT_EQ(study.femap.objects, 0);
}

TEST(CAEInput, PutsNoOtherValues)
{
    InputStudy study;
    study.run();
    study.change("InputValues.txt", "ThicknessAtProp12  .5", "ThicknessAtProp12  .25");

    study.run();

    std::string wanted = InputStudy::wantedValues;
    EXPECT_EQ(study.values(), wanted.replace(0, 3, "0.25"));
}

TEST(CAEInput, ChangesNothingWhenItOnlyChecks)
{
    InputStudy study;

    EXPECT_EQ(study.run({"--check"}), 0);

    EXPECT_EQ(study.said(), "beam.modfem: no problem found, nothing changed\n");
    EXPECT_EQ(study.values(), InputStudy::formerValues);
    EXPECT_EQ(study.read("beam.dat"), "old deck");
    EXPECT_TRUE(study.has("beam.op2"));
    EXPECT_FALSE(study.host.isModified);
}

TEST(CAEInput, LeavesTheDeckOutOnDemand)
{
    InputStudy study;
    study.host.activeAnalysisSet = 0;

    EXPECT_EQ(study.run({"--no-deck"}), 0);

    EXPECT_EQ(study.said(), "beam.modfem: 7 values and 1 function are in the model\n");
    EXPECT_EQ(study.values(), InputStudy::wantedValues);
    EXPECT_EQ(study.read("beam.dat"), "old deck");
    EXPECT_FALSE(study.has("beam.op2"));
}

TEST(CAEInput, StartsAFemapWhereNoneHasTheModelOpen)
{
    InputStudy study;
    study.femap.attachRaises = true;
    study.host.openNeutralFile(SOURCE_FOLDER "/examples/panel.neu");
    study.change("CAEInput.txt", "beam.modfem", "panel.neu");
    std::filesystem::copy(SOURCE_FOLDER "/examples/panel.neu", study.folder.path("panel.neu"));

    EXPECT_EQ(study.run({"--check"}), 1);

    EXPECT_EQ(study.femap.created, 1);
    EXPECT_EQ(study.host.modelName, study.folder.path("panel.neu"));
    EXPECT_THAT(study.told(), HasSubstr("CAEInput.txt:4: FEMAP has no Prop 12"));
}

TEST(CAEInput, TellsEveryProblemOfFilesAndModelAtOnce)
{
    InputStudy study;
    study.host.activeAnalysisSet = 0;
    study.change("InputValues.txt", "xAtNode4  -.125", "xAtNode4  x");
    study.change("InputValues.txt", "matlIDAtProp12  9", "matlIDAtProp12  9.5");
    study.change("CAEInput.txt", "Matl  ExAtMatl2  2", "Matl  ExAtMatl3  3");
    study.change("InputValues.txt", "ExAtMatl2", "ExAtMatl3");
    study.change("FunctionsInputvalues.txt", " 3 \r\n", " 4 \r\n");

    expectRefused(
        study,
        "FEMAP has no active analysis set and would ask for one; make the one for the solver "
        "active in FEMAP\n"
        "CAEInput.txt:7: FEMAP has no Matl 3" +
            again +
            "FunctionsInputvalues.txt:1: FEMAP has no function 4; press \"Apply\" in the form "
            "again\n"
            "InputValues.txt:2: matlIDAtProp12 takes whole numbers only, and has 9.5\n"
            "InputValues.txt:3: xAtNode4 has \"x\", which is no number; write it as 12.5 or "
            "1.5E-05\n");
}

TEST(CAEInput, RefusesARowWhosePlaceHasAnotherNameNow)
{
    InputStudy study;
    study.host.openModel().properties.find(12)->type = femap::elementBeam;

    expectRefused(study,
                  "CAEInput.txt:4: \"ThicknessAtProp12\" points at what is "
                  "\"EndAAreaAtProp12\" now" +
                      again);
}

TEST(CAEInput, RefusesARowWhosePlaceHasNoName)
{
    InputStudy study;
    study.host.openModel().properties.find(12)->type = femap::elementSolid;

    expectRefused(
        study,
        "CAEInput.txt:4: \"ThicknessAtProp12\" is no name of what the line points at" + again);
}

TEST(CAEInput, RefusesTitlesThatHaveChanged)
{
    InputStudy study;
    study.host.openModel().functions.find(3)->title = "E over P";
    study.host.openModel().loadSets.find(1)->definitions[1].title = "Cold";

    expectRefused(
        study,
        "CAEInput.txt:8: \"E over T\" points at what is \"E over P\" now" + again +
            "CAEInput.txt:9: \"Heat_6_Temperature\" points at what is \"Cold_6_Temperature\" "
            "now" +
            again +
            "FunctionsInputvalues.txt:1: function 3 is \"E over P\" now, not \"E over T\"; press "
            "\"Apply\" in the form again\n");
}

TEST(CAEInput, TakesATitleWithWhatTheCodePageLacks)
{
    InputStudy study;
    study.host.openModel().functions.find(3)->title = "E over \u0394";
    study.change("CAEInput.txt", "E over T", "E over ?");
    study.change("InputValues.txt", "E over T", "E over ?");
    study.change("FunctionsInputvalues.txt", "E over T", "E over ?");

    EXPECT_EQ(study.run(), 0) << study.told();
    EXPECT_EQ(study.values(), InputStudy::wantedValues);
}

TEST(CAEInput, RefusesLoadsOfAnotherLoadSet)
{
    InputStudy study;
    femap::neutral::LoadSet other;
    other.id = 2;
    study.host.openModel().loadSets.put(other);
    study.host.openModel().activeLoadSet = 2;

    EXPECT_EQ(study.run(), 1);

    EXPECT_THAT(study.told(),
                AllOf(HasSubstr("CAEInput.txt:9: the active load set 2 has no load definition 6"),
                      HasSubstr("CAEInput.txt:10: the active load set 2 has no load definition 5"),
                      HasSubstr("CAEInput.txt:11: ")));
    EXPECT_EQ(study.values(), InputStudy::formerValues);
}

TEST(CAEInput, RefusesADefinitionWithMoreLoadsThanRowsOrFewer)
{
    InputStudy more;
    femap::neutral::LoadSet& set = *more.host.openModel().loadSets.find(1);
    set.meshLoads.push_back(set.meshLoads.back());
    set.meshLoads.back().id = 3;
    InputStudy fewer;
    fewer.host.openModel().loadSets.find(1)->meshLoads.pop_back();

    expectRefused(more,
                  "CAEInput.txt:10: Tipload_5_Fx has 2 lines, but the loads of load "
                  "definition 5 are 3" +
                      again);
    EXPECT_EQ(fewer.run(), 1);
    EXPECT_EQ(fewer.told(),
              "CAEInput.txt:10: Tipload_5_Fx has 2 lines, but the loads of load "
              "definition 5 are 1" +
                  again);
}

TEST(CAEInput, RefusesLoadsThatFemapMadeFromGeometry)
{
    InputStudy study;
    study.host.openModel().loadSets.find(1)->meshLoads[1].expanded = true;

    expectRefused(study,
                  "CAEInput.txt:10: FEMAP made loads of load definition 5 from geometry and "
                  "makes them anew when it writes the deck; the load on the geometry itself "
                  "can be an input" +
                      again);
}

TEST(CAEInput, RefusesLoadsOfAnotherKind)
{
    InputStudy study;
    study.change("CAEInput.txt", "LoadNTemp  Heat", "LoadETemp  Heat");

    expectRefused(study, "CAEInput.txt:9: load definition 6 has loads of another kind now" + again);
}

TEST(CAEInput, RefusesTwoLinesForOnePlace)
{
    InputStudy study;
    study.change("CAEInput.txt", "Node  xAtNode4  4  x  \r\n",
                 "Node  xAtNode4  4  x  \r\nNode  xAtNode4  4  x  \r\n");
    study.change("InputValues.txt", "xAtNode4  -.125\r\n", "xAtNode4  1\r\nxAtNode4  2\r\n");

    expectRefused(study, "CAEInput.txt:7: another line points at the same as xAtNode4" + again);
}

TEST(CAEInput, RefusesAStudyWithoutASolverUnlessNoDeckIsWanted)
{
    InputStudy study;
    study.change("CAEInput.txt", "Input Deck (NastranNX) = beam.dat\r\n", "");

    expectRefused(study,
                  "CAEInput.txt:2: no deck is named; choose a solver in the form and press "
                  "\"Apply\" again, or leave the deck out by --no-deck\n");
    EXPECT_EQ(study.run({"--no-deck"}), 0);
}

TEST(CAEInput, LeavesOutFunctionsOfAnEarlierApplyAndSaysSo)
{
    InputStudy study;
    std::filesystem::last_write_time(
        study.folder.path("FunctionsInputvalues.txt"),
        std::filesystem::last_write_time(study.folder.path("CAEInput.txt")) -
            std::chrono::seconds(10));

    EXPECT_EQ(study.run(), 0);

    EXPECT_THAT(study.told(), StartsWith("CAEInput: FunctionsInputvalues.txt is older than"));
    EXPECT_THAT(study.values(), HasSubstr("0,5:1,6"));
    EXPECT_EQ(study.said(), "beam.modfem: 7 values are in the model, beam.dat is written\n");
}

TEST(CAEInput, WaitsForAnotherProgramInTheFolderUnlessItsCallerHasTheLock)
{
    InputStudy study;
    const auto lock = study.machine.files.lockFolder(study.folder.path() + sys::pathSeparator);
    study.system.wait = {};

    EXPECT_EQ(study.run(), 1);
    EXPECT_THAT(study.told(), StartsWith("CAEInput: another program works in the folder: "));
    EXPECT_EQ(study.run({"--locked"}), 0);
    EXPECT_EQ(study.values(), InputStudy::wantedValues);
}

TEST(CAEInput, TellsHowItIsCalled)
{
    InputStudy study;

    EXPECT_EQ(study.run({"--help"}), 0);
    EXPECT_THAT(study.said(), StartsWith("usage: CAEInput "));
    EXPECT_EQ(study.run({"--chekc"}), 2);
    EXPECT_THAT(study.told(), StartsWith("CAEInput: unknown option --chekc\nusage: CAEInput "));
    EXPECT_EQ(study.run({"--folder"}), 2);
    EXPECT_FALSE(study.host.isModified);
}

TEST(CAEInput, TellsThatFemapCannotBeReached)
{
    InputStudy study;
    study.femap.attachRaises = true;
    study.femap.createRaises = true;

    EXPECT_EQ(study.run(), 1);

    EXPECT_EQ(study.told(), "CAEInput: FEMAP is not installed\n");
}

}  // namespace loop
