#include "AppFixture.h"
#include "app/EventDispatcher.h"
#include "app/StartUp.h"
#include "form/FemapLock.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

namespace app
{
namespace
{

using sys::ErrorNumber;
using sys::RuntimeError;
using testing::AllOf;
using testing::ElementsAre;
using testing::IsEmpty;

class DispatchFixture : public SessionFixture
{
public:
    DispatchFixture()
    {
        Form_Load(session, allArguments);
        forgetLog();
        connector.calls.clear();
    }

    EventDispatcher dispatch{session};

    void lockAndShowHourglass()
    {
        form::lockFemap(context);
        form.setMousePointers(form::pointerHourglass);
    }
    bool pointersAreDefault() const { return fake::pointersAreDefault(form); }
};

[[noreturn]] void fail(const std::string& why = "No value")
{
    throw RuntimeError(ErrorNumber::ObjectFailed, why);
}

const std::string rule(70, '-');

// The log reaches the disk in pieces of 256 kB.
const std::string fullPiece(1 << 18, 'x');
const std::string almostFullPiece((1 << 18) - 100, 'x');

TEST(EventDispatcher, ReleasesALockThatAProcedureLeftBecauseItIgnoredAnError)
{
    DispatchFixture f;

    const Ended ended = f.dispatch.run("X_Click", [&] {
        f.context.error.attempt([&] {
            f.lockAndShowHourglass();
            fail();
        });
    });

    EXPECT_EQ(ended, Ended::Normally);
    EXPECT_EQ(f.femap.lockCount, 0);
    EXPECT_TRUE(f.pointersAreDefault());
}

TEST(EventDispatcher, RunsAProcedure)
{
    DispatchFixture f;
    int runs = 0;

    const Ended ended = f.dispatch.run("ClearAll_Click", [&] { ++runs; });

    EXPECT_EQ(ended, Ended::Normally);
    EXPECT_EQ(runs, 1);
    EXPECT_FALSE(f.dispatch.isBusy());
    EXPECT_EQ(f.dispatch.lastFailure(), "");
    EXPECT_THAT(f.log(), IsEmpty());
}

TEST(EventDispatcher, StartsNoSecondProcedureWhileOneRuns)
{
    DispatchFixture f;
    Ended inner = Ended::Normally;
    int innerRuns = 0;

    const Ended outer = f.dispatch.run("outer", [&] {
        EXPECT_TRUE(f.dispatch.isBusy());
        inner = f.dispatch.run("inner", [&] { ++innerRuns; });
    });

    EXPECT_EQ(outer, Ended::Normally);
    EXPECT_EQ(inner, Ended::NotStarted);
    EXPECT_EQ(innerRuns, 0);
}

TEST(EventDispatcher, LogsAndShowsAnErrorThatEndsAProcedure)
{
    DispatchFixture f;

    const Ended ended = f.dispatch.run("RefreshInputs_Click", [] { fail(); });

    EXPECT_EQ(ended, Ended::ByError);
    EXPECT_EQ(f.dispatch.lastFailure(), "No value");
    EXPECT_THAT(f.log(), ElementsAre("ERROR: --------------------In RefreshInputs_Click"
                                     "--------------------",
                                     "DEBUG: Error occured In RefreshInputs_Click", rule,
                                     "No value", rule, "ERROR: No value"));
    EXPECT_EQ(f.form.StatusLine.Caption, "No value");
    EXPECT_THAT(f.messages(), ElementsAre("No value"));
    EXPECT_EQ(f.femap.messages[0].colour, femap::MessageColour::Error);
    EXPECT_FALSE(f.context.error.isPending());
}

TEST(EventDispatcher, ReleasesTheLockAndResetsThePointersAfterAnError)
{
    DispatchFixture f;

    f.dispatch.run("GenerateButton_Click", [&] {
        f.lockAndShowHourglass();
        form::lockFemap(f.context);
        fail();
    });

    EXPECT_EQ(f.femap.lockCount, 0);
    EXPECT_EQ(f.context.lockDepth, 0);
    EXPECT_TRUE(f.pointersAreDefault());
    const std::vector<std::string> log = f.log();
    ASSERT_EQ(log.size(), 9u);
    EXPECT_EQ(log[6], "DEBUG: Released Femap lock");
    EXPECT_EQ(log[7], "DEBUG: Released Femap lock");
    EXPECT_EQ(log[8], "DEBUG: Mouse pointers are back to the default");
}

TEST(EventDispatcher, ShowsTheErrorAfterTheLockIsReleased)
{
    DispatchFixture f;

    f.dispatch.run("GenerateButton_Click", [&] {
        f.lockAndShowHourglass();
        fail();
    });

    EXPECT_THAT(f.connector.calls, ElementsAre("feAppLock", "feAppUnlock", "feAppMessage"));
}

TEST(EventDispatcher, IsReadyForTheNextProcedureAfterAnError)
{
    DispatchFixture f;
    f.dispatch.run("first", [] { fail(); });
    int runs = 0;

    const Ended ended = f.dispatch.run("second", [&] { ++runs; });

    EXPECT_EQ(ended, Ended::Normally);
    EXPECT_EQ(runs, 1);
}

TEST(EventDispatcher, LogsALockThatFemapDoesNotRelease)
{
    DispatchFixture f;
    f.connector.failAt("feAppUnlock");

    f.dispatch.run("GenerateButton_Click", [&] {
        f.lockAndShowHourglass();
        form::lockFemap(f.context);
        fail();
    });

    EXPECT_EQ(f.connector.count("feAppUnlock"), 2);
    EXPECT_EQ(f.context.lockDepth, 0);
    EXPECT_TRUE(f.pointersAreDefault());
    EXPECT_THAT(f.log(), testing::Contains("ERROR: feAppUnlock failed").Times(2));
    EXPECT_EQ(f.form.StatusLine.Caption, "No value");
}

TEST(EventDispatcher, LogsAMessageThatFemapDoesNotShow)
{
    DispatchFixture f;
    f.connector.failAt("feAppMessage");

    const Ended ended = f.dispatch.run("GenerateButton_Click", [] { fail(); });

    EXPECT_EQ(ended, Ended::ByError);
    EXPECT_EQ(f.form.StatusLine.Caption, "No value");
    EXPECT_THAT(f.log(), testing::Contains("ERROR: feAppMessage failed"));
    EXPECT_EQ(f.dispatch.lastFailure(), "No value");
}

TEST(EventDispatcher, ShowsAnErrorWithoutFemapOnTheStatusLineOnly)
{
    DispatchFixture f;
    f.context.application.reset();

    f.dispatch.run("GenerateButton_Click", [&] { f.context.femap(); });

    EXPECT_EQ(f.form.StatusLine.Caption,
              "FEMAP is not connected. Start FEMAP and then this tool again");
    EXPECT_THAT(f.messages(), IsEmpty());
}

TEST(EventDispatcher, LogsAnErrorThatAProcedureIgnoredAndNeverReported)
{
    DispatchFixture f;

    const Ended ended =
        f.dispatch.run("RefreshInputs_Click", [&] { f.context.error.attempt([] { fail(); }); });

    EXPECT_EQ(ended, Ended::Normally);
    EXPECT_THAT(f.log(), testing::Contains("DEBUG: Error occured In RefreshInputs_Click"));
    EXPECT_FALSE(f.context.error.isPending());
    EXPECT_EQ(f.form.StatusLine.Caption, "");
}

TEST(EventDispatcher, ForgetsFemapWhenItIsGone)
{
    DispatchFixture f;
    f.form.InputsList.AddItem("x\t1");
    f.form.function = f.context.femap().feFunction();

    const Ended ended = f.dispatch.run("RefreshInputs_Click", [&] {
        f.lockAndShowHourglass();
        f.connector.calls.clear();
        f.connector.dieAt("feSet");
        f.context.femap().feSet();
    });

    EXPECT_EQ(ended, Ended::ByError);
    EXPECT_THAT(f.connector.calls, ElementsAre("feSet"));  // and no further call
    EXPECT_EQ(f.context.application, nullptr);
    EXPECT_EQ(f.session.eventFemap, nullptr);
    EXPECT_EQ(f.form.function, nullptr);
    EXPECT_EQ(f.connector.objects, 0);
    EXPECT_EQ(f.context.lockDepth, 0);
    EXPECT_TRUE(f.pointersAreDefault());
    EXPECT_EQ(f.form.StatusLine.Caption,
              "FEMAP has ended or cannot be reached. The rows are kept; "
              "the form goes on when FEMAP is back.");
    EXPECT_EQ(f.dispatch.lastFailure(), f.form.StatusLine.Caption);
    EXPECT_EQ(f.form.InputsList.Rows(), 3);
    EXPECT_THAT(f.log(), ElementsAre("ERROR: --------------------In RefreshInputs_Click"
                                     "--------------------",
                                     "DEBUG: Error occured In RefreshInputs_Click", rule,
                                     "The RPC server is unavailable", rule,
                                     "ERROR: The RPC server is unavailable",
                                     "DEBUG: Mouse pointers are back to the default"));
}

TEST(EventDispatcher, DisablesJustTheControlsThatNeedFemapWhenItIsGone)
{
    DispatchFixture f;

    f.dispatch.run("RefreshInputs_Click", [] { throw femap::ConnectionLost("gone"); });

    std::vector<std::string> disabled;
    for (const form::NamedControl& each : f.form.controls())
        if (!each.control->Enabled)
            disabled.emplace_back(each.name);
    EXPECT_THAT(disabled, testing::UnorderedElementsAre("InputsButton", "RefreshInputs",
                                                        "OutputsButton", "RefreshOutputs", "Solver",
                                                        "Optimizer", "GenerateButton"));
}

TEST(EventDispatcher, ForgetsFemapThatIsGoneWhenTheLockIsToBeReleased)
{
    DispatchFixture f;

    f.dispatch.run("GenerateButton_Click", [&] {
        f.lockAndShowHourglass();
        f.connector.dieAt("feAppUnlock");
        fail();
    });

    EXPECT_EQ(f.connector.count("feAppUnlock"), 1);
    EXPECT_EQ(f.context.application, nullptr);
    EXPECT_EQ(f.context.lockDepth, 0);
    EXPECT_TRUE(f.pointersAreDefault());
    EXPECT_EQ(f.form.StatusLine.Caption, femapIsGone);
    EXPECT_THAT(f.log(), AllOf(testing::Contains("ERROR: No value"),
                               testing::Contains("ERROR: The RPC server is unavailable")));
}

TEST(EventDispatcher, LetsAMistakeOfTheProgramPass)
{
    DispatchFixture f;

    EXPECT_THROW(f.dispatch.run("ClearAll_Click", [] { throw std::logic_error("a mistake"); }),
                 std::logic_error);

    EXPECT_FALSE(f.dispatch.isBusy());
    EXPECT_THAT(f.connector.calls, IsEmpty());
    EXPECT_THAT(f.log(), IsEmpty());
}

TEST(EventDispatcher, TellsThatNoMemoryIsLeftAndStaysUsable)
{
    DispatchFixture f;

    const Ended ended = f.dispatch.run("RefreshInputs_Click", [&] {
        f.lockAndShowHourglass();
        throw std::bad_alloc();
    });

    EXPECT_EQ(ended, Ended::ByError);
    EXPECT_EQ(f.form.StatusLine.Caption,
              "No memory is left. Close other programs or work with "
              "fewer rows, and try again");
    EXPECT_THAT(f.messages(), ElementsAre(f.form.StatusLine.Caption));
    EXPECT_EQ(f.femap.lockCount, 0);
    EXPECT_TRUE(f.pointersAreDefault());
    EXPECT_EQ(f.dispatch.run("ClearAll_Click", [] {}), Ended::Normally);
}

TEST(EventDispatcher, GoesOnWithAProcedureWhoseLogCannotBeWritten)
{
    DispatchFixture f;
    f.files.failingOperation = f.files.operations + 1;
    bool isDone = false;

    const Ended ended = f.dispatch.run("RefreshInputs_Click", [&] {
        f.context.log.writeLog(fullPiece);
        isDone = true;
    });

    EXPECT_EQ(ended, Ended::Normally);
    EXPECT_TRUE(isDone);
    EXPECT_EQ(f.form.StatusLine.Caption,
              "The log ends here: File not written: No space left on device: "
              "/temp/korva/beam.log");
    EXPECT_TRUE(f.context.log.path().empty());
    EXPECT_EQ(f.files.operations, f.files.failingOperation);
}

TEST(EventDispatcher, TellsOfTheLogOnceAndBehindWhatTheProcedureTold)
{
    DispatchFixture f;
    f.files.failingOperation = f.files.operations + 1;

    const Ended ended = f.dispatch.run("RefreshInputs_Click", [&] {
        f.lockAndShowHourglass();
        f.context.log.writeLog(almostFullPiece);
        fail();
    });

    EXPECT_EQ(ended, Ended::ByError);
    EXPECT_EQ(f.femap.lockCount, 0);
    EXPECT_TRUE(f.pointersAreDefault());
    EXPECT_THAT(f.form.StatusLine.Caption, testing::StartsWith("No value. The log ends here: "));
    EXPECT_EQ(f.dispatch.lastFailure(), "No value");
    EXPECT_FALSE(f.context.error.isPending());
    f.form.status.clear();
    f.dispatch.run("ClearAll_Click", [] {});
    EXPECT_EQ(f.form.StatusLine.Caption, "");
}

TEST(EventDispatcher, ForgetsFemapAlsoWhenTheLogCannotBeWritten)
{
    DispatchFixture f;
    f.files.failingOperation = f.files.operations + 1;

    f.dispatch.run("RefreshInputs_Click", [&] {
        f.context.log.writeLog(almostFullPiece);
        throw femap::ConnectionLost("gone");
    });

    EXPECT_EQ(f.context.application, nullptr);
    EXPECT_THAT(f.form.StatusLine.Caption,
                testing::StartsWith(std::string(femapIsGone) + " The log ends here: "));
}

}  // namespace
}  // namespace app
