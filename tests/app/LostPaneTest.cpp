#include "AppFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace app
{
namespace
{

using testing::Contains;
using testing::HasSubstr;

TEST(LostPane, IsToldAndLeavesTheRowsAndWhatNeedsNoFemap)
{
    StartedProgram f;
    f.form.InputsList.AddItem("x\t1");

    f.program.loseFemapAndPane();

    EXPECT_EQ(f.form.StatusLine.Caption, paneIsGone);
    EXPECT_FALSE(f.program.isConnected());
    EXPECT_EQ(f.form.InputsList.text(2, 0), "x");
    EXPECT_FALSE(f.form.InputsButton.Enabled);
    EXPECT_TRUE(f.form.ClearInputSelection.Enabled);
    EXPECT_THAT(f.connector.calls, testing::IsEmpty()) << "FEMAP is asked nothing";
    EXPECT_THAT(f.log(), Contains(HasSubstr("FEMAP's process has ended")));
}

TEST(LostPane, IsTakenBackWhenFemapRunsAgain)
{
    StartedProgram f;
    f.program.loseFemapAndPane();

    EXPECT_TRUE(f.program.lookForFemap());

    EXPECT_EQ(f.form.StatusLine.Caption, femapIsBack);
    EXPECT_THAT(f.connector.calls, Contains("feAppRegisterAddInPane"));
}

TEST(LostPane, OfAClosedFormChangesNothing)
{
    StartedProgram f;
    f.program.close();

    f.program.loseFemapAndPane();

    EXPECT_EQ(f.form.StatusLine.Caption, "");
}

}  // namespace
}  // namespace app
