#include "AppFixture.h"
#include "fake/GridRows.h"
#include "form/FormProcedures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace app
{
namespace
{

using testing::ElementsAre;

struct OneStepBack : testing::Test
{
    AppFixture f;
    Program program{f.connector, f.host, f.lists, f.system};
    form::MainForm& form = program.form();

    OneStepBack()
    {
        f.femap.modelName = "/models/beam.neu";
        program.start(allArguments);
        fake::fill(form.InputsList, {"a\t1\tNode\t1\tx\t", "b\t2\tNode\t1\ty\t"});
    }
    std::vector<std::string> inputs() const { return fake::namesOf(form.InputsList); }
    void click(const char* name) { program.raise(form::click(name)); }
    const std::string& status() { return form.StatusLine.Caption; }
};

TEST_F(OneStepBack, BringsRemovedRowsBackAndTellsHowMany)
{
    click("ClearInputSelection");
    program.stepBack();

    EXPECT_THAT(inputs(), ElementsAre("a", "b"));
    EXPECT_EQ(status(), "1 row is back");
    program.stepBack();
    EXPECT_EQ(status(), "There is nothing to bring back");
}

TEST_F(OneStepBack, BringsBackWhatClearAllAndTheDeleteKeyTook)
{
    click("ClearAll");
    program.stepBack();
    EXPECT_THAT(inputs(), ElementsAre("a", "b"));
    EXPECT_EQ(status(), "2 rows are back");

    program.raise({"InputsList", form::What::KeyDown}, form::deleteKey);
    program.raise({"InputsList", form::What::KeyDown}, 40);
    program.stepBack();
    EXPECT_THAT(inputs(), ElementsAre("a", "b"));
}

TEST_F(OneStepBack, LogsNothing)
{
    click("ClearAll");
    const auto before = f.logLines();
    program.stepBack();

    EXPECT_EQ(f.logLines(), before);
}

TEST_F(OneStepBack, TellsThatValuesWereReadBeforeARefresh)
{
    click("ClearInputSelection");
    click("RefreshOutputs");
    program.stepBack();

    EXPECT_EQ(status(),
              "1 row is back. Their values were read before the latest \"Refresh Values\"");
}

TEST_F(OneStepBack, EndsWhenAnotherModelBecomesTheCurrentOne)
{
    click("ClearAll");
    f.femap.modelName = "/models/wing.neu";
    program.raiseFemapEvent(2);
    program.stepBack();

    EXPECT_EQ(status(), "There is nothing to bring back");
    EXPECT_THAT(inputs(), ElementsAre(""));
}

TEST_F(OneStepBack, StaysWhenTheSameModelIsToldAgain)
{
    click("ClearAll");
    program.raiseFemapEvent(2);
    program.stepBack();

    EXPECT_THAT(inputs(), ElementsAre("a", "b"));
}

}  // namespace
}  // namespace app
