#include "fake/FormFixture.h"
#include "form/Context.h"
#include "form/FemapLock.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using fake::FormFixture;
using form::lockFemap;
using form::showMessage;
using form::tellEngineer;
using form::unlockFemap;
using sys::ErrorNumber;
using sys::RuntimeError;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

TEST(ContextTest, RaisesWhenFemapWasNotReached)
{
    FormFixture f;
    f.context.application.reset();

    try {
        f.context.femap();
        FAIL() << "no error was raised";
    }
    catch (const RuntimeError& error) {
        EXPECT_EQ(error.number(), ErrorNumber::ObjectNotSet);
        EXPECT_NE(error.description(), "");
    }
}

TEST(LockFemap, LocksFemapAndCountsTheLocksHeld)
{
    FormFixture f;

    lockFemap(f.context);
    const int lockedInFemap = f.femap.lockCount;
    const int held = f.context.lockDepth;
    unlockFemap(f.context);

    EXPECT_EQ(lockedInFemap, 1);
    EXPECT_EQ(held, 1);
    EXPECT_EQ(f.femap.lockCount, 0);
    EXPECT_EQ(f.context.lockDepth, 0);
}

TEST(LockFemap, HoldsNoLockWhenFemapWasNotReached)
{
    FormFixture f;
    f.context.application.reset();

    EXPECT_THROW(lockFemap(f.context), RuntimeError);
    EXPECT_THROW(unlockFemap(f.context), RuntimeError);

    EXPECT_EQ(f.context.lockDepth, 0);
}

TEST(TellEngineer, ShowsTheMessageInFemapAndOnTheStatusLineAndLogsIt)
{
    FormFixture f;

    tellEngineer(f.context, "No model is open");

    EXPECT_THAT(f.messages(), ElementsAre("No model is open"));
    EXPECT_EQ(f.femap.messages.front().colour, femap::MessageColour::Error);
    EXPECT_EQ(f.form.StatusLine.Caption, "No model is open");
    EXPECT_THAT(f.log(), ElementsAre("DEBUG: No model is open"));
}

TEST(TellEngineer, LogsAndShowsTheMessageOnTheFormEvenWithoutFemap)
{
    FormFixture f;
    f.context.application.reset();

    EXPECT_THROW(tellEngineer(f.context, "No model is open"), RuntimeError);

    EXPECT_EQ(f.form.StatusLine.Caption, "No model is open");
    EXPECT_THAT(f.log(), ElementsAre("DEBUG: No model is open"));
}

TEST(ShowMessage, UsesTheGivenColourAndLogsNothing)
{
    FormFixture f;

    showMessage(f.context, "Done", femap::MessageColour::Normal);

    EXPECT_THAT(f.messages(), ElementsAre("Done"));
    EXPECT_EQ(f.femap.messages.front().colour, femap::MessageColour::Normal);
    EXPECT_EQ(f.form.StatusLine.Caption, "Done");
    EXPECT_THAT(f.log(), IsEmpty());
}

}  // namespace
