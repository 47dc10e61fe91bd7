#include "StudyFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <utility>

namespace study
{
namespace
{

using testing::HasSubstr;
using testing::StartsWith;

struct Stop
{
    const char* script;  // from line 2 on
    const char* error;   // with its line
};

class StudyStops : public testing::TestWithParam<Stop>
{};

TEST_P(StudyStops, AtTheLineThatCannotBeDone)
{
    StudyFixture f;

    EXPECT_EQ(f.run(GetParam().script), 1);

    EXPECT_THAT(f.error(), testing::EndsWith("beam.study:" + std::string(GetParam().error) + "\n"));
    EXPECT_EQ(f.log().back(), "DEBUG: Setting Main femap instance to Nothing");
}

const char* const actionNames =
    "4: \"stop\" is no action; the actions are start, set, pick, choose, click, select, key, "
    "refresh, stepback, event, "
    "open, closemodel, put, activate, print, check, preview, close";
const char* const boxNames =
    "2: \"InputsList\" cannot be set; set takes InputSelection, OutputSelection, Solver, "
    "Optimizer, "
    "CommandLine";
const char* const buttonNames =
    "2: \"Apply\" is no button; the buttons are InputsButton, RefreshInputs, ClearInputSelection, "
    "OutputsButton, RefreshOutputs, ClearOutputSelection, ClearAll, GenerateButton";
const char* const printNames =
    "2: \"Solvers\" cannot be printed; print takes InputsList, OutputsList, InputSelection, "
    "OutputSelection, Solver, Optimizer, CommandLine, StatusLine, Inputs, InputsButton, "
    "RefreshInputs, ClearInputSelection, Outputs, OutputsButton, RefreshOutputs, "
    "ClearOutputSelection, Execution, Label1, Label2, Label3, ClearAll, GenerateButton";
const char* const putKinds =
    "2: \"Mesh\" cannot be changed; put takes Node, Elem, Prop or Matl with ID MEMBER [INDEX] "
    "VALUE, "
    "or Output with VECTOR ENTITY VALUE";

INSTANTIATE_TEST_SUITE_P(
    Names, StudyStops,
    testing::Values(
        Stop{"\n# a comment\nstop now\n", actionNames}, Stop{"set InputsList x\n", boxNames},
        Stop{"click Apply\n", buttonNames}, Stop{"print Solvers\n", printNames},
        Stop{"put Mesh 1 x 2\n", putKinds},
        Stop{"activate Mesh 1\n",
             "2: \"Mesh\" cannot be activated; activate takes LoadSet or OutputSet with an ID"},
        Stop{"activate LoadSet\n",
             "2: the ID is missing; activate takes LoadSet or OutputSet with an ID"},
        Stop{"activate OutputSet 77\n", "2: the model has no such set: 77"},
        Stop{"select Inputs 1\n",
             "2: \"Inputs\" is no grid; the grids are InputsList, OutputsList"},
        Stop{"refresh RefreshInputs\n",
             "2: \"RefreshInputs\" is no grid; the grids are InputsList, OutputsList"},
        Stop{"key Solver 46\n", "2: \"Solver\" is no grid; the grids are InputsList, OutputsList"},
        Stop{"CLOSE\n",
             "2: \"CLOSE\" is no action; the actions are start, set, pick, choose, click, "
             "select, key, refresh, stepback, event, open, closemodel, put, activate, print, "
             "check, preview, close"}));

INSTANTIATE_TEST_SUITE_P(
    Numbers, StudyStops,
    testing::Values(
        Stop{"select InputsList\n", "2: select needs a row as a whole number, not \"\""},
        Stop{"select InputsList one\n", "2: select needs a row as a whole number, not \"one\""},
        Stop{"select InputsList 2\n", "2: InputsList has no row 2; its last row is 1"},
        Stop{"select InputsList 0\n", "2: InputsList has no row 0; its last row is 1"},
        Stop{"select InputsList 1 2\n", "2: InputsList has no row 2; its last row is 1"},
        Stop{"select InputsList 1 1 1\n", "2: select takes GRID ROW [LAST] and nothing more"},
        Stop{"key InputsList Delete\n",
             "2: key needs a key code as a whole number, not \"Delete\""},
        Stop{"event close\n", "2: event needs an event code as a whole number, not \"close\""},
        Stop{"event\n", "2: event needs an event code as a whole number, not \"\""}));

INSTANTIATE_TEST_SUITE_P(
    Order, StudyStops,
    testing::Values(Stop{"start\n", "2: the form is started already; remove this line"},
                    Stop{"close\nprint Solver\n",
                         "3: the form is closed; nothing can be done with it any more"},
                    Stop{"close\nclose\n",
                         "3: the form is closed; nothing can be done with it any more"},
                    Stop{"event 4\nclick ClearAll\n",
                         "3: the form is closed; nothing can be done with it any more"},
                    Stop{"close now\n", "2: close takes nothing after it"},
                    Stop{"stepback now\n", "2: stepback takes nothing after it"},
                    Stop{"closemodel now\n", "2: closemodel takes nothing after it"},
                    Stop{"closemodel\nprint Solver\n",
                         "3: the form is closed; nothing can be done with it any more"},
                    Stop{"open\n", "2: the file is missing; open takes the file of a model"}));

INSTANTIATE_TEST_SUITE_P(
    Dialogs, StudyStops,
    testing::Values(
        Stop{"click InputsButton\n",
             "2: FEMAP's dialog \"Select Nodes to Control\" opened without an "
             "answer; put a pick before this line"},
        Stop{"pick 1\n\nclick InputsButton\n",
             "4: the list \"Node Properties\" opened without an answer; "
             "put a choose before this line"},
        Stop{"pick 1 9\nclick InputsButton\n",
             "2: FEMAP's dialog \"Select Nodes to Control\" does not "
             "offer the ID 9; it offers 1-4"},
        Stop{"pick 1\nchoose Area\nclick InputsButton\n",
             "3: the list \"Node Properties\" has no item "
             "\"Area\"; it offers x | y | z | defCSys | "
             "outCSys"},
        Stop{"pick one\n",
             "2: \"one\" is no ID or range of IDs; pick takes IDs and ranges such as 1 3 5-9, "
             "or one of all, cancel, missing, fail"},
        Stop{"choose\n",
             "2: choose names an empty item; it takes texts of the list separated by \" | \", "
             "or one of all, none, cancel"},
        Stop{"pick all\n",
             "2: this pick was never used: no selection dialog of FEMAP opened for it; "
             "remove it or put it before the click that opens the dialog"},
        Stop{"choose all\nclose\n",
             "2: this choose was never used: no property list dialog opened for it; "
             "remove it or put it before the click that opens the dialog"},
        Stop{"pick all\nevent 4\n",
             "2: this pick was never used: no selection dialog of FEMAP opened for "
             "it; remove it or put it before the click that opens the dialog"}));

constexpr const char* putMissing =
    "; put takes Node, Elem, Prop or Matl with ID MEMBER [INDEX] VALUE, "
    "or Output with VECTOR ENTITY VALUE";

struct WrongPut
{
    const char* argument;
    std::string problem;
};

class StudyPut : public testing::TestWithParam<WrongPut>
{};

TEST_P(StudyPut, StopsForWhatCannotBeChanged)
{
    StudyFixture f;

    EXPECT_EQ(f.run("put " + std::string(GetParam().argument) + "\n"), 1);

    EXPECT_EQ(f.error(), "beam.study:2: " + GetParam().problem + putMissing + "\n");
}

INSTANTIATE_TEST_SUITE_P(
    Form, StudyPut,
    testing::Values(WrongPut{"", "the kind is missing"}, WrongPut{"Node", "the ID is missing"},
                    WrongPut{"Node one x 1", "the ID \"one\" is no whole number from 1 on"},
                    WrongPut{"Node 0 x 1", "the ID \"0\" is no whole number from 1 on"},
                    WrongPut{"Node 1", "the member is missing"},
                    WrongPut{"Node 1 x", "the value is missing"},
                    WrongPut{"Prop 1 pval", "the index is missing"},
                    WrongPut{"Prop 1 pval -1 2", "the index \"-1\" is no whole number from 0 on"},
                    WrongPut{"Prop 1 pval 0", "the value is missing"},
                    WrongPut{"Output", "the vector is missing"},
                    WrongPut{"Output 1", "the entity is missing"},
                    WrongPut{"Output 1 4", "the value is missing"}));

class StudyPutOfTheModel : public testing::TestWithParam<WrongPut>
{};

TEST_P(StudyPutOfTheModel, StopsWithTheReason)
{
    StudyFixture f;

    EXPECT_EQ(f.run("put " + std::string(GetParam().argument) + "\n"), 1);

    EXPECT_THAT(f.error(), StartsWith("beam.study:2: "));
    EXPECT_THAT(f.error(), HasSubstr(GetParam().problem));
}

INSTANTIATE_TEST_SUITE_P(
    Reasons, StudyPutOfTheModel,
    testing::Values(WrongPut{"Node 99 x 1", "99"}, WrongPut{"Node 1 nothing 1", "nothing"},
                    WrongPut{"Prop 1 pval 500 1", "500"}, WrongPut{"Node 1 x abc", "abc"},
                    WrongPut{"Output 77 1 1", "77"}, WrongPut{"Output 1 99 1", "99"},
                    WrongPut{"Output 1 4 much",
                             "the value \"much\" is no number; write it as "
                             "12.5 or 1.5E-05"},
                    WrongPut{"Output 1 4 1,5", "\"1,5\" is no number"},
                    WrongPut{"Output 1 4 inf", "\"inf\" is no number"},
                    WrongPut{"Output 1 4 1e999", "\"1e999\" is no number"}));

class StudyBeforeStart : public testing::TestWithParam<const char*>
{};

TEST_P(StudyBeforeStart, Stops)
{
    StudyFixture f;

    EXPECT_EQ(f.runScript(std::string("# first\n") + GetParam() + "\n"), 1);

    EXPECT_EQ(f.error(),
              "beam.study:2: the form is not started yet; begin the script with a line "
              "\"start MODEL$LOG NAME$LEVEL\"\n");
}

INSTANTIATE_TEST_SUITE_P(EveryAction, StudyBeforeStart,
                         testing::Values("set Solver NENastran", "pick all", "choose all",
                                         "click ClearAll", "select InputsList 1",
                                         "key InputsList 46", "event 2", "put Node 1 x 1",
                                         "print Solver", "close"));

TEST(StudyStart, StopsForAModelThatCannotBeOpened)
{
    StudyFixture f;
    f.write("broken.neu", "this is no model");

    EXPECT_EQ(
        f.runScript("start " + f.folder.path("broken.neu") + "$beam.log$ALWAYS\nprint Solver\n"),
        1);

    EXPECT_THAT(f.error(), StartsWith("beam.study:1: FEMAP could not open the model: broken.neu:"));
    EXPECT_EQ(f.output.str(), "");
    EXPECT_EQ(f.log().back(), "DEBUG: Setting Main femap instance to Nothing");
}

TEST(StudyStart, StopsForAnErrorThatEndsIt)
{
    StudyFixture f;
    // A "." in the folder only leaves no name for the files that belong to the model.
    const std::string folder = std::string("a.b") + sys::pathSeparator;
    std::filesystem::create_directory(f.folder.path("a.b"));
    f.write(folder + "beam", f.read("beam.neu"));

    EXPECT_EQ(f.runScript("start " + f.folder.path(folder + "beam") + "\nprint Solver\n"), 1);

    EXPECT_THAT(f.error(), StartsWith("beam.study:1: "));
    EXPECT_THAT(f.outputLines(), testing::Not(testing::Contains("NXNastran")));
}

class DisabledControl : public testing::TestWithParam<std::pair<const char*, const char*>>
{};

TEST_P(DisabledControl, StopsTheStudyWithTheReason)
{
    StudyFixture f;

    EXPECT_EQ(f.runScript(std::string("start\nprint Solver\n") + GetParam().first + "\n"), 1);

    EXPECT_EQ(f.error(), "beam.study:3: " + std::string(GetParam().second) +
                             " is disabled: FEMAP has no model open.\n");
}

INSTANTIATE_TEST_SUITE_P(EveryAction, DisabledControl,
                         testing::Values(std::pair("click ClearAll", "ClearAll"),
                                         std::pair("set Solver NENastran", "Solver"),
                                         std::pair("set CommandLine x", "CommandLine"),
                                         std::pair("select InputsList 1", "InputsList"),
                                         std::pair("key OutputsList 46", "OutputsList")));

TEST(StudyPutWithoutAModel, StopsTheStudy)
{
    StudyFixture f;

    EXPECT_EQ(f.runScript("start\nput Node 1 x 1\n"), 1);

    EXPECT_EQ(f.error(), "beam.study:2: FEMAP has no model open\n");
}

TEST(StudyStops, ForAHandlerThatEndsByAnError)
{
    StudyFixture f;
    // A folder stands where the file should go.
    f.write("gone.neu", f.read("beam.neu"));
    std::filesystem::create_directories(std::filesystem::path(f.folder.path("FDFemap.bat")) /
                                        "something");

    EXPECT_EQ(f.run("click GenerateButton\nprint Solver\n"), 1);

    EXPECT_THAT(f.error(), StartsWith("beam.study:2: it is a folder, not a file. "
                                      "FDFemap.bat was not written."));
    EXPECT_THAT(f.outputLines(), testing::Not(testing::Contains("NXNastran")));
    EXPECT_THAT(f.outputLines(), testing::Contains(StartsWith("FEMAP: ")));
    EXPECT_EQ(f.log().back(), "DEBUG: Setting Main femap instance to Nothing");
}

TEST(StudyStops, AndLeavesTheFilesThatWereWrittenBefore)
{
    StudyFixture f;

    EXPECT_EQ(f.run("click GenerateButton\nclick Nothing\n"), 1);

    EXPECT_THAT(f.folder.listing(), testing::IsSupersetOf({"beamControl.txt", "FDFemap.bat"}));
}

TEST(StudyStops, AtALineThatIsNotUtf8)
{
    StudyFixture f;

    EXPECT_EQ(f.run("print Solver\nset CommandLine Tr\xE4ger\n"), 1);

    EXPECT_EQ(f.error(), "beam.study:3: the line is not UTF-8 text; save the script as UTF-8\n");
    EXPECT_EQ(f.output.str(), "NXNastran\n");
}

TEST(StudyStops, WithTheLockReleased)
{
    StudyFixture f;

    // The dialog opens while FEMAP is locked.
    EXPECT_EQ(f.run("set InputSelection LoadDefinition\nclick InputsButton\n"), 1);

    EXPECT_THAT(f.error(), HasSubstr("beam.study:3: FEMAP's dialog "));
    EXPECT_EQ(f.log().back(), "DEBUG: Setting Main femap instance to Nothing");
}

}  // namespace
}  // namespace study
