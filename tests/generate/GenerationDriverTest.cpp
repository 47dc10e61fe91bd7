#include "fake/GenerateFixture.h"
#include "generate/GenerationDriver.h"
#include "system/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace generate
{

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::Not;

namespace
{

const std::vector<std::string> velmarFiles = {
    "CAEInput.txt",    "CAEOutput.txt",    "FDFemap.bat",     "FunctionsInputvalues.txt",
    "InputValues.txt", "OutputValues.txt", "beamControl.txt", "vELMARbeam.desc"};
const std::vector<std::string> ombraFiles = {"CAEInput.txt",     "CAEOutput.txt",
                                             "InputValues.txt",  "InputValues.txt.template",
                                             "OutputValues.txt", "OutputValues.txt.template",
                                             "beam.kvp",         "beam.par",
                                             "beam.pcs",         "beamControl.txt"};

void expectPointers(const GenerateFixture& f, int pointer)
{
    for (const auto& each : f.form.controls())
        EXPECT_EQ(each.control->MousePointer, pointer) << each.name;
}

std::vector<std::string> noModelLog()
{
    return {"DEBUG: No Error found Before Generating supporting files",
            "DEBUG: Cannot perform action without a model", "DEBUG: Acquired Femap lock"};
}

}  // namespace

TEST(GenerateButton, WritesAllFilesOfTheToolVelmar)
{
    GenerateFixture f;

    GenerateButton_Click(f.context);

    EXPECT_EQ(f.fileNames(), velmarFiles);
}

TEST(GenerateButton, WritesAllFilesOfTheToolOmbra)
{
    GenerateFixture f;
    f.form.Optimizer.Text = "Ombra";

    GenerateButton_Click(f.context);

    EXPECT_EQ(f.fileNames(), ombraFiles);
}

TEST(GenerateButton, WritesOnlyTheControlFileForEveryOtherTool)
{
    for (const char* const tool : {"KORVA", "velmar", "ombra", "Velmar ", ""}) {
        GenerateFixture f;
        f.form.Optimizer.Text = tool;

        const auto log = f.logOf([&] { GenerateButton_Click(f.context); });

        EXPECT_THAT(f.fileNames(), ElementsAre("beamControl.txt"));
        EXPECT_THAT(
            log,
            ElementsAre("DEBUG: No Error found Before Generating supporting files",
                        "DEBUG: Acquired Femap lock", "DEBUG: Position at At start of Save_Config",
                        "DEBUG: Opened file " + inWork("beamControl.txt") + " to write",
                        "DEBUG: Closed file " + inWork("beamControl.txt"),
                        "DEBUG: called save cofig", "DEBUG: Released Femap lock",
                        "DEBUG: No Error found After Generating supporting files"));
    }
}

TEST(GenerateButton, LocksFemapAndShowsTheHourglassMeanwhile)
{
    GenerateFixture f;
    f.addFunction(5, "curve", {}, {});
    f.addInput({"curve", "X-Y Values", "Function", " 5"});
    int locks = 0;
    f.femap.messageShown = [&](const auto&) {
        locks = f.femap.lockCount;
        expectPointers(f, form::pointerHourglass);
    };

    GenerateButton_Click(f.context);

    EXPECT_EQ(locks, 2);  // its own and that of the function data file
    EXPECT_EQ(f.femap.lockCount, 0);
    EXPECT_EQ(f.context.lockDepth, 0);
    expectPointers(f, form::pointerDefault);
}

TEST(GenerateButton, WritesNothingForAModelWithoutAFile)
{
    GenerateFixture f;
    f.femap.modelName.clear();

    const auto log = f.logOf([&] { GenerateButton_Click(f.context); });

    EXPECT_THAT(f.messages(), ElementsAre("Model must be saved in .MOD format first"));
    EXPECT_EQ(f.femap.messages.front().colour, femap::MessageColour::Error);
    EXPECT_EQ(f.form.StatusLine.Caption, "Model must be saved in .MOD format first");
    EXPECT_THAT(log, ElementsAre("DEBUG: No Error found Before Generating supporting files",
                                 "DEBUG: Model must be saved in .MOD format first"));
    EXPECT_THAT(f.fileNames(), IsEmpty());
    EXPECT_EQ(f.femap.lockCount, 0);
}

TEST(GenerateButton, GoesOnWithoutAModelUntilTheGeneratorFails)
{
    for (const char* const tool : {"Velmar", "Ombra", "KORVA"}) {
        GenerateFixture f;
        f.form.Optimizer.Text = tool;
        f.femap.model.reset();

        const auto log =
            f.logOf([&] { EXPECT_THROW(GenerateButton_Click(f.context), sys::RuntimeError); });

        EXPECT_THAT(f.messages(), ElementsAre("Cannot perform action without a model"));
        EXPECT_THAT(log, IsSupersetOf(noModelLog()));
        EXPECT_THAT(log, Not(Contains("DEBUG: called save cofig")));
        EXPECT_THAT(f.fileNames(), IsEmpty());
        EXPECT_EQ(f.context.lockDepth, 1);  // left to the one who runs the handler
        EXPECT_FALSE(f.context.error.isPending());
    }
}

TEST(GenerateButton, WritesEverythingWhenTheNameCanBeReadAfterAll)
{
    GenerateFixture f;
    f.beforeModelName([](int call) {
        if (call == 1)
            throw sys::RuntimeError(sys::ErrorNumber::ObjectFailed, "busy");
    });

    GenerateButton_Click(f.context);

    EXPECT_THAT(f.messages(), ElementsAre("Cannot perform action without a model"));
    EXPECT_EQ(f.fileNames(), velmarFiles);
}

TEST(GenerateButton, LogsItsMessageAlsoWhenFemapCannotShowIt)
{
    GenerateFixture f;
    f.context.application.reset();

    const auto log =
        f.logOf([&] { EXPECT_THROW(GenerateButton_Click(f.context), sys::RuntimeError); });

    EXPECT_THAT(log, Contains("DEBUG: Cannot perform action without a model"));
    EXPECT_EQ(f.form.StatusLine.Caption, "Cannot perform action without a model");
}

TEST(GenerateButton, ReportsAnErrorThatWasPendingBefore)
{
    GenerateFixture f;
    f.context.error.attempt(
        [] { throw sys::RuntimeError(sys::ErrorNumber::ObjectFailed, "left over"); });

    const auto log = f.logOf([&] { GenerateButton_Click(f.context); });

    EXPECT_THAT(log, Contains("DEBUG: Error occured Before Generating supporting files"));
    EXPECT_THAT(log, Contains("DEBUG: No Error found After Generating supporting files"));
}

TEST(GenerateButton, DoesNotReplaceTheControlFileWhenAGeneratorFails)
{
    for (const char* const tool : {"Velmar", "Ombra"}) {
        GenerateFixture f;
        f.form.Optimizer.Text = tool;
        f.files.contents[inWork("beamControl.txt")] = "old";
        f.files.failingOperation = f.files.operations + 1;

        EXPECT_THROW(GenerateButton_Click(f.context), sys::RuntimeError);
        EXPECT_EQ(f.files.contents.at(inWork("beamControl.txt")), "old");
    }
}

TEST(GenerateButton, DoesNotReplaceTheControlFileWhenFemapIsGone)
{
    for (const char* const tool : {"Velmar", "Ombra"}) {
        for (int dyingCall = 1;; ++dyingCall) {
            GenerateFixture f;
            f.form.Optimizer.Text = tool;
            f.files.contents[inWork("beamControl.txt")] = "old";
            f.beforeModelName([&](int call) {
                if (call == dyingCall)
                    throw femap::ConnectionLost("FEMAP is gone");
            });

            try {
                GenerateButton_Click(f.context);
                EXPECT_GE(dyingCall, 4);  // by the button, a generator and the control file
                break;
            }
            catch (const femap::ConnectionLost&) {
                EXPECT_EQ(f.files.contents.at(inWork("beamControl.txt")), "old");
            }
        }
    }
}

TEST(GenerateButton, NamesTheFileThatFailedAndWhy)
{
    GenerateFixture f;
    f.files.missingFolders.insert(inWork("").substr(0, inWork("").size() - 1));

    try {
        GenerateButton_Click(f.context);
        FAIL() << "no error was raised";
    }
    catch (const sys::RuntimeError& error) {
        EXPECT_THAT(error.description(), HasSubstr(inWork("CAEInput.txt")));
    }
}

struct SolverCase
{
    const char* solver;
    const char* commandLine;
};

void PrintTo(const SolverCase& solverCase, std::ostream* out)
{
    *out << solverCase.solver;
}

class EachSolver : public testing::TestWithParam<SolverCase>
{};

TEST_P(EachSolver, SetsTheCommandLineOfTheModel)
{
    GenerateFixture f;
    f.femap.modelName = inWork("wing.mod");
    f.form.Solver.Text = GetParam().solver;

    const auto log = f.logOf([&] { Solver_Click(f.context); });

    EXPECT_EQ(f.form.CommandLine.Text, GetParam().commandLine);
    EXPECT_THAT(log, ElementsAre("DEBUG: Position at At start of Solver_Click",
                                 std::string("DEBUG: Solver text is =") + GetParam().commandLine,
                                 "DEBUG: Position at At end of Solver_Click"));
    EXPECT_THAT(f.messages(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(SolverClick, EachSolver,
                         testing::Values(SolverCase{"NENastran", "nastran nastran.ini wing.nas"},
                                         SolverCase{"NXNastran", "nastran wing.dat notify=no"}));

TEST(SolverClick, LeavesTheCommandLineForAModelWithoutAFile)
{
    for (const char* const solver : {"NENastran", "NXNastran"}) {
        GenerateFixture f;
        f.femap.modelName.clear();
        f.form.Solver.Text = solver;
        f.form.CommandLine.Text = "by hand";

        const auto log = f.logOf([&] { Solver_Click(f.context); });

        EXPECT_EQ(f.form.CommandLine.Text, "by hand");
        EXPECT_THAT(log, ElementsAre("DEBUG: Position at At start of Solver_Click",
                                     "DEBUG: Solver text is =by hand",
                                     "DEBUG: Position at At end of Solver_Click"));
        EXPECT_THAT(f.messages(), IsEmpty());
    }
}

TEST(SolverClick, LeavesTheCommandLineWithoutAModelAndLogsWhy)
{
    GenerateFixture f;
    f.femap.model.reset();
    f.form.CommandLine.Text = "by hand";

    const auto log = f.logOf([&] { Solver_Click(f.context); });

    EXPECT_EQ(f.form.CommandLine.Text, "by hand");
    EXPECT_EQ(log.front(), "DEBUG: Position at At start of Solver_Click");
    EXPECT_THAT(log, Contains("DEBUG: Error occured Solver_Click"));
    EXPECT_EQ(log.at(log.size() - 2), "DEBUG: Solver text is =by hand");
    EXPECT_EQ(log.back(), "DEBUG: Position at At end of Solver_Click");
    EXPECT_FALSE(f.context.error.isPending());
    EXPECT_THAT(f.messages(), IsEmpty());
}

TEST(SolverClick, RefusesAnotherSolverAndLeavesTheBoxWithoutSelection)
{
    for (const char* const solver : {"OtherSolver", "nxnastran", ""}) {
        GenerateFixture f;
        int nested = 0;
        f.form.Solver.setListIndex(1);
        f.form.Solver.Click = [&] { ++nested; };
        f.form.Solver.Text = solver;
        f.form.CommandLine.Text = "by hand";

        const auto log = f.logOf([&] { Solver_Click(f.context); });

        EXPECT_EQ(f.form.Solver.ListIndex, -1);
        EXPECT_EQ(f.form.Solver.Text, "");
        EXPECT_EQ(nested, 0);
        EXPECT_EQ(f.form.CommandLine.Text, "by hand");
        EXPECT_THAT(f.messages(),
                    ElementsAre("Only NXNastran and NENastran formats are currently supported"));
        EXPECT_THAT(
            log, ElementsAre("DEBUG: Position at At start of Solver_Click",
                             "DEBUG: Only NXNastran and NENastran formats are currently supported",
                             "DEBUG: Solver text is =by hand",
                             "DEBUG: Position at At end of Solver_Click"));
    }
}

TEST(OptimizerClick, AcceptsBothTools)
{
    for (const char* const tool : {"Velmar", "Ombra"}) {
        GenerateFixture f;
        f.form.Optimizer.Text = tool;

        const auto log = f.logOf([&] { Optimizer_Click(f.context); });

        EXPECT_EQ(f.form.Optimizer.Text, tool);
        EXPECT_THAT(f.messages(), IsEmpty());
        EXPECT_THAT(log, ElementsAre("DEBUG: Position at At start of Optimizer_Click",
                                     "DEBUG: Position at At end of Optimizer_Click"));
    }
}

TEST(OptimizerClick, RefusesEveryOtherToolAndSelectsTheFirstOne)
{
    for (const std::string tool : {"KORVA", "velmar", "Ombra ", ""}) {
        GenerateFixture f;
        f.form.Optimizer.enterText(tool);

        const auto log = f.logOf([&] { Optimizer_Click(f.context); });

        EXPECT_EQ(f.form.Optimizer.ListIndex, 0);
        EXPECT_EQ(f.form.Optimizer.Text, "Velmar");
        EXPECT_THAT(f.messages(), ElementsAre(tool + " format not currently supported"));
        EXPECT_THAT(log, ElementsAre("DEBUG: Position at At start of Optimizer_Click",
                                     "DEBUG: " + tool + " format not currently supported",
                                     "DEBUG: Position at At end of Optimizer_Click"));
    }
}

TEST(OptimizerClick, RunsItselfAgainForTheFirstToolWhenItIsBoundToTheBox)
{
    GenerateFixture f;
    f.form.Optimizer.Click = [&] { Optimizer_Click(f.context); };

    const auto log = f.logOf([&] { f.form.Optimizer.setListIndex(1); });

    EXPECT_THAT(log, ElementsAre("DEBUG: Position at At start of Optimizer_Click",
                                 "DEBUG: KORVA format not currently supported",
                                 "DEBUG: Position at At start of Optimizer_Click",
                                 "DEBUG: Position at At end of Optimizer_Click",
                                 "DEBUG: Position at At end of Optimizer_Click"));
}

}  // namespace generate
