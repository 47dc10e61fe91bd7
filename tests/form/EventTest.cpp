#include "form/Event.h"

#include <gtest/gtest.h>

namespace
{

using form::Event;
using form::What;

TEST(Event, IsNamedAsItsProcedureIs)
{
    EXPECT_EQ(form::click("InputsButton").text(), "InputsButton_Click");
    EXPECT_EQ((Event{"RefreshInputs", What::SelectedRows}.text()), "RefreshInputs_SelectedRows");
    EXPECT_EQ((Event{"InputsList", What::KeyDown}.text()), "InputsList_KeyDown");
    EXPECT_EQ((Event{"HScroll1", What::Change}.text()), "HScroll1_Change");
    EXPECT_EQ((Event{"Form", What::Resize}.text()), "Form_Resize");
    EXPECT_EQ((Event{"", What::FemapMessage}.text()), "FE_EVENT_MESSAGE");
}

TEST(Event, IsTheSameOnlyForTheSameControlAndTheSameHappening)
{
    EXPECT_EQ(form::click("ClearAll"), (Event{"ClearAll", What::Click}));
    EXPECT_NE(form::click("ClearAll"), form::click("GenerateButton"));
    EXPECT_NE(form::click("InputsList"), (Event{"InputsList", What::KeyDown}));
}

}  // namespace
