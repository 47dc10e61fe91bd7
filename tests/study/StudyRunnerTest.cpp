#include "StudyFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace study
{
namespace
{

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsSupersetOf;
using testing::Not;

const std::string pickTwoNodes = "pick 1 3\nchoose x | y\nclick InputsButton\n";
const std::string twoNodes[] = {"xAtNode1\t0\tNode\t1\tx\t", "xAtNode3\t1\tNode\t3\tx\t",
                                "yAtNode1\t0\tNode\t1\ty\t", "yAtNode3\t1\tNode\t3\ty\t"};

TEST(Study, FillsTheGridsAndWritesTheFiles)
{
    StudyFixture f;

    const int exitCode = f.run(
        "set InputSelection Properties\n"
        "pick 1\n"
        "choose Thickness\n"
        "click InputsButton\n"
        "set OutputSelection Nodes\n"
        "pick 4\n"
        "choose 1\n"
        "click OutputsButton\n"
        "click GenerateButton\n"
        "print InputsList\n"
        "print OutputsList\n");

    EXPECT_EQ(exitCode, 0) << f.error();
    EXPECT_THAT(f.outputLines(), ElementsAre("ThicknessAtProp1\t0.25\tProp\t1\tpval\t0",
                                             HasSubstr("AtNode4\t2.5\t4\t1\tOutput")));
    EXPECT_THAT(f.folder.listing(), IsSupersetOf({"beamControl.txt", "FDFemap.bat"}));
    EXPECT_EQ(f.read("FDFemap.bat"), "nastran beam.dat notify=no\r\n");
    EXPECT_THAT(f.error(), Not(HasSubstr("beam.study")));
}

TEST(Study, StartsTheFormWithItsArgument)
{
    StudyFixture f;

    EXPECT_EQ(f.runScript("start \"" + f.modelPath() + "\"$beam.log$ALWAYS\n"), 0);

    EXPECT_THAT(f.log(), IsSupersetOf({"ALWAYS: Log File Name: beam.log",
                                       "DEBUG: Position at At end of Load Form"}));
}

TEST(Study, ClosesTheFormAtTheEnd)
{
    StudyFixture f;

    EXPECT_EQ(f.run(""), 0);

    EXPECT_EQ(f.log().back(), "DEBUG: Setting Main femap instance to Nothing");
}

TEST(Study, ClosesTheFormOnceWhenItIsTold)
{
    StudyFixture f;

    EXPECT_EQ(f.run("close\n# the end\n"), 0);

    EXPECT_THAT(f.log(), Contains("DEBUG: Position at Unloading the form").Times(1));
}

TEST(Study, RefillsTheGridsFromTheControlFile)
{
    StudyFixture f;
    f.run(pickTwoNodes + "click GenerateButton\n");
    f.output.str("");

    EXPECT_EQ(f.run("print InputsList\n"), 0);

    EXPECT_THAT(f.outputLines(), testing::UnorderedElementsAreArray(twoNodes));
}

TEST(Study, SetsBoxesAndRunsTheirHandlers)
{
    StudyFixture f;

    EXPECT_EQ(f.run("set Solver NENastran\nprint CommandLine\n"
                    "set InputSelection  Materials \nprint InputSelection\n"
                    "set OutputSelection Mass Properties\nprint OutputSelection\n"
                    "set Optimizer Ombra\nprint Optimizer\n"),
              0);

    EXPECT_THAT(f.outputLines(), ElementsAre("nastran nastran.ini beam.nas", "Materials",
                                             "Mass Properties", "Ombra"));
}

TEST(Study, SetsTheCommandLineAsItStands)
{
    StudyFixture f;

    EXPECT_EQ(f.run("set CommandLine   run  \"a b\"  # not a comment  \nprint CommandLine\n"
                    "set CommandLine\nprint CommandLine\n"),
              0);

    EXPECT_THAT(f.outputLines(), ElementsAre("run  \"a b\"  # not a comment", ""));
}

TEST(Study, ShowsFemapsMessagesWhenTheyAppear)
{
    StudyFixture f;

    EXPECT_EQ(f.run("print Solver\nset Optimizer KORVA\nprint Optimizer\n"), 0);

    EXPECT_THAT(f.outputLines(),
                ElementsAre("NXNastran", "FEMAP: KORVA format not currently supported", "Velmar"));
}

TEST(Study, ShowsALongMessageAsFemapDoes)
{
    StudyFixture f;

    EXPECT_EQ(f.run("set Optimizer " + std::string(200, 'x') + "\n"), 0);

    EXPECT_THAT(f.outputLines(), ElementsAre("FEMAP: " + std::string(159, 'x')));
}

TEST(Study, AnswersFemapsDialogsInTheOrderOfTheScript)
{
    StudyFixture f;

    EXPECT_EQ(f.run("pick 1\npick 2\nchoose x\nchoose y\n"
                    "click InputsButton\nclick InputsButton\nprint InputsList\n"),
              0);

    EXPECT_THAT(f.outputLines(),
                ElementsAre("xAtNode1\t0\tNode\t1\tx\t", "yAtNode2\t0\tNode\t2\ty\t"));
}

struct PickedFunction
{
    const char* answer;
    const char* message;
};

class StudyPickOfAFunction : public testing::TestWithParam<PickedFunction>
{};

TEST_P(StudyPickOfAFunction, EndsAsTheScriptSays)
{
    StudyFixture f;

    EXPECT_EQ(f.run("set InputSelection Functions\npick " + std::string(GetParam().answer) +
                    "\nclick InputsButton\n"),
              0);

    EXPECT_THAT(f.outputLines(), ElementsAre("FEMAP: " + std::string(GetParam().message)));
}

INSTANTIATE_TEST_SUITE_P(
    All, StudyPickOfAFunction,
    testing::Values(PickedFunction{"cancel", "Function selection cancelled..."},
                    PickedFunction{"missing", "No Function defined in model..."},
                    PickedFunction{"fail", "Function selection failed..."}));

TEST(Study, PressesEveryButton)
{
    StudyFixture f;
    const std::string script = pickTwoNodes +
                               "put Node 1 x 7.5\n"
                               "click RefreshInputs\n"
                               "select InputsList 1 2\n"
                               "click ClearInputSelection\n"
                               "set OutputSelection Nodes Min/Max\n"
                               "choose all\n"
                               "click OutputsButton\n"
                               "put Output 1 4 9.5\n"
                               "click RefreshOutputs\n"
                               "print OutputsList\n"
                               "click ClearOutputSelection\n"
                               "click GenerateButton\n"
                               "click ClearAll\n"
                               "print InputsList\n";

    EXPECT_EQ(f.run(script), 0) << f.error();

    EXPECT_EQ(f.outputLines().back(), "\t\t\t\t\t");
    EXPECT_THAT(f.output.str(), HasSubstr("\t9.5\t1\t1\tmaxval"));
}

TEST(Study, TakesAStepBack)
{
    StudyFixture f;

    EXPECT_EQ(f.run(pickTwoNodes + "click ClearAll\nprint InputsList\nstepback\n"
                                   "print InputsList\nprint StatusLine\n"),
              0)
        << f.error();

    const std::vector<std::string> lines = f.outputLines();
    ASSERT_GE(lines.size(), 4U);
    EXPECT_EQ(lines.front(), std::string(5, '\t'));
    EXPECT_THAT(lines[1], testing::StartsWith("xAtNode"));
    EXPECT_THAT(lines.back(), testing::EndsWith("rows are back"));
}

TEST(Study, ReadsTheSelectedRowsAgain)
{
    StudyFixture f;

    EXPECT_EQ(f.run("pick 1 2\nchoose x\nclick InputsButton\nput Node 1 x 41\nput Node 2 x 42\n"
                    "select InputsList 2\nrefresh InputsList\nprint InputsList\n"),
              0)
        << f.error();

    const std::vector<std::string> lines = f.outputLines();
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_THAT(lines[0], testing::Not(testing::HasSubstr("\t41\t")));
    EXPECT_THAT(lines[1], testing::HasSubstr("\t42\t"));
}

TEST(Study, SelectsRowsInEitherDirection)
{
    for (const char* rows : {"2 3", "3 2"}) {
        StudyFixture f;

        EXPECT_EQ(f.run(pickTwoNodes + "select InputsList " + rows +
                        "\nclick ClearInputSelection\nprint InputsList\n"),
                  0);

        EXPECT_EQ(f.outputLines().size(), 2u);
    }
}

TEST(Study, SelectsOneRow)
{
    StudyFixture f;

    EXPECT_EQ(f.run(pickTwoNodes + "select InputsList 4\nkey InputsList 46\nprint InputsList\n"),
              0);

    EXPECT_EQ(f.outputLines().size(), 3u);
}

TEST(Study, PressesKeysInAGrid)
{
    StudyFixture f;

    EXPECT_EQ(f.run(pickTwoNodes + "key InputsList 65\nkey OutputsList 46\nprint InputsList\n"), 0);

    EXPECT_EQ(f.outputLines().size(), 4u);
    EXPECT_THAT(f.log(), IsSupersetOf({"DEBUG: Position at At start of InputsList_KeyDown",
                                       "DEBUG: Position at At start of OutputsList_KeyDown"}));
}

TEST(Study, PassesFemapsEventsOn)
{
    StudyFixture f;

    EXPECT_EQ(f.run("event 2\nevent 3\nevent 12\nprint Solver\nevent 4\n"), 0);

    EXPECT_THAT(f.outputLines(), ElementsAre("NXNastran"));
    EXPECT_THAT(f.log(), Contains("DEBUG: Position at Unloading the form").Times(1));
}

TEST(Study, ChangesTheModel)
{
    StudyFixture f;
    const std::string script =
        "set InputSelection Properties\npick 1\nchoose Thickness | Color\n"
        "click InputsButton\n"
        "set InputSelection Materials\npick 1\nchoose Ex\n"
        "click InputsButton\n"
        "set InputSelection Elements\npick 1\nchoose node2\n"
        "click InputsButton\n"
        "put Prop 1 pval 0 0.75\n"
        "put Prop 1 color 33\n"
        "put Matl 1 Ex 1.5E+05\n"
        "put Elem 1 node 1 4\n"
        "click RefreshInputs\n"
        "print InputsList\n";

    EXPECT_EQ(f.run(script), 0) << f.error();

    EXPECT_THAT(f.outputLines(),
                testing::UnorderedElementsAre("ThicknessAtProp1\t0.75\tProp\t1\tpval\t0",
                                              "ColorAtProp1\t33\tProp\t1\tColor\t",
                                              "ExAtMatl1\t150000\tMatl\t1\tEx\t",
                                              "node2AtElem1\t4\tElem\t1\tnode\t1"));
}

TEST(Study, PutsATextWithBlanks)
{
    StudyFixture f;

    EXPECT_EQ(f.run("put Prop 1 title  a  new name \n"), 0) << f.error();
}

TEST(Study, PrintsWhatControlsShow)
{
    StudyFixture f;

    EXPECT_EQ(f.run("print Inputs\nprint Outputs\nprint Execution\nprint Label1\nprint Label2\n"
                    "print Label3\nprint InputsButton\nprint RefreshInputs\n"
                    "print ClearInputSelection\nprint OutputsButton\nprint RefreshOutputs\n"
                    "print ClearOutputSelection\nprint ClearAll\nprint GenerateButton\n"
                    "print StatusLine\nprint OutputsList\n"),
              0);

    EXPECT_THAT(
        f.outputLines(),
        ElementsAre("Input", "Output", "Execution", "Command Line", "CAE Solver", "PIDO Tool",
                    "Select...", "Refresh Values", "Remove Selected", "Select...", "Refresh Values",
                    "Remove Selected", "Clear All", "Apply", "", "\t\t\t\t"));
}

TEST(Study, RunsWithoutALogAndSaysSo)
{
    StudyFixture f;
    f.write("korva", "a file where the folder should be");

    EXPECT_EQ(f.run("print Solver\n"), 0);

    EXPECT_THAT(f.error(), HasSubstr("There is no log: "));
}

TEST(Study, TakesItsModelFromTheCurrentFolder)
{
    StudyFixture f;

    EXPECT_EQ(f.runScript("start no such model.neu\n"), 1);

    EXPECT_EQ(
        f.error(),
        "beam.study:1: There is no file no such model.neu. FEMAP has no model open that has a "
        "file\n");
}

TEST(Study, KeepsATitleInAnyLanguage)
{
    StudyFixture f;

    EXPECT_EQ(f.run("set CommandLine Träger Ø12\nprint CommandLine\n"), 0);

    EXPECT_THAT(f.outputLines(), ElementsAre("Träger Ø12"));
}

}  // namespace
}  // namespace study
