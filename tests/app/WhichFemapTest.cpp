#include "AppFixture.h"
#include "app/WhichFemap.h"
#include "femap/Constants.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace app
{
namespace
{

using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr const char* twoRun =
    "2 FEMAPs are running: process 4711 with \"/models/beam.neu\" is used";

struct SeveralFemaps : testing::Test
{
    ProgramFixture f;

    const std::string& status() { return f.program.form().StatusLine.Caption; }
};

TEST_F(SeveralFemaps, AreToldWithProcessAndModelOfTheOneInUse)
{
    f.femap.modelName = "/models/beam.neu";
    f.connector.femaps = {.count = 2, .process = 4711};

    f.start();

    EXPECT_EQ(status(), twoRun);
    EXPECT_THAT(f.log(), Contains(std::string("DEBUG: ") + twoRun));
}

TEST_F(SeveralFemaps, AreToldWithoutWhatFemapDoesNotTell)
{
    f.connector.failAt("ModelName");
    f.connector.femaps = {.count = 3};

    f.start();

    EXPECT_THAT(f.log(), Contains("DEBUG: 3 FEMAPs are running: one is used"));
}

TEST_F(SeveralFemaps, AreToldAgainWhenFemapIsBack)
{
    f.femap.modelName = "/models/beam.neu";
    f.start();
    f.program.loseFemapAndPane();
    f.connector.femaps = {.count = 2, .process = 4711};

    f.program.lookForFemap();

    EXPECT_THAT(status(), HasSubstr(twoRun));
}

TEST_F(SeveralFemaps, AreNotSpokenOfWhereThereIsOne)
{
    f.start();

    EXPECT_THAT(status(), Not(HasSubstr("FEMAP")));
    EXPECT_THAT(f.log(), Not(Contains(HasSubstr("running"))));
}

TEST_F(SeveralFemaps, AreToldWhenRightsHideOne)
{
    f.connector.attachRaises = true;
    f.connector.femaps = {.isOneHidden = true};

    f.start();

    EXPECT_EQ(status(), femapIsHidden);
    EXPECT_THAT(f.log(), Contains("DEBUG: " + std::string(femapIsHidden)));
}

struct OwnFemap : testing::Test
{
    ProgramFixture f;

    const std::string& status() { return f.program.form().StatusLine.Caption; }
    // With a FEMAP that the tool started.
    void start()
    {
        f.connector.attachRaises = true;
        f.start();
    }
};

TEST_F(OwnFemap, KeepsTheFormOpenOnceWhileItsChangesAreNotSaved)
{
    start();
    f.femap.isModified = true;

    f.program.closeByHand();
    EXPECT_FALSE(f.program.isClosed());
    EXPECT_EQ(status(), unsavedInForm);
    EXPECT_EQ(f.femap.messages.back().text, femap::cutToMessage(std::string(unsavedInForm)));

    f.program.closeByHand();
    EXPECT_TRUE(f.program.isClosed());
    EXPECT_THAT(f.log(), Contains("DEBUG: " + std::string(unsavedInForm)));
}

TEST_F(OwnFemap, KeepsTheFormOpenAgainAfterMoreWork)
{
    start();
    f.femap.isModified = true;
    f.program.closeByHand();
    f.program.raise(form::click("ClearAll"));

    f.program.closeByHand();

    EXPECT_FALSE(f.program.isClosed());
}

TEST_F(OwnFemap, LetsTheFormCloseWhenAllIsSaved)
{
    start();

    f.program.closeByHand();

    EXPECT_TRUE(f.program.isClosed());
    EXPECT_EQ(f.connector.count("feFileIsModified"), 1);
    EXPECT_THAT(f.log(), Not(Contains(HasSubstr("not saved"))));
}

TEST_F(OwnFemap, LetsTheFormCloseWhenItDoesNotSay)
{
    start();
    f.connector.failAt("feFileIsModified");

    f.program.closeByHand();

    EXPECT_TRUE(f.program.isClosed());
    EXPECT_EQ(f.connector.objects, 0);
}

TEST_F(OwnFemap, LetsTheFormCloseWhenItIsGone)
{
    start();
    f.connector.dieAtCall(1);

    f.program.closeByHand();

    EXPECT_TRUE(f.program.isClosed());
}

TEST_F(OwnFemap, IsNotAskedWhenItWasThereBefore)
{
    f.start();
    f.femap.isModified = true;
    f.connector.calls.clear();

    f.program.closeByHand();

    EXPECT_TRUE(f.program.isClosed());
    EXPECT_THAT(f.connector.calls, IsEmpty());
}

TEST_F(OwnFemap, IsWaitedForBrieflyWhenTheFormCloses)
{
    start();
    bool duringQuestion = false;
    f.connector.beforeCall = [&](const std::string& call) {
        if (call == "feFileIsModified")
            duringQuestion = f.connector.waitsBriefly;
    };
    f.femap.isModified = true;

    f.program.closeByHand();
    EXPECT_TRUE(duringQuestion);
    EXPECT_FALSE(f.connector.waitsBriefly);

    f.program.closeByHand();
    EXPECT_TRUE(f.connector.waitsBriefly);
}

TEST_F(OwnFemap, IsWaitedForBrieflyWhenItEndsItself)
{
    f.start();
    bool duringUnregistering = false;
    f.connector.beforeCall = [&](const std::string& call) {
        if (call == "feAppRegisterAddInPane")
            duringUnregistering = f.connector.waitsBriefly;
    };

    f.program.raiseFemapEvent(static_cast<int>(femap::EventCode::Shutdown));

    EXPECT_TRUE(duringUnregistering);
}

}  // namespace
}  // namespace app
