#include "AppFixture.h"
#include "app/FemapEvents.h"
#include "app/StartUp.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace app
{
namespace
{

using testing::IsEmpty;

class StartedSession : public SessionFixture
{
public:
    StartedSession()
    {
        addVectors({2, 3});
        Form_Load(session, allArguments);
        connector.calls.clear();
    }

    std::size_t nodeVectorsOffered()
    {
        session.propertyList.GetPropertyList("Output", "Node");
        return session.propertyList.lstProperties.items.size();
    }
    bool isEnabled() const
    {
        return std::ranges::all_of(form.controls(),
                                   [](const auto& each) { return each.control->Enabled; });
    }
    bool isDisabled() const
    {
        return std::ranges::none_of(form.controls(),
                                    [](const auto& each) { return each.control->Enabled; });
    }
};

TEST(FemapEvent, OfAnotherCodeIsNone)
{
    for (const std::intptr_t code : {std::intptr_t{0}, std::intptr_t{1}, std::intptr_t{5},
                                     std::intptr_t{12}, std::intptr_t{-2}})
        EXPECT_FALSE(isFemapEvent(code)) << code;
    for (const std::intptr_t code : {std::intptr_t{2}, std::intptr_t{3}, std::intptr_t{4}})
        EXPECT_TRUE(isFemapEvent(code)) << code;
}

TEST(FemapEvent, OfAnotherCodeDoesNothing)
{
    StartedSession f;

    FormWindowProc(f.session, 12);

    EXPECT_THAT(f.connector.calls, IsEmpty());
    EXPECT_FALSE(f.session.closeWanted);
}

TEST(NewModelEvent, EnablesTheControls)
{
    StartedSession f;
    f.form.setEnabled(false);

    FormWindowProc(f.session, 2);

    EXPECT_TRUE(f.isEnabled());
}

TEST(NewModelEvent, TakesTheHintOffTheStatusLine)
{
    StartedSession f;
    f.form.status.tellProblem(noModelOpen);

    FormWindowProc(f.session, 2);

    EXPECT_EQ(f.form.StatusLine.Caption, "");
}

TEST(NewModelEvent, LeavesAnyOtherMessageOnTheStatusLine)
{
    StartedSession f;
    f.form.status.tellProblem("Function selection cancelled...");

    FormWindowProc(f.session, 2);

    EXPECT_EQ(f.form.StatusLine.Caption, "Function selection cancelled...");
}

TEST(NewModelEvent, RebuildsTheVectorsOfTheDialogWhenTheirNumberChanged)
{
    StartedSession f;
    f.addVectors({2, 3, 4});

    FormWindowProc(f.session, 2);

    EXPECT_EQ(f.form.modelEntityCount, 3);
    EXPECT_EQ(f.nodeVectorsOffered(), 3u);
}

TEST(NewModelEvent, LeavesTheVectorsOfTheDialogWhenTheirNumberIsTheSame)
{
    StartedSession f;
    f.addVectors({7033, 7034});

    FormWindowProc(f.session, 2);

    EXPECT_EQ(f.form.modelEntityCount, 2);
    EXPECT_EQ(f.connector.count("feOutput"), 0);
    EXPECT_EQ(f.nodeVectorsOffered(), 2u);
}

TEST(NewModelEvent, DisablesTheControlsWhenNoModelIsOpenAfterAll)
{
    StartedSession f;
    f.femap.model.reset();

    FormWindowProc(f.session, 2);

    EXPECT_TRUE(f.isDisabled());
    EXPECT_EQ(f.connector.count("feSet"), 0);
    EXPECT_EQ(f.form.modelEntityCount, 2);
}

TEST(EndModelEvent, UnloadsWhenNoModelIsLeft)
{
    StartedSession f;
    f.femap.model.reset();

    FormWindowProc(f.session, 3);

    EXPECT_TRUE(f.session.closeWanted);
    EXPECT_EQ(f.connector.count("ModelName"), 0);
}

TEST(EndModelEvent, KeepsTheFormEnabledForAModelThatIsStillOpen)
{
    StartedSession f;
    f.form.setEnabled(false);

    FormWindowProc(f.session, 3);

    EXPECT_FALSE(f.session.closeWanted);
    EXPECT_TRUE(f.isEnabled());
}

TEST(EndModelEvent, DisablesTheFormWhenTheCurrentModelHasNoName)
{
    StartedSession f;
    f.connector.answers["feAppGetAllModels"] = 1;
    f.femap.model.reset();

    FormWindowProc(f.session, 3);

    EXPECT_FALSE(f.session.closeWanted);
    EXPECT_TRUE(f.isDisabled());
}

TEST(EndModelEvent, LetsTheErrorOfACountThatFailsEndIt)
{
    StartedSession f;
    f.connector.failAt("feAppGetAllModels");

    EXPECT_THROW(FormWindowProc(f.session, 3), sys::RuntimeError);
    EXPECT_FALSE(f.session.closeWanted);
}

TEST(ShutdownEvent, UnregistersThePaneAndUnloads)
{
    StartedSession f;

    FormWindowProc(f.session, 4);

    ASSERT_EQ(f.femap.registrations.size(), 2u);
    expectPane(f.femap.registrations[1], false, 1);
    EXPECT_TRUE(f.session.closeWanted);
}

TEST(ShutdownEvent, UsesTheReferenceOfTheEvents)
{
    StartedSession f;
    f.context.application.reset();

    FormWindowProc(f.session, 4);

    EXPECT_EQ(f.femap.registrations.size(), 2u);
}

TEST(ShutdownEvent, UnloadsAlsoWhenFemapRefusesToUnregister)
{
    StartedSession f;
    f.connector.failAt("feAppRegisterAddInPane");

    EXPECT_NO_THROW(FormWindowProc(f.session, 4));

    EXPECT_TRUE(f.session.closeWanted);
}

TEST(ShutdownEvent, UnloadsAlsoWhenFemapIsGone)
{
    StartedSession f;
    f.connector.dieAt("feAppRegisterAddInPane");

    EXPECT_THROW(FormWindowProc(f.session, 4), femap::ConnectionLost);

    EXPECT_TRUE(f.session.closeWanted);
}

TEST(ShutdownEvent, UnloadsAlsoWhenTheEventsWereNeverHooked)
{
    StartedSession f;
    f.session.eventFemap.reset();

    FormWindowProc(f.session, 4);

    EXPECT_TRUE(f.session.closeWanted);
    EXPECT_THAT(f.connector.calls, IsEmpty());
}

TEST(ModelEvents, AreIgnoredOnceFemapIsLost)
{
    for (const int code : {2, 3}) {
        StartedSession f;
        f.context.application.reset();

        EXPECT_NO_THROW(FormWindowProc(f.session, code));

        EXPECT_TRUE(f.isEnabled());
        EXPECT_THAT(f.connector.calls, IsEmpty());
    }
}

}  // namespace
}  // namespace app
