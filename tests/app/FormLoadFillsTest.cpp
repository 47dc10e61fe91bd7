#include "AppFixture.h"
#include "app/StartUp.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace app
{
namespace
{

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;
using testing::StartsWith;

TEST(FormLoad, MakesTheInitialChoices)
{
    SessionFixture f;
    int solverClicks = 0;
    int optimizerClicks = 0;
    f.form.Solver.Click = [&] { ++solverClicks; };
    f.form.Optimizer.Click = [&] { ++optimizerClicks; };

    Form_Load(f.session, allArguments);

    EXPECT_EQ(f.form.InputSelection.Text, "Nodes");
    EXPECT_EQ(f.form.OutputSelection.Text, "Nodes");
    EXPECT_EQ(f.form.Solver.Text, "NXNastran");
    EXPECT_EQ(f.form.Optimizer.Text, "Velmar");
    EXPECT_EQ(solverClicks, 1);
    EXPECT_EQ(optimizerClicks, 1);
}

TEST(FormLoad, SetsTheWidthsOfTheTwoVisibleColumns)
{
    SessionFixture f;
    const std::vector<int> inputsBefore = f.form.InputsList.ColWidth;

    Form_Load(f.session, allArguments);

    EXPECT_EQ(f.form.InputsList.ColWidth[0], 2412);
    EXPECT_EQ(f.form.InputsList.ColWidth[1], 10000);
    EXPECT_EQ(f.form.InputsList.ColWidth[2], inputsBefore[2]);
    EXPECT_EQ(f.form.OutputsList.ColWidth[0], 2412);
    EXPECT_EQ(f.form.OutputsList.ColWidth[1], 10000);
}

TEST(FormLoad, CountsTheOutputVectorsAndOffersThemInTheDialog)
{
    SessionFixture f;
    f.addVectors({2, 3, 7033});

    Form_Load(f.session, allArguments);
    f.session.propertyList.GetPropertyList("Output", "Node");

    EXPECT_EQ(f.form.modelEntityCount, 3);
    EXPECT_EQ(f.session.propertyList.lstProperties.items.size(), 2u);
}

TEST(FormLoad, StartsTheDialogWithTheListOfConstraints)
{
    SessionFixture f;

    Form_Load(f.session, allArguments);

    EXPECT_EQ(f.session.propertyList.Label2, "Constraint Properties");
}

TEST(FormLoad, DisablesEveryControlWhenFemapHasNoModelOpen)
{
    SessionFixture f;
    f.femap.model.reset();

    const StartUp result = Form_Load(f.session, "$beam.log$ALWAYS");

    EXPECT_EQ(result, StartUp::Done);
    for (const form::NamedControl& each : f.form.controls())
        EXPECT_FALSE(each.control->Enabled) << each.name;
    EXPECT_EQ(f.form.StatusLine.Caption, "FEMAP has no model open.");
    EXPECT_EQ(f.connector.count("feSet"), 0);
    EXPECT_THAT(f.log(), Not(Contains("DEBUG: Form property collection updated")));
    EXPECT_THAT(f.log(), Not(Contains("DEBUG: Position at At start of Load_Click")));
    EXPECT_THAT(f.log(), Contains("DEBUG: Plugin is initialized"));
    EXPECT_FALSE(f.context.error.isPending());
}

TEST(FormLoad, LeavesTheReasonOnTheStatusLineWhenTheOnlyModelCouldNotBeOpened)
{
    SessionFixture f;
    f.femap.model.reset();
    f.files.contents["/models/beam.neu"];
    f.connector.answers["feFileOpen"] = femap::ReturnCode::Fail;

    Form_Load(f.session, allArguments);

    EXPECT_FALSE(f.form.GenerateButton.Enabled);
    EXPECT_THAT(f.form.StatusLine.Caption, StartsWith("FEMAP could not open the model: "));
}

TEST(FormLoad, EnablesEveryControlForAModelThatWasNeverSaved)
{
    SessionFixture f;
    f.femap.modelName = "";

    Form_Load(f.session, "$beam.log$ALWAYS");

    for (const form::NamedControl& each : f.form.controls())
        EXPECT_TRUE(each.control->Enabled) << each.name;
    EXPECT_THAT(f.messages(), ElementsAre("Model must be saved in .MOD format first"));
}

TEST(FormLoad, RegistersTheFormAsAPaneOnTheRight)
{
    SessionFixture f;

    Form_Load(f.session, allArguments);

    ASSERT_EQ(f.femap.registrations.size(), 1u);
    expectPane(f.femap.registrations[0], true, 2);
}

TEST(FormLoad, KeepsWhatFemapAnswersToTheRegistration)
{
    SessionFixture f;
    f.connector.answers["feAppRegisterAddInPane"] = 17;

    Form_Load(f.session, allArguments);

    EXPECT_EQ(f.form.addInPaneResult, 17);
}

TEST(FormLoad, HooksTheEventsWithASecondReferenceToFemap)
{
    SessionFixture f;

    Form_Load(f.session, allArguments);

    EXPECT_TRUE(f.host.hooked);
    EXPECT_NE(f.session.eventFemap, nullptr);
    EXPECT_EQ(f.connector.objects, 2);
}

TEST(FormLoad, DoesTheRestAndEndsByTheErrorWhenFemapRefusesThePane)
{
    SessionFixture f;
    f.connector.failAt("feAppRegisterAddInPane");

    EXPECT_THROW(Form_Load(f.session, allArguments), sys::RuntimeError);

    EXPECT_TRUE(f.host.hooked);
    EXPECT_THAT(f.log(), AllOf(Contains("DEBUG: Position at Before registering plugin"),
                               Contains("DEBUG: Intialized form events"),
                               Not(Contains("DEBUG: Plugin is initialized")),
                               Not(Contains("DEBUG: Position at At end of Load Form"))));
}

}  // namespace
}  // namespace app
