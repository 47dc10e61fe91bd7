#include "AppFixture.h"
#include "app/Program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace app
{
namespace
{

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

TEST(Program, HandsTheKeyCodeOn)
{
    StartedProgram f;
    f.form.InputsList.AddItem("x\t1");
    f.form.InputsList.Row = f.form.InputsList.RowSel = 2;

    f.program.raise({"InputsList", form::What::KeyDown}, 65);
    EXPECT_EQ(f.form.InputsList.Rows(), 3);
    f.program.raise({"InputsList", form::What::KeyDown}, 46);
    EXPECT_EQ(f.form.InputsList.Rows(), 2);
}

TEST(Program, TakesAnEventWithoutAProcedureForAMistake)
{
    StartedProgram f;

    EXPECT_THROW(f.program.raise(form::click("CommandLine")), std::logic_error);
}

TEST(Program, TellsHowItStarted)
{
    ProgramFixture well;
    ProgramFixture withError;
    withError.connector.failAt("feAppRegisterAddInPane");
    ProgramFixture withoutFemap;
    withoutFemap.connector.attachRaises = withoutFemap.connector.createRaises = true;

    EXPECT_EQ(well.program.start("$beam.log$ALWAYS"), Started::Normally);
    EXPECT_TRUE(well.program.isConnected());
    EXPECT_EQ(withError.program.start("$beam.log$ALWAYS"), Started::ByError);
    EXPECT_EQ(withError.program.lastFailure(), "feAppRegisterAddInPane failed");
    EXPECT_EQ(withoutFemap.program.start("$beam.log$ALWAYS"), Started::FemapNotFound);
    EXPECT_FALSE(withoutFemap.program.isConnected());
    EXPECT_TRUE(withoutFemap.program.isClosed());
}

TEST(Program, DoesNothingMoreWhenFemapWasNotFound)
{
    ProgramFixture f;
    f.connector.attachRaises = f.connector.createRaises = true;
    f.program.start("$beam.log$ALWAYS");

    EXPECT_EQ(f.program.raise(form::click("ClearAll")), Ended::NotStarted);
    EXPECT_EQ(f.program.enterText(f.form.Solver, "NENastran"), Ended::NotStarted);
    f.program.close();

    EXPECT_EQ(f.host.unloads, 0);
    EXPECT_THAT(f.logLines(), Not(Contains("DEBUG: Position at Unloading the form")));
}

TEST(Program, KeepsTheFormWhenFemapIsLostDuringStart)
{
    ProgramFixture f;
    f.connector.dieAt("feFileOpen");

    EXPECT_EQ(f.program.start(allArguments), Started::ByError);

    EXPECT_FALSE(f.program.isConnected());
    EXPECT_FALSE(f.form.GenerateButton.Enabled);
    EXPECT_EQ(f.form.StatusLine.Caption, femapIsGone);
    EXPECT_EQ(f.host.unloads, 0);
}

TEST(Program, KeepsWhyTheModelWasNotOpenedAndWhyThereIsNoLog)
{
    ProgramFixture f;
    f.connector.answers["feFileOpen"] = femap::ReturnCode::Fail;
    f.files.missingFolders = {"/temp", "/temp/korva"};

    EXPECT_EQ(f.program.start(allArguments), Started::Normally);

    EXPECT_THAT(f.program.openFailure(), HasSubstr("/models/beam.neu"));
    EXPECT_THAT(f.program.logFailure(), HasSubstr("/temp/korva"));
}

TEST(Program, TellsWhyThereIsNoLogBehindWhatElseStartUpTells)
{
    ProgramFixture f;
    f.files.contents["/models/beam.neu"];
    f.connector.answers["feFileOpen"] = femap::ReturnCode::Fail;

    f.program.start("/models/beam.neu$beam.log$DEBUG ");

    EXPECT_THAT(f.form.StatusLine.Caption,
                testing::MatchesRegex("FEMAP could not open the model: .*There is no log: "
                                      "\"DEBUG \" is no level; the levels are ALWAYS, INFO, DEBUG, "
                                      "WARN, ERROR, NOTHING"));
    f.program.raise(form::click("ClearAll"));
    EXPECT_EQ(f.form.StatusLine.Caption, "");
}

TEST(Program, SaysNothingOfALogThatIsNotWanted)
{
    for (const std::string level : {"", "NOTHING"}) {
        ProgramFixture f;

        f.program.start("/models/beam.neu$beam.log$" + level);

        EXPECT_EQ(f.form.StatusLine.Caption, "") << level;
        EXPECT_EQ(f.program.logFailure(), "") << level;
    }
}

TEST(Program, RunsTheHandlerOfABoxOnce)
{
    StartedProgram f;

    EXPECT_EQ(f.program.enterText(f.form.Solver, "NENastran"), Ended::Normally);
    EXPECT_EQ(f.form.CommandLine.Text, "nastran nastran.ini beam.nas");

    EXPECT_EQ(f.program.enterText(f.form.Solver, "NXNastran"), Ended::Normally);
    EXPECT_EQ(f.form.CommandLine.Text, "nastran beam.dat notify=no");
}

TEST(Program, KeepsWhatWasToldForAFurtherEventOfTheSameAction)
{
    StartedProgram f;
    f.form.status.tellProblem("Of the inputs.");

    EXPECT_EQ(f.program.raiseFurther(form::click("RefreshOutputs")), Ended::Normally);
    const std::string afterFurther = f.form.StatusLine.Caption;
    EXPECT_EQ(f.program.raise(form::click("RefreshOutputs")), Ended::Normally);

    EXPECT_EQ(afterFurther, "Of the inputs.");
    EXPECT_EQ(f.form.StatusLine.Caption, "");
}

TEST(Program, PutsTextIntoABoxWithoutAHandler)
{
    StartedProgram f;

    EXPECT_EQ(f.program.enterText(f.form.InputSelection, "Elements"), Ended::Normally);
    EXPECT_EQ(f.program.enterText(f.form.OutputSelection, "Mass Properties"), Ended::Normally);

    EXPECT_EQ(f.form.InputSelection.ListIndex, 1);
    EXPECT_EQ(f.form.OutputSelection.Text, "Mass Properties");
}

TEST(Program, RunsAHandlerWithinAHandlerForAChoiceThatAProcedureMakes)
{
    StartedProgram f;

    const Ended ended = f.program.enterText(f.form.Optimizer, "KORVA");

    EXPECT_EQ(ended, Ended::Normally);
    EXPECT_EQ(f.form.Optimizer.Text, "Velmar");
    EXPECT_THAT(f.messages(), ElementsAre("KORVA format not currently supported"));
    EXPECT_THAT(f.log(),
                Contains("DEBUG: Position at At start of Optimizer_Click").Times(3));  // 1 at start
}

TEST(Program, NamesTheBoxWhoseHandlerFailed)
{
    StartedProgram f;
    f.connector.failAt("feAppMessage");

    EXPECT_EQ(f.program.enterText(f.form.Optimizer, "Other"), Ended::ByError);

    EXPECT_EQ(f.program.lastFailure(), "feAppMessage failed");
    EXPECT_THAT(f.log(), Contains("DEBUG: Error occured In Optimizer_Click"));
}

TEST(Program, DropsAClickWhileAProcedureRuns)
{
    StartedProgram f;
    f.form.InputsList.AddItem("x\t1");
    Ended click = Ended::Normally;

    f.duringApply([&] {
        EXPECT_TRUE(f.program.isBusy());
        click = f.program.raise(form::click("ClearAll"));
    });

    EXPECT_EQ(click, Ended::NotStarted);
    EXPECT_EQ(f.form.InputsList.Rows(), 3);
    EXPECT_FALSE(f.program.isBusy());
}

TEST(Program, LeavesABoxAsItIsWhileAProcedureRuns)
{
    StartedProgram f;

    f.duringApply([&] {
        EXPECT_EQ(f.program.enterText(f.form.Solver, "NENastran"), Ended::NotStarted);
        EXPECT_EQ(f.program.enterText(f.form.InputSelection, "Elements"), Ended::NotStarted);
    });

    EXPECT_EQ(f.form.Solver.Text, "NXNastran");
    EXPECT_EQ(f.form.InputSelection.Text, "Nodes");
}

TEST(Program, FitsTheFormAfterTheProcedureThatRan)
{
    StartedProgram f;
    f.form.ScaleWidth = 10000;
    f.form.ScaleHeight = 8000;

    f.duringApply([&] {
        EXPECT_EQ(f.program.raise({"Form", form::What::Resize}), Ended::NotStarted);
        EXPECT_EQ(f.program.raise({"Form", form::What::Resize}), Ended::NotStarted);
        EXPECT_EQ(f.form.pbOuter.Width, 0);
    });

    EXPECT_GT(f.form.pbOuter.Width, 0);
    EXPECT_THAT(f.log(), Contains("DEBUG: Form resized").Times(1));
}

TEST(Program, TakesFemapsEventsInTheirOrderAfterTheProcedureThatRan)
{
    StartedProgram f;

    f.duringApply([&] {
        f.connector.calls.clear();
        EXPECT_EQ(f.program.raiseFemapEvent(3), Ended::NotStarted);
        f.program.raiseFemapEvent(2);
        f.program.raiseFemapEvent(3);
        EXPECT_THAT(f.connector.calls, IsEmpty());
    });

    // The event that came twice is the same event.
    EXPECT_EQ(f.connector.count("feAppGetAllModels"), 1);
    EXPECT_EQ(f.connector.callsToFemap().back(), "feSet");
}

TEST(Program, IgnoresMessagesFromStrangers)
{
    StartedProgram f;

    for (const std::intptr_t code : {std::intptr_t{0}, std::intptr_t{12}, std::intptr_t{-1}})
        EXPECT_EQ(f.program.raiseFemapEvent(code), Ended::NotStarted);
    if constexpr (sizeof(std::intptr_t) > 4)
        f.program.raiseFemapEvent((std::intptr_t{1} << 32) + 4);

    EXPECT_THAT(f.connector.calls, IsEmpty());
    EXPECT_FALSE(f.program.isClosed());
}

}  // namespace
}  // namespace app
