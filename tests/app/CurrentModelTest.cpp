#include "AppFixture.h"
#include "app/FemapEvents.h"
#include "app/StartUp.h"
#include "form/FormProcedures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace app
{
namespace
{

using testing::ElementsAre;
using testing::HasSubstr;

const std::string storedRow = "old\t1\tNode\t1\tx\t";

// A selection is stored beside the model; the run begins without one.
class CurrentModel : public testing::Test
{
protected:
    CurrentModel()
    {
        storeBeside("/models/beam");
        model_ = f.femap.model;
    }

    SessionFixture f;

    void storeBeside(const std::string& modelBase)
    {
        f.files.contents[modelBase + "Control.txt"] = storedRow + "\r\n\r\n";
    }
    void startWithoutModel()
    {
        f.femap.model.reset();
        Form_Load(f.session, "$beam.log$ALWAYS");
        f.connector.calls.clear();
    }
    void open(const std::string& file)
    {
        f.femap.model = model_;
        f.femap.modelName = file;
        FormWindowProc(f.session, 2);
    }
    std::vector<std::string> inputs() const { return fake::rowsOf(f.form.InputsList); }

private:
    std::optional<femap::neutral::Model> model_;
};

TEST_F(CurrentModel, BringsItsStoredSelectionWhenItIsOpenedAfterTheStart)
{
    startWithoutModel();

    open("/models/beam.neu");

    EXPECT_THAT(inputs(), ElementsAre(storedRow));
    EXPECT_EQ(f.form.CommandLine.Text, "nastran beam.dat notify=no");
    EXPECT_TRUE(f.form.GenerateButton.Enabled);
}

TEST_F(CurrentModel, BringsItOnceInARun)
{
    startWithoutModel();
    open("/models/beam.neu");
    form::ClearAll_Click(f.context);

    open("/models/beam.neu");

    EXPECT_THAT(inputs(), ElementsAre("\t\t\t\t\t"));
}

TEST_F(CurrentModel, LeavesRowsThatAreThere)
{
    startWithoutModel();
    open("/models/beam.neu");
    storeBeside("/models/wing");
    f.form.InputsList.setText(1, 0, "mine");

    open("/models/wing.neu");

    EXPECT_EQ(f.form.InputsList.text(1, 0), "mine");
    EXPECT_EQ(f.form.CommandLine.Text, "nastran wing.dat notify=no");
}

TEST_F(CurrentModel, OfTheStartIsNotReadAgain)
{
    Form_Load(f.session, allArguments);
    form::ClearAll_Click(f.context);
    f.connector.calls.clear();

    FormWindowProc(f.session, 2);

    EXPECT_THAT(inputs(), ElementsAre("\t\t\t\t\t"));
    EXPECT_THAT(f.connector.callsToFemap(), ElementsAre("ModelName", "feSet"));
}

TEST_F(CurrentModel, BringsItAlsoWhenItsVectorsCannotBeCounted)
{
    startWithoutModel();
    f.connector.failAt("feSet");

    EXPECT_THROW(open("/models/beam.neu"), sys::RuntimeError);

    EXPECT_THAT(inputs(), ElementsAre(storedRow));
}

TEST_F(CurrentModel, KeepsTheCommandLineThatTheEngineerEdited)
{
    Form_Load(f.session, allArguments);
    f.form.CommandLine.Text = "run it";

    open("/models/wing.neu");

    EXPECT_EQ(f.form.CommandLine.Text, "run it");
}

TEST_F(CurrentModel, GivesTheFileExtensionWhenTheStartArgumentNamesNone)
{
    startWithoutModel();

    open("/models/beam.modfem");

    EXPECT_EQ(f.form.fileExtension, "");
    EXPECT_EQ(f.form.openModelExtension, "modfem");
}

TEST_F(CurrentModel, EndsTheMessageOfTheOneThatCouldNotBeOpened)
{
    f.files.contents["/models/beam.neu"];
    f.connector.answers["feFileOpen"] = femap::ReturnCode::Fail;
    Form_Load(f.session, allArguments);
    ASSERT_THAT(f.form.StatusLine.Caption, HasSubstr("could not open the model: "));

    open("/models/wing.neu");

    EXPECT_EQ(f.form.StatusLine.Caption, "");
    EXPECT_EQ(f.session.openFailure, "");
    f.femap.model.reset();
    f.connector.answers["feAppGetAllModels"] = 1;
    FormWindowProc(f.session, 3);
    EXPECT_EQ(f.form.StatusLine.Caption, noModelOpen);
}

TEST_F(CurrentModel, IsFollowedAlsoWhenItsStoredSelectionCannotBeReadAtTheStart)
{
    f.files.deniedReads = 1;

    EXPECT_EQ(Form_Load(f.session, allArguments), StartUp::Done);

    EXPECT_TRUE(f.host.hooked);
    EXPECT_EQ(f.femap.registrations.size(), 1u);
    EXPECT_THAT(f.form.StatusLine.Caption, HasSubstr("The stored selection cannot be read"));
    FormWindowProc(f.session, 2);
    EXPECT_THAT(inputs(), ElementsAre(storedRow));
}

TEST_F(CurrentModel, WithoutANameIsToldOnceAtTheStartOnly)
{
    startWithoutModel();

    open("");

    EXPECT_THAT(f.messages(), testing::IsEmpty());
    EXPECT_EQ(f.form.CommandLine.Text, "");
}

TEST_F(CurrentModel, IsNoneWhereFemapGivesAnEmptyNameAndCountsNoModels)
{
    f.femap.modelName.clear();
    f.connector.answers["feAppGetAllModels"] = 0;

    Form_Load(f.session, "$beam.log$ALWAYS");

    EXPECT_FALSE(f.form.GenerateButton.Enabled);
    EXPECT_EQ(f.form.StatusLine.Caption, noModelOpen);
    f.connector.answers["feAppGetAllModels"] = 1;  // it was never saved
    FormWindowProc(f.session, 2);
    EXPECT_TRUE(f.form.GenerateButton.Enabled);
}

TEST_F(CurrentModel, IsReadAtTheStartWhateverTheSecondWayToFemapSays)
{
    // The dialog's way to FEMAP and that of the events.
    f.connector.beforeCall = [&](const std::string& call) {
        if (call == "feAppVisible")
            f.connector.attachRaises = true;
    };

    EXPECT_THROW(Form_Load(f.session, allArguments), sys::RuntimeError);

    EXPECT_THAT(inputs(), ElementsAre(storedRow));
    EXPECT_TRUE(f.host.hooked);
}

}  // namespace
}  // namespace app
