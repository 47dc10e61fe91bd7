#include "form/Controls.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using form::ComboBox;

namespace
{

class ComboBoxTest : public testing::Test
{
protected:
    ComboBoxTest()
    {
        box.List = {"Velmar", "KORVA"};
        box.Click = [this] { clicked.push_back(box.Text); };
    }

    ComboBox box;
    std::vector<std::string> clicked;
};

TEST_F(ComboBoxTest, RunsItsHandlerWithTheChosenItem)
{
    box.setListIndex(1);

    EXPECT_EQ(box.ListIndex, 1);
    EXPECT_EQ(box.Text, "KORVA");
    EXPECT_EQ(clicked, std::vector<std::string>{"KORVA"});
}

TEST_F(ComboBoxTest, HasNoSelectionAndRunsNothingForAnIndexOutsideTheList)
{
    for (const int outside : {2, 100, -1}) {
        box.setListIndex(0);
        clicked.clear();

        box.setListIndex(outside);

        EXPECT_EQ(box.ListIndex, -1);
        EXPECT_EQ(box.Text, "");
        EXPECT_TRUE(clicked.empty());
    }
}

TEST_F(ComboBoxTest, TakesATypedTextThatTheListLacks)
{
    box.enterText("Ombra");

    EXPECT_EQ(box.ListIndex, -1);
    EXPECT_EQ(box.Text, "Ombra");
    EXPECT_EQ(clicked, std::vector<std::string>{"Ombra"});
}

TEST_F(ComboBoxTest, SelectsTheItemWhoseTextIsTyped)
{
    box.enterText("KORVA");

    EXPECT_EQ(box.ListIndex, 1);
    EXPECT_EQ(clicked, std::vector<std::string>{"KORVA"});
}

TEST_F(ComboBoxTest, WorksWithoutAHandler)
{
    box.Click = nullptr;

    box.setListIndex(0);
    const std::string chosen = box.Text;
    box.enterText("Ombra");

    EXPECT_EQ(chosen, "Velmar");
    EXPECT_EQ(box.Text, "Ombra");
}

}  // namespace
