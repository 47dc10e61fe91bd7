#include "AppFixture.h"
#include "app/EventDispatcher.h"
#include "app/StartUp.h"
#include "form/Progress.h"

#include <gtest/gtest.h>

namespace app
{
namespace
{

class ProgressOfAProcedure : public SessionFixture, public testing::Test
{
protected:
    EventDispatcher dispatch{session};

    void SetUp() override { Form_Load(session, allArguments); }

    // Lets FEMAP show the progress of a walk that an error cuts short.
    void walkAndFail()
    {
        form::Progress progress(context, "Reading", 1024);
        seconds += 2;
        progress.step(256);
        EXPECT_EQ(femap.statusMaximum, 100);
        throw sys::RuntimeError(sys::ErrorNumber::ObjectFailed, "No value");
    }
};

TEST_F(ProgressOfAProcedure, EndsWithAnErrorThatTheProcedureIgnored)
{
    dispatch.run("X_Click", [this] { context.error.attempt([this] { walkAndFail(); }); });

    EXPECT_EQ(femap.statusMaximum, 0);
    EXPECT_EQ(form.StatusLine.Caption, "");
}

TEST_F(ProgressOfAProcedure, EndsWithAnErrorThatEndsTheProcedure)
{
    dispatch.run("X_Click", [this] { walkAndFail(); });

    EXPECT_EQ(femap.statusMaximum, 0);
    EXPECT_EQ(form.StatusLine.Caption, "No value");
}

TEST_F(ProgressOfAProcedure, EndsWithoutAskingAFemapThatIsGone)
{
    dispatch.run("X_Click", [this] {
        EXPECT_THROW(walkAndFail(), sys::RuntimeError);
        throw femap::ConnectionLost("gone");
    });

    EXPECT_EQ(form.StatusLine.Caption, femapIsGone);
    EXPECT_EQ(femap.statusMaximum, 100);
    EXPECT_FALSE(context.femapShowsProgress);
}

}  // namespace
}  // namespace app
