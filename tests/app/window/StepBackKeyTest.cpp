#include "Hand.h"
#include "WindowFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using driver::waitUntil;
using testing::SizeIs;
using testing::StartsWith;

namespace
{

struct StepBackKey : driver::Window
{
    driver::Hand hand;

    void SetUp() override
    {
        addMaterials({"Ex", "Density"});
        hand.awaitKeyboardAt(form.window());
    }
    bool rowsBecome(std::size_t count)
    {
        return waitUntil([&] { return inputs().size() == count; });
    }
};

TEST_F(StepBackKey, BringsRemovedRowsBackFromAnywhereInTheForm)
{
    const auto before = inputs();
    hand.clickAt(driver::placeIn(form.control("InputsList"), form.rowPlace("InputsList", 1)));
    hand.key({"shift+Down", "Delete"});
    EXPECT_TRUE(rowsBecome(4));
    hand.key({"ctrl+z"});
    EXPECT_TRUE(rowsBecome(6));
    EXPECT_EQ(inputs(), before);
    EXPECT_THAT(form.text("StatusLine"), StartsWith("2 rows are back"));

    hand.key({"alt+l"});
    EXPECT_TRUE(rowsBecome(0));
    hand.clickAt(driver::middleOf(form.control("StatusLine")));
    hand.key({"ctrl+z"});
    EXPECT_TRUE(rowsBecome(6));
}

TEST_F(StepBackKey, IsWindowsOwnInAField)
{
    hand.key({"alt+l"});
    EXPECT_TRUE(rowsBecome(0));
    form.settle();
    const std::string before = form.text("CommandLine");
    hand.clickAt(driver::middleOf(form.control("CommandLine")));
    EXPECT_TRUE(waitUntil([&] { return form.hasFocus("CommandLine"); }));
    hand.type("x");
    EXPECT_TRUE(waitUntil([&] { return form.text("CommandLine") != before; }));
    hand.key({"ctrl+z"});

    EXPECT_TRUE(waitUntil([&] { return form.text("CommandLine") == before; }));
    EXPECT_THAT(inputs(), SizeIs(0));
}

}  // namespace
