#include "Hand.h"
#include "WindowFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using driver::waitUntil;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

namespace
{

// What goes only when the engineer selected it.
struct SelectedByHand : driver::Window
{
    driver::Hand hand;

    void SetUp() override
    {
        addMaterials({"Ex"});
        hand.awaitKeyboardAt(form.window());
    }
};

TEST_F(SelectedByHand, RemoveSelectedTakesNothingBeforeARowIsSelected)
{
    EXPECT_THAT(form.selectedRows("InputsList"), IsEmpty());

    form.press("ClearInputSelection");
    form.settle();

    EXPECT_THAT(inputs(), SizeIs(3));
    EXPECT_EQ(form.text("StatusLine"),
              "No row is selected. Select rows by mouse or keys, and try again");
    EXPECT_THAT(files.log(), Not(HasSubstr("ClearInputSelection_Click")));

    form.click("InputsList", 1);
    form.press("ClearInputSelection");
    form.settle();
    EXPECT_THAT(inputs(), SizeIs(2));
    EXPECT_THAT(form.text("StatusLine"), Not(HasSubstr("No row")));
}

TEST_F(SelectedByHand, DeleteTakesNothingBeforeARowIsSelected)
{
    form.click("InputsList", 5);  // below the rows
    EXPECT_TRUE(waitUntil([&] { return form.hasFocus("InputsList"); }));
    hand.key({"Delete"});
    EXPECT_TRUE(waitUntil([&] { return form.text("StatusLine").starts_with("No row"); }));
    EXPECT_THAT(inputs(), SizeIs(3));
    EXPECT_THAT(files.log(), Not(HasSubstr("InputsList_KeyDown")));

    hand.key({"End", "Delete"});
    EXPECT_TRUE(waitUntil([&] { return inputs().size() == 2U; }));
    hand.key({"Delete"});
    EXPECT_TRUE(waitUntil([&] { return inputs().size() == 1U; })) << "the next one was selected";
}

}  // namespace
