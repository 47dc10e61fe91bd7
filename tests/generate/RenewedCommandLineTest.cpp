#include "fake/GenerateFixture.h"
#include "generate/GenerationDriver.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace generate
{

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

// The solver was chosen while beam.neu was open.
class RenewedCommandLine : public testing::Test
{
protected:
    RenewedCommandLine() { Solver_Click(f.context); }

    GenerateFixture f;
    std::string& text = f.form.CommandLine.Text;

    void open(const std::string& file)
    {
        f.femap.modelName = file;
        renewCommandLine(f.context, file);
    }
};

}  // namespace

TEST_F(RenewedCommandLine, NamesTheModelThatIsCurrentNow)
{
    open(inWork("wing.neu"));

    EXPECT_EQ(text, "nastran wing.dat notify=no");
}

TEST_F(RenewedCommandLine, LeavesNoLineInTheLog)
{
    EXPECT_THAT(f.logOf([&] { open(inWork("wing.neu")); }), IsEmpty());
}

TEST_F(RenewedCommandLine, IsTheEngineersOnceItWasEdited)
{
    text = "run it";

    open(inWork("wing.neu"));

    EXPECT_EQ(text, "run it");
}

TEST_F(RenewedCommandLine, TakesThePlaceOfAnEmptyOne)
{
    text = "";

    open(inWork("wing.neu"));

    EXPECT_EQ(text, "nastran wing.dat notify=no");
}

TEST_F(RenewedCommandLine, IsThatOfTheChosenSolver)
{
    f.form.Solver.Text = "NENastran";

    open(inWork("wing.neu"));

    EXPECT_EQ(text, "nastran nastran.ini wing.nas");
}

TEST_F(RenewedCommandLine, StaysWithoutASolverOrAName)
{
    open("");
    EXPECT_EQ(text, "nastran beam.dat notify=no");

    f.form.Solver.Text = "";
    open(inWork("wing.neu"));
    EXPECT_EQ(text, "nastran beam.dat notify=no");
}

TEST_F(RenewedCommandLine, IsWrittenByApplyWhenTheModelGotItsFirstName)
{
    open("");
    f.femap.modelName = inWork("wing.neu");

    GenerateButton_Click(f.context);

    EXPECT_EQ(text, "nastran wing.dat notify=no");
    EXPECT_THAT(f.written("FDFemap.bat"), ElementsAre("nastran wing.dat notify=no"));
}

TEST_F(RenewedCommandLine, IsNotTouchedByApplyOtherwise)
{
    for (const std::string& line : {std::string(), std::string("run it")}) {
        text = line;

        GenerateButton_Click(f.context);

        EXPECT_EQ(text, line);
    }
}

TEST_F(RenewedCommandLine, StaysTheEngineersWhenTheModelGotItsFirstName)
{
    open("");
    text = "run it";
    f.femap.modelName = inWork("wing.neu");

    GenerateButton_Click(f.context);

    EXPECT_THAT(f.written("FDFemap.bat"), ElementsAre("run it"));
}

TEST_F(RenewedCommandLine, GivesWayToAChosenSolverEvenWhenItWasEdited)
{
    text = "run it";

    Solver_Click(f.context);

    EXPECT_EQ(text, "nastran beam.dat notify=no");
}

TEST(FirstCommandLine, IsWrittenByApplyWhenTheSolverWasChosenBeforeTheModelHadAName)
{
    GenerateFixture f;
    f.form.CommandLine.Text = "";
    f.femap.modelName = "";
    Solver_Click(f.context);
    ASSERT_EQ(f.form.CommandLine.Text, "");
    f.femap.modelName = inWork("beam.neu");

    GenerateButton_Click(f.context);

    EXPECT_THAT(f.written("FDFemap.bat"), ElementsAre("nastran beam.dat notify=no"));
}

TEST(FileExtension, IsThatOfTheStartArgumentElseOfTheOpenModel)
{
    struct Case
    {
        const char* given;
        const char* line;
    };
    for (const auto& [given, line] : {Case{"mod", "Reference Model (FEMAP) = beam.mod"},
                                      Case{"", "Reference Model (FEMAP) = beam.neu"}}) {
        GenerateFixture f;
        f.form.fileExtension = given;

        GenerateButton_Click(f.context);

        EXPECT_THAT(f.written("CAEInput.txt"), testing::Contains(line));
    }
}

}  // namespace generate
