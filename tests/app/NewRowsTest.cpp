#include "AppFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace app
{
namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

struct RowsOfTheLatestAction : testing::Test
{
    AppFixture f;
    Program program{f.connector, f.host, f.lists, f.system};
    form::MainForm& form = program.form();

    RowsOfTheLatestAction()
    {
        f.femap.modelName = "/models/beam.neu";
        f.model().nodes.put({.id = 1, .x = 1.5});
        program.start(allArguments);
        program.enterText(form.InputSelection, "Nodes");
    }
    void select(const char* field)
    {
        f.dialogs.pick({1});
        f.lists.choose({field});
        program.raise(form::click("InputsButton"));
    }
    const std::vector<int>& newInputs() const { return program.newRows(form.InputsList).rows(); }
};

TEST_F(RowsOfTheLatestAction, AreKnownUntilTheNext)
{
    select("x");
    select("z");
    EXPECT_THAT(newInputs(), ElementsAre(2));
    EXPECT_THAT(program.newRows(form.OutputsList).rows(), IsEmpty());

    program.raise({"InputsList", form::What::KeyDown}, 40);  // moves in the list
    EXPECT_THAT(newInputs(), ElementsAre(2));
    program.raise(form::click("RefreshOutputs"));
    EXPECT_THAT(newInputs(), IsEmpty());
}

TEST_F(RowsOfTheLatestAction, DoNotMoveTheSelection)
{
    select("x");
    select("z");

    EXPECT_EQ(form.InputsList.Rows(), 3);
    EXPECT_EQ(form.InputsList.Row, 1);
    EXPECT_EQ(form.InputsList.RowSel, 1);
}

TEST_F(RowsOfTheLatestAction, AreGoneWithAStepBack)
{
    select("y");
    select("y");  // goes out of the list when it is chosen again, unless it is the last row
    program.raise(form::click("ClearAll"));
    select("z");
    EXPECT_THAT(newInputs(), ElementsAre(1));
    program.stepBack();

    EXPECT_THAT(newInputs(), IsEmpty());
}

}  // namespace
}  // namespace app
