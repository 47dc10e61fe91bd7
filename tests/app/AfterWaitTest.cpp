#include "AppFixture.h"
#include "app/StartUp.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace app
{
namespace
{

using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::Not;

// FEMAP is busy, and the engineer does not wait for it: each call from the one of this name on is
// abandoned, taken by FEMAP or not.
void abandonAt(AppFixture& f, const std::string& call, bool isTaken)
{
    f.connector.isBusy = true;
    f.connector.beforeCall = [&f, call, isTaken,
                              isReached = false](const std::string& name) mutable {
        isReached |= name == call;
        if (!isReached)
            return;
        if (isTaken && name == "feAppLock")
            ++f.femap.lockCount;
        throw femap::WaitEnded("The wait is ended: " + name, isTaken);
    };
}

class EndedWaits : public StartedProgram
{
public:
    EndedWaits() { form.InputsList.AddItem("x\t1"); }

    void answerAgain()
    {
        connector.isBusy = false;
        connector.behave();
        connector.calls.clear();
    }
    std::string status() const { return program_.form().StatusLine.Caption; }

private:
    Program& program_ = program;
};

// The lock comes first, then the set.
constexpr const char* afterTheLock = "feSet";

}  // namespace

TEST(EndedWait, EndsTheProcedureByAnErrorAndKeepsFemapAndTheRows)
{
    EndedWaits f;
    abandonAt(f, "feAppLock", false);

    EXPECT_EQ(f.program.raise(form::click("RefreshInputs")), Ended::ByError);

    EXPECT_EQ(f.status(), "The wait is ended: feAppLock");
    EXPECT_TRUE(f.program.isConnected());
    EXPECT_TRUE(f.form.RefreshInputs.Enabled);
    EXPECT_EQ(f.form.InputsList.Rows(), 3);
    EXPECT_EQ(f.form.RefreshInputs.MousePointer, form::pointerDefault);
    EXPECT_THAT(f.connector.callsToFemap(), testing::ElementsAre("feAppLock"));
    EXPECT_THAT(f.log(), Contains(HasSubstr("The wait is ended: feAppLock")));
}

TEST(EndedWait, ReleasesTheLockOfTheAbandonedCallWhenFemapAnswers)
{
    EndedWaits f;
    abandonAt(f, "feAppLock", true);
    f.program.raise(form::click("RefreshInputs"));
    ASSERT_EQ(f.femap.lockCount, 1);

    EXPECT_FALSE(f.program.lookForFemap());
    EXPECT_EQ(f.femap.lockCount, 1);
    EXPECT_EQ(f.status(),
              "The wait is ended: feAppLock. It is still locked; that ends as soon as "
              "it answers");
    f.answerAgain();
    EXPECT_TRUE(f.program.lookForFemap());

    EXPECT_EQ(f.femap.lockCount, 0);
    EXPECT_EQ(f.status(), "FEMAP answers again, and its lock is released");
    EXPECT_THAT(f.connector.callsToFemap(), testing::ElementsAre("feAppUnlock"));
    EXPECT_THAT(f.log(),
                IsSupersetOf({"DEBUG: FEMAP answers again", "DEBUG: Released Femap lock"}));
}

TEST(EndedWait, ReleasesTheLockThatTheProcedureHad)
{
    for (const bool isTaken : {false, true}) {
        EndedWaits f;
        abandonAt(f, afterTheLock, isTaken);
        f.program.raise(form::click("RefreshOutputs"));
        f.program.raise(form::click("RefreshInputs"));
        f.answerAgain();

        f.program.lookForFemap();

        EXPECT_EQ(f.femap.lockCount, 0);
        EXPECT_EQ(f.program.raise(form::click("RefreshInputs")), Ended::Normally);
    }
}

TEST(EndedWait, IsSettledOnceAndAsksNothingOfAFemapThatWasNotBusy)
{
    EndedWaits f;

    EXPECT_FALSE(f.program.lookForFemap());
    EXPECT_EQ(f.connector.askedWhetherItAnswers, 0);

    abandonAt(f, "feAppLock", false);
    f.program.raise(form::click("RefreshInputs"));
    f.answerAgain();
    EXPECT_TRUE(f.program.lookForFemap());
    EXPECT_FALSE(f.program.lookForFemap());

    EXPECT_EQ(f.status(), "FEMAP answers again");
    EXPECT_THAT(f.connector.callsToFemap(), IsEmpty());
}

TEST(EndedWait, AsksNothingOfABusyFemapForWhatNeedsItNot)
{
    EndedWaits f;
    abandonAt(f, "feAppLock", true);
    f.program.raise(form::click("RefreshInputs"));
    f.connector.calls.clear();

    EXPECT_EQ(f.program.raise(form::click("ClearAll")), Ended::Normally);

    EXPECT_THAT(f.connector.callsToFemap(), IsEmpty());
    f.answerAgain();
    f.program.lookForFemap();
    EXPECT_EQ(f.femap.lockCount, 0);
}

TEST(EndedWait, KeepsAFormThatIsClosedUntilTheLockIsReleased)
{
    EndedWaits f;
    abandonAt(f, "feAppLock", true);
    f.program.raise(form::click("RefreshInputs"));

    f.program.closeByHand();
    EXPECT_FALSE(f.program.isClosed());
    EXPECT_EQ(f.status(),
              "The wait is ended: feAppLock. It is still locked; that ends as soon as "
              "it answers. The form closes then; close it once more to close it at "
              "once");
    f.answerAgain();
    f.program.lookForFemap();

    EXPECT_TRUE(f.program.isClosed());
    EXPECT_EQ(f.femap.lockCount, 0);
}

TEST(EndedWait, ClosesAFormAtOnceThatIsClosedTwice)
{
    EndedWaits f;
    abandonAt(f, "feAppLock", true);
    f.program.raise(form::click("RefreshInputs"));
    f.connector.calls.clear();

    f.program.closeByHand();
    f.program.closeByHand();

    EXPECT_TRUE(f.program.isClosed());
    EXPECT_THAT(f.connector.callsToFemap(), IsEmpty());
}

TEST(EndedWait, ClosesAFormThatIsClosedMeanwhile)
{
    EndedWaits f;
    f.connector.before("feAppLock", [&] {
        f.program.closeByHand();
        throw femap::WaitEnded("The wait is ended", false);
    });

    f.program.raise(form::click("RefreshInputs"));

    EXPECT_TRUE(f.program.isClosed());
}

TEST(EndedWait, EndsAForEverWithTheFemapThatItWasFor)
{
    EndedWaits f;
    abandonAt(f, "feAppLock", true);
    f.program.raise(form::click("RefreshInputs"));
    f.answerAgain();
    f.connector.dieAtCall(1);

    f.program.lookForFemap();
    EXPECT_EQ(f.status(), femapIsGone);
    f.connector.behave();
    f.program.lookForFemap();

    EXPECT_EQ(f.status(), femapIsBack);
    EXPECT_THAT(f.connector.callsToFemap(), Not(Contains("feAppUnlock 1")));
}

TEST(EndedWait, ClosesWithFemapWhateverIsLeft)
{
    EndedWaits f;
    abandonAt(f, "feAppLock", true);
    f.program.raise(form::click("RefreshInputs"));
    f.answerAgain();

    f.program.raiseFemapEvent(4);

    EXPECT_TRUE(f.program.isClosed());
}

TEST(EndedWait, OfAStartLeavesTheFormOffUntilFemapAnswers)
{
    ProgramFixture f;
    abandonAt(f, "feFileOpen", true);

    EXPECT_EQ(f.program.start(allArguments), Started::ByError);

    EXPECT_EQ(f.form.StatusLine.Caption, "The wait is ended: feFileOpen");
    EXPECT_FALSE(f.form.InputsButton.Enabled);
    f.connector.isBusy = false;
    f.connector.behave();
    EXPECT_TRUE(f.program.lookForFemap());
    EXPECT_TRUE(f.form.InputsButton.Enabled);
    EXPECT_TRUE(f.host.hooked);
    EXPECT_EQ(f.connector.count("feAppRegisterAddInPane"), 1);
}

TEST(EndedWait, OfAStartMayComeAtAnyCall)
{
    bool reached = true;
    for (std::size_t n = 1; reached; ++n) {
        ProgramFixture f;
        f.connector.beforeCall = [&, left = n](const std::string&) mutable {
            if (--left == 0)
                throw femap::WaitEnded("The wait is ended", true);
        };
        f.program.start(allArguments);
        reached = f.connector.calls.size() >= n;
        f.connector.behave();

        f.program.lookForFemap();

        EXPECT_TRUE(f.form.InputsButton.Enabled) << "call " << n;
        EXPECT_TRUE(f.host.hooked) << "call " << n;
        EXPECT_LE(f.connector.count("feAppRegisterAddInPane"), 2) << "call " << n;
    }
}

TEST(EndedWait, BeforeFemapWasReachedEndsTheProgramAndStartsNoOtherFemap)
{
    ProgramFixture f;
    f.connector.attachIsAbandoned = true;

    EXPECT_EQ(f.program.start(allArguments), Started::FemapNotFound);

    EXPECT_EQ(f.connector.created, 0);
    EXPECT_EQ(f.program.femapFailure(), "The wait is ended");
    EXPECT_THAT(f.logLines(), Contains("ERROR: The wait is ended"));
}

TEST(EndedWait, ForAFemapThatIsBackIsNoFemap)
{
    EndedWaits f;
    f.connector.dieAt("feAppLock");
    f.program.raise(form::click("RefreshInputs"));
    f.connector.behave();
    f.connector.attachIsAbandoned = true;

    EXPECT_FALSE(f.program.lookForFemap());

    EXPECT_FALSE(f.program.isConnected());
}

TEST(EndedWait, ForAnotherModelTakesItOverWhenFemapAnswers)
{
    EndedWaits f;
    f.femap.modelName = "/models/other.neu";
    f.connector.beforeCall = [](const std::string& name) {
        if (name == "feSet")
            throw femap::WaitEnded("The wait is ended", false);
    };
    f.program.raiseFemapEvent(2);
    ASSERT_EQ(f.status(), "The wait is ended");
    f.answerAgain();

    f.program.lookForFemap();

    EXPECT_GE(f.connector.count("ModelName"), 1);
}

}  // namespace app
