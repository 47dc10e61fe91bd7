#include "AppFixture.h"
#include "app/FemapEvents.h"
#include "app/ModelLine.h"
#include "fake/GridRows.h"
#include "form/FormProcedures.h"

#include <gtest/gtest.h>

namespace app
{
namespace
{

struct ModelLineTest : testing::Test
{
    AppFixture f;
    Program program{f.connector, f.host, f.lists, f.system};
    ModelLine line;

    ModelLineTest() { f.femap.modelName = "/models/beam.neu"; }
    std::string text(int selected = 0) { return line.text(program.form(), selected); }
    void start() { program.start(allArguments); }
    void addRows()
    {
        fake::fill(program.form().InputsList,
                   {"aAtNode1\t1\tNode\t1\tx\t", "bAtNode1\t\tNode\t1\ty\t"});
    }
    void apply() { program.raise(form::click("GenerateButton")); }
};

TEST_F(ModelLineTest, NamesTheModelAndCountsTheRows)
{
    start();
    EXPECT_EQ(text(), "beam.neu: no rows");
    addRows();
    EXPECT_EQ(text(2), "beam.neu: 2 rows, 2 selected, 1 without a value, 2 not applied");
}

TEST_F(ModelLineTest, TellsWhatApplyHasWrittenAndWhatWentSince)
{
    start();
    addRows();
    apply();
    EXPECT_EQ(text(), "beam.neu: 2 rows, 1 without a value, all applied");

    program.raise(form::click("ClearInputSelection"));
    EXPECT_EQ(text(), "beam.neu: 1 row, 1 without a value, 1 not applied");
}

TEST_F(ModelLineTest, KnowsWhichRowsItCountsAsNotApplied)
{
    start();
    addRows();
    apply();
    const form::MainForm& form = program.form();
    program.form().InputsList.setText(1, form::valueColumn, "1.5");
    program.form().InputsList.AddItem("bAtNode1\t\tNode\t1\ty\t");

    EXPECT_EQ(text(), "beam.neu: 3 rows, 2 without a value, 2 not applied");
    EXPECT_TRUE(line.isNotApplied(form, form.InputsList, 1)) << "another value";
    EXPECT_FALSE(line.isNotApplied(form, form.InputsList, 2));
    EXPECT_TRUE(line.isNotApplied(form, form.InputsList, 3)) << "once more than applied";
}

TEST_F(ModelLineTest, CountsAFailedApplyAsNone)
{
    start();
    addRows();
    f.files.irreplaceable.insert("/models/beamControl.txt");
    apply();

    EXPECT_EQ(text(), "beam.neu: 2 rows, 1 without a value, 2 not applied");
}

TEST_F(ModelLineTest, KnowsASelectionThatWasReadWholeButNotADamagedOne)
{
    f.files.contents["/models/beamControl.txt"] = "aAtNode1\t1\tNode\t1\tx\t\r\n\r\n";
    start();
    EXPECT_EQ(text(), "beam.neu: 1 row, all applied");

    AppFixture other;
    other.femap.modelName = "/models/beam.neu";
    other.files.contents["/models/beamControl.txt"] = "aAtNode1\t1\tNode\t1\tx\r\n\r\n";
    Program damaged(other.connector, other.host, other.lists, other.system);
    damaged.start(allArguments);
    EXPECT_EQ(ModelLine().text(damaged.form(), 0), "beam.neu: 1 row, 1 not applied");
}

TEST_F(ModelLineTest, TellsThatNoModelIsOpenOrThatItWasNeverSaved)
{
    f.femap.modelName.clear();
    program.start("$beam.log$DEBUG");
    EXPECT_EQ(text(), "A model that was never saved: no rows");

    f.connector.dieAt("feAppGetAllModels");
    program.raiseFemapEvent(3);
    EXPECT_EQ(text(), "No model is open: no rows");
}

TEST_F(ModelLineTest, TakesRowsOfAnotherModelAsNotApplied)
{
    start();
    addRows();
    apply();
    f.femap.modelName = "/models/wing.neu";
    program.raiseFemapEvent(2);

    EXPECT_EQ(text(), "wing.neu: 2 rows, 1 without a value, 2 not applied");
}

TEST_F(ModelLineTest, StaysWhenAnActionEmptiesTheStatusLine)
{
    start();
    addRows();
    const std::string before = text();
    program.raise(form::click("RefreshOutputs"));

    EXPECT_EQ(text(), before);
}

}  // namespace
}  // namespace app
