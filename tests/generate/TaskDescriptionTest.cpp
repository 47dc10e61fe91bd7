#include "fake/GenerateFixture.h"
#include "generate/TaskDescription.h"
#include "system/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace generate
{

using testing::Contains;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using testing::Not;

namespace
{

const std::string fileName = "vELMARbeam.desc";

class TaskDescription : public testing::Test
{
protected:
    GenerateFixture f;

    std::vector<std::string> write()
    {
        WriteDescFile(f.context, f.progress);
        return f.written(fileName);
    }

    /// The written lines that stand between two lines.
    std::vector<std::string> between(const std::string& first, const std::string& last)
    {
        const std::vector<std::string> lines = write();
        const auto begin = std::find(lines.begin(), lines.end(), first);
        const auto end = std::find(begin, lines.end(), last);
        if (end == lines.end())
            return {"no such lines"};
        return {begin + 1, end};
    }
};

}  // namespace

TEST_F(TaskDescription, BeginsWithTheHeadOfTheTask)
{
    const std::vector<std::string> lines = write();

    EXPECT_THAT(
        std::vector<std::string>(lines.begin(), lines.begin() + 15),
        ElementsAre("MDOLVersion: 9.0", "CompilerOptions: warn", "", "Task Task1", "",
                    "    TaskHeader Task1", "        Version: 1.0", "        Evaluation: single",
                    "        ControlMode: user", "        RunCounter: 1",
                    "        BoundsPolicy: adjustvalue", "        CheckPoint: unknown",
                    "    End TaskHeader Task1", "", "    Inputs Task1"));
}

TEST_F(TaskDescription, DeclaresInputsAndOutputsAsRealParameters)
{
    f.addInput({"T1", "0.25", "Prop", "1", "pval", "0"});
    f.addInput({"T2", "", "Prop", "2", "pval", "0"});
    f.addOutput({"TotalMass", "7.85", "MassTotal", "", "MassProperties"});

    EXPECT_THAT(
        between("    Inputs Task1", "    SimCode CAEInput"),
        ElementsAre("        Parameter: T1 Type: real InitialValue: 0.25",
                    "        Parameter: T2 Type: real InitialValue: ", "    End Inputs Task1", "",
                    "    Outputs Task1", "        Parameter: TotalMass Type: real",
                    "    End Outputs Task1", ""));
}

TEST_F(TaskDescription, OfEmptyGridsDeclaresNothing)
{
    EXPECT_THAT(
        between("    Inputs Task1", "    SimCode CAEInput"),
        ElementsAre("    End Inputs Task1", "", "    Outputs Task1", "    End Outputs Task1", ""));
}

TEST_F(TaskDescription, DeclaresNoFunctionButListsItAsPotentialVariable)
{
    f.addFunction(5, "curve", {}, {});
    f.addInput({"T1", "0.25", "Prop", "1", "pval", "0"});
    f.addInput({"curve", "X-Y Values", "Function", " 5"});

    const std::vector<std::string> lines = write();

    EXPECT_THAT(lines,
                Not(Contains("        Parameter: curve Type: real InitialValue: X-Y Values")));
    EXPECT_THAT(lines, Contains("            curve"));
    EXPECT_THAT(f.written("InputValues.txt"), ElementsAre("T1  0.25"));
    EXPECT_THAT(f.written("CAEInput.txt"), Contains("Prop  T1  1  pval  0"));
    EXPECT_EQ(f.written("CAEInput.txt").size(), 4U);
    EXPECT_THAT(f.written("FunctionsInputvalues.txt"), Contains("curve"));
}

TEST_F(TaskDescription, SkipsOnlyTheKindThatIsExactlyFunction)
{
    f.addInput({"T1", "1", "function", " 5"});

    EXPECT_THAT(between("    Inputs Task1", "    End Inputs Task1"),
                ElementsAre("        Parameter: T1 Type: real InitialValue: 1"));
}

TEST_F(TaskDescription, RunsTheSolverNXNastran)
{
    EXPECT_THAT(
        between("            Script", "            End Script"),
        ElementsAre("                del beam.op2", "                del beam.Log",
                    "                del beam.rsf", "                nastran beam.dat notify=no"));
}

TEST_F(TaskDescription, RunsTheSolverNENastranWithItsSettings)
{
    f.form.Solver.Text = "NENastran";

    EXPECT_THAT(
        between("            Script", "            End Script"),
        ElementsAre("                del beam.fno", "                del beam.Log",
                    "                del beam.rsf",
                    "                copy \"C:\\Program Files\\NEiNastran Engine V84\\nastran.ini\""
                    " nastran.ini",
                    "                nastran beam.dat notify=no"));
}

TEST_F(TaskDescription, RunsTheCommandLineAloneForAnotherSolver)
{
    f.form.Solver.Text = "nenastran";

    EXPECT_THAT(between("            Script", "            End Script"),
                ElementsAre("                del beam.Log", "                del beam.rsf",
                            "                nastran beam.dat notify=no"));
}

TEST_F(TaskDescription, KeepsTheIndentOfAnEmptyCommandLine)
{
    f.form.CommandLine.Text = "";

    EXPECT_THAT(between("                del beam.rsf", "            End Script"),
                ElementsAre(std::string(16, ' ')));
}

TEST_F(TaskDescription, TakesTheCommandLineUnchanged)
{
    f.form.CommandLine.Text = "  call \"@model@\" %1 ";

    EXPECT_THAT(between("                del beam.rsf", "            End Script"),
                ElementsAre("                  call \"@model@\" %1 "));
}

TEST_F(TaskDescription, OptimisesPropertiesAndConstrainsElementResponses)
{
    f.addFunction(5, "curve", {}, {});
    f.addInput({"T1", "0.25", "Prop", "1", "pval", "0"});
    f.addInput({"X", "1", "Node", "5", "x"});
    f.addInput({"curve", "X-Y Values", "Function", " 5"});
    f.addInput({"P", "1", "prop", "1", "pval", "0"});
    f.addInput({"T2", "0.5", "Prop", "2", "pval", "0"});
    f.addOutput({"Element 12 stress", "1", "12", "7033", "Output"});
    f.addOutput({"element 12 stress", "1", "12", "7033", "Output"});
    f.addOutput({"Node 5 disp", "1", "5", "1", "Output"});
    f.addOutput({"Elem", "1", "5", "1", "Output"});
    const std::string bounds =
        " LowerBound: -5000.0 Weight: 1.0 ScaleFactor: 1.0 UpperBound: 5000.0 Weight: 1.0 "
        "ScaleFactor: 1.0";

    EXPECT_THAT(
        between("    Optimization Task1", "        OptimizePlan StressRatio"),
        ElementsAreArray<std::string>({"        PotentialVariables:",
                                       "            T1",
                                       "            X",
                                       "            curve",
                                       "            P",
                                       "            T2",
                                       "        Variables:",
                                       "            T1",
                                       "            T2",
                                       "        VariableScaling",
                                       "            Parameter: T1 ScaleFactor: 1.0",
                                       "            Parameter: T2 ScaleFactor: 1.0",
                                       "        InputConstraints",
                                       "            Parameter: T1 LowerBound: 0.01 UpperBound: 5.0",
                                       "            Parameter: T2 LowerBound: 0.01 UpperBound: 5.0",
                                       "        PotentialObjectives:",
                                       "            Element 12 stress",
                                       "            element 12 stress",
                                       "            Node 5 disp",
                                       "            Elem",
                                       "        OutputConstraints",
                                       "            Parameter: Element 12 stress" + bounds,
                                       "            Parameter: Elem" + bounds,
                                       ""}));
}

TEST_F(TaskDescription, KeepsTheHeadingsOfEmptyLists)
{
    f.addInput({"X", "1", "Node", "5", "x"});

    EXPECT_THAT(between("    Optimization Task1", "        OptimizePlan StressRatio"),
                ElementsAre("        PotentialVariables:", "            X", "        Variables:",
                            "        VariableScaling", "        InputConstraints",
                            "        PotentialObjectives:", "        OutputConstraints", ""));
}

TEST_F(TaskDescription, LeavesOutRowsWithoutAName)
{
    f.addInput({"T1", "0.25", "Prop", "1", "pval", "0"});
    f.addInput({"", "0.5", "Prop", "2", "pval", "0"});
    f.addInput({"T3", "0.75", "Prop", "3", "pval", "0"});

    EXPECT_THAT(between("        Variables:", "        VariableScaling"),
                ElementsAre("            T1", "            T3"));
    EXPECT_THAT(f.written("InputValues.txt"), ElementsAre("T1  0.25", "T3  0.75"));
}

TEST_F(TaskDescription, WritesNoTemplateFiles)
{
    write();

    EXPECT_THAT(f.fileNames(), ElementsAre("CAEInput.txt", "CAEOutput.txt", "FDFemap.bat",
                                           "FunctionsInputvalues.txt", "InputValues.txt",
                                           "OutputValues.txt", fileName));
}

TEST_F(TaskDescription, LogsEachStepInItsOrder)
{
    const std::string folder = inWork("");

    const auto log = f.logOf([&] { WriteDescFile(f.context, f.progress); });

    EXPECT_THAT(
        log, ElementsAreArray<std::string>(
                 {"DEBUG: At start of WriteDescFile",
                  "DEBUG: Opened files " + folder + "CAEInput.txt " + folder + "InputValues.txt " +
                      folder + "InputValues.txt.template " + folder + "vELMARbeam.desc For writing",
                  "DEBUG: Before writing head of Desc file",
                  "DEBUG: After writing head of Desc file",
                  "DEBUG: Position at Before writing batch file object",
                  "DEBUG: Found command line argument as nastran beam.dat notify=no",
                  "DEBUG: Position at After writing batch file object",
                  "DEBUG: Before writing function data",
                  "DEBUG: Opened file " + folder +
                      "FunctionsInputvalues.txt to write the function values",
                  "DEBUG: Execution of WriteFunctionInputs started",
                  "DEBUG: Acquired Femap lock before functions data",
                  "DEBUG: Start iteration over InputsList",
                  "DEBUG: End iteration over InputsList",
                  "DEBUG: Released Femap lock before functions data",
                  "DEBUG: After writing function data",
                  "DEBUG: Closed files " + folder + "CAEInput.txt " + folder + "InputValues.txt " +
                      folder + "InputValues.txt.template ",
                  "DEBUG: Opened files " + folder + "CAEOutput.txt " + folder +
                      "OutputValues.txt " + folder + "OutputValues.txt.template  For writing",
                  "DEBUG: Before writing tail of Desc file",
                  "DEBUG: Before writing optimize of Desc file",
                  "DEBUG: After writing optimize of Desc file",
                  "DEBUG: After writing head of Desc file",
                  "DEBUG: Closed files " + folder + "CAEOutput.txt " + folder +
                      "OutputValues.txt " + folder + "OutputValues.txt.template  ",
                  "DEBUG: At end of  write desc file"}));
}

TEST_F(TaskDescription, LeavesTheOldFilesWhenTheFunctionDataFails)
{
    f.addInput({"curve", "X-Y Values", "Function", " 5"});
    for (const char* const name : {"CAEInput.txt", "InputValues.txt", "vELMARbeam.desc"})
        f.files.contents[inWork(name)] = "old";
    f.beforeModelName([](int call) {
        if (call == 2)
            throw sys::RuntimeError(sys::ErrorNumber::ObjectFailed, "busy");
    });

    EXPECT_THROW(WriteDescFile(f.context, f.progress), sys::RuntimeError);
    EXPECT_THAT(f.workFolder(),
                ElementsAre(testing::Pair("CAEInput.txt", "old"),
                            testing::Pair("FDFemap.bat", "nastran beam.dat notify=no\r\n"),
                            testing::Pair("InputValues.txt", "old"),
                            testing::Pair("vELMARbeam.desc", "old")));
}

TEST_F(TaskDescription, IsNamedAfterAModelWithoutAnExtension)
{
    f.femap.modelName = inWork("plate");

    WriteDescFile(f.context, f.progress);

    EXPECT_TRUE(f.exists("vELMARplate.desc"));
}

TEST_F(TaskDescription, IsRefusedWhenTheOnlyPointLiesInAFolderName)
{
    f.femap.modelName = inWork("run.1") + sys::pathSeparator + "plate";

    EXPECT_THROW(WriteDescFile(f.context, f.progress), sys::RuntimeError);
    EXPECT_THAT(f.fileNames(), IsEmpty());
}

}  // namespace generate
