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

TEST(Program, ClosesWhenFemapEnds)
{
    StartedProgram f;

    EXPECT_EQ(f.program.raiseFemapEvent(4), Ended::Normally);

    EXPECT_TRUE(f.program.isClosed());
    EXPECT_EQ(f.host.unloads, 1);
    EXPECT_FALSE(f.host.hooked);
    EXPECT_EQ(f.connector.objects, 0);
    EXPECT_FALSE(f.femap.registrations.back().regster);
    EXPECT_EQ(f.logLines().back(), "DEBUG: Setting Main femap instance to Nothing");
}

TEST(Program, ClosesWhenFemapEndsAndCannotBeReachedAnyMore)
{
    StartedProgram f;
    f.connector.dieAt("feAppRegisterAddInPane");

    f.program.raiseFemapEvent(4);

    EXPECT_TRUE(f.program.isClosed());
    EXPECT_EQ(f.host.unloads, 1);
    EXPECT_EQ(f.connector.objects, 0);
}

TEST(Program, ClosesWhenTheLastModelIsClosed)
{
    StartedProgram f;
    f.femap.model.reset();

    f.program.raiseFemapEvent(3);

    EXPECT_TRUE(f.program.isClosed());
    EXPECT_EQ(f.host.unloads, 1);
}

TEST(Program, ClosesAfterTheProcedureThatRuns)
{
    StartedProgram f;

    f.duringApply([&] {
        f.program.close();
        EXPECT_FALSE(f.program.isClosed());
        EXPECT_EQ(f.host.unloads, 0);
    });

    EXPECT_TRUE(f.program.isClosed());
    EXPECT_EQ(f.host.unloads, 1);
    EXPECT_TRUE(f.files.contents.contains("/models/beamControl.txt"));
}

TEST(Program, ClosesAfterTheProcedureThatRunsWhenFemapEnds)
{
    StartedProgram f;

    f.duringApply([&] {
        f.program.raiseFemapEvent(4);
        EXPECT_EQ(f.host.unloads, 0);
    });

    EXPECT_EQ(f.host.unloads, 1);
    EXPECT_TRUE(f.files.contents.contains("/models/beamControl.txt"));
    EXPECT_FALSE(f.femap.registrations.back().regster);
}

TEST(Program, ClosesAfterAProcedureThatFailed)
{
    StartedProgram f;
    f.connector.beforeCall = [&](const std::string& call) {
        f.program.close();
        if (call == "feAppLock")
            throw sys::RuntimeError(sys::ErrorNumber::ObjectFailed, "refused");
    };

    EXPECT_EQ(f.program.raise(form::click("GenerateButton")), Ended::ByError);

    EXPECT_EQ(f.host.unloads, 1);
}

TEST(Program, ClosesAfterAChoiceDuringWhichThatWasWanted)
{
    StartedProgram f;
    f.connector.beforeCall = [&](const std::string&) { f.program.close(); };

    EXPECT_EQ(f.program.enterText(f.form.Solver, "NENastran"), Ended::Normally);

    EXPECT_TRUE(f.program.isClosed());
}

TEST(Program, ClosesAfterStartWhenThatWasWantedMeanwhile)
{
    ProgramFixture f;
    f.connector.beforeCall = [&](const std::string&) { f.program.close(); };

    f.program.start("$beam.log$ALWAYS");

    EXPECT_TRUE(f.program.isClosed());
    EXPECT_EQ(f.host.unloads, 1);
    EXPECT_THAT(f.logLines(), Contains("DEBUG: Position at At end of Load Form"));
}

TEST(Program, ClosesOnce)
{
    StartedProgram f;

    f.program.close();
    f.program.close();

    EXPECT_EQ(f.host.unloads, 1);
    EXPECT_EQ(f.program.raise(form::click("ClearAll")), Ended::NotStarted);
    EXPECT_EQ(f.program.raiseFemapEvent(2), Ended::NotStarted);
}

TEST(Program, ClosesWithALogThatCannotBeWritten)
{
    StartedProgram f;
    f.files.failingOperation = f.files.operations + 1;

    f.program.close();

    EXPECT_TRUE(f.program.isClosed());
    EXPECT_EQ(f.connector.objects, 0);
    EXPECT_EQ(f.host.unloads, 1);
}

TEST(Program, ReleasesALockThatIsLeftWhenItCloses)
{
    StartedProgram f;
    f.connector.beforeCall = [](const std::string& call) {
        if (call == "feAppUnlock")
            throw std::logic_error("a mistake");
    };
    EXPECT_THROW(f.program.raise(form::click("RefreshInputs")), std::logic_error);
    f.connector.behave();
    ASSERT_EQ(f.femap.lockCount, 1);

    f.program.close();

    EXPECT_EQ(f.femap.lockCount, 0);
}

}  // namespace
}  // namespace app
