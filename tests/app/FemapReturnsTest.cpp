#include "AppFixture.h"
#include "app/StartUp.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace app
{
namespace
{

using testing::Contains;
using testing::Not;

// A form with a row, whose FEMAP died.
class LostFemap : public StartedProgram
{
public:
    LostFemap()
    {
        form.InputsList.AddItem("x\t1");
        connector.dieAt("feSet");
        program.raise(form::click("RefreshOutputs"));
        connector.dieAtCall(1);
        program.raise(form::click("RefreshInputs"));
        connector.attachRaises = true;
    }

    void startFemapAgain()
    {
        connector.attachRaises = false;
        connector.behave();
        connector.calls.clear();
    }
};

TEST(FemapReturns, IsNotAskedForWhileItIsThere)
{
    StartedProgram f;
    const int attached = f.connector.attached;

    EXPECT_FALSE(f.program.lookForFemap());

    EXPECT_EQ(f.connector.attached, attached);
}

TEST(FemapReturns, LeavesTheFormAsItIsWhileThereIsNone)
{
    LostFemap f;
    ASSERT_EQ(f.form.StatusLine.Caption, femapIsGone);

    EXPECT_FALSE(f.program.lookForFemap());
    f.connector.attachRaises = false;
    f.connector.attachFindsNothing = true;
    EXPECT_FALSE(f.program.lookForFemap());

    EXPECT_FALSE(f.program.isConnected());
    EXPECT_FALSE(f.form.InputsButton.Enabled);
    EXPECT_EQ(f.form.StatusLine.Caption, femapIsGone);
}

TEST(FemapReturns, IsNotTakenForBackWhileItStillEnds)
{
    LostFemap f;
    f.connector.attachRaises = false;

    EXPECT_FALSE(f.program.lookForFemap());

    EXPECT_EQ(f.connector.objects, 0);
    EXPECT_FALSE(f.program.isConnected());
}

TEST(FemapReturns, WakesTheFormAndKeepsTheRows)
{
    LostFemap f;
    f.startFemapAgain();

    EXPECT_TRUE(f.program.lookForFemap());

    EXPECT_TRUE(f.program.isConnected());
    EXPECT_TRUE(f.form.InputsButton.Enabled);
    EXPECT_TRUE(f.form.GenerateButton.Enabled);
    EXPECT_EQ(f.form.StatusLine.Caption, femapIsBack);
    EXPECT_EQ(f.form.InputsList.Rows(), 3);
    EXPECT_EQ(f.connector.count("feAppRegisterAddInPane"), 1);
    EXPECT_TRUE(f.host.hooked);
    EXPECT_EQ(f.program.raise(form::click("GenerateButton")), Ended::Normally);
    EXPECT_THAT(f.log(), Contains("DEBUG: FEMAP is back"));
}

TEST(FemapReturns, LeavesTheFormOffWhileNoModelIsOpenThere)
{
    LostFemap f;
    f.startFemapAgain();
    f.femap.model.reset();

    EXPECT_TRUE(f.program.lookForFemap());

    EXPECT_FALSE(f.form.InputsButton.Enabled);
    EXPECT_EQ(f.form.StatusLine.Caption, noModelOpen);
}

TEST(FemapReturns, MayGoAgainAtAnyCallAndComeBackAgain)
{
    bool reached = true;
    for (std::size_t n = 1; reached; ++n) {
        LostFemap f;
        f.startFemapAgain();
        f.connector.dieAtCall(n);

        f.program.lookForFemap();

        reached = f.connector.calls.size() >= n;
        EXPECT_LE(f.connector.calls.size(), n);
        EXPECT_EQ(f.program.isConnected(), !reached) << "call " << n;
        f.startFemapAgain();
        f.program.lookForFemap();
        EXPECT_TRUE(f.form.InputsButton.Enabled);
    }
}

TEST(FemapReturns, ComesTooLateForAFormThatIsClosed)
{
    LostFemap f;
    f.program.close();
    f.startFemapAgain();

    EXPECT_FALSE(f.program.lookForFemap());

    EXPECT_EQ(f.connector.objects, 0);
    EXPECT_THAT(f.connector.calls, Not(Contains("feAppRegisterAddInPane")));
}

}  // namespace
}  // namespace app
