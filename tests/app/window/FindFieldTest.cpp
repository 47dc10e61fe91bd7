#include "Hand.h"
#include "WindowFixture.h"
#include "app/window/FindField.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

using driver::waitUntil;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using window::FindField;

namespace
{

struct FindKeys : driver::Window
{
    driver::Hand hand;

    void SetUp() override
    {
        addMaterials({"Ex", "Density"});  // DensityAtMatl1 to 3, ExAtMatl1 to 3
        hand.awaitKeyboardAt(form.window());
    }
    HWND field() { return GetDlgItem(GetParent(form.control("InputsList")), FindField::idText); }
    bool opens()
    {
        return waitUntil([&] { return IsWindowVisible(field()) && form.focus() == field(); });
    }
    bool goesTo(int item)
    {
        return waitUntil([&] { return form.selectedRows("InputsList") == std::vector<int>{item}; });
    }
};

TEST_F(FindKeys, FindNamesAnywhereAndGoOnToTheNext)
{
    hand.key({"ctrl+f"});
    ASSERT_TRUE(opens());
    hand.type("ATL2");
    hand.key({"Return"});
    EXPECT_TRUE(goesTo(1));
    hand.key({"F3"});
    EXPECT_TRUE(goesTo(4));
    hand.key({"Return"});
    EXPECT_TRUE(goesTo(1)) << "round";

    hand.key({"Escape"});
    EXPECT_TRUE(waitUntil([&] { return !IsWindowVisible(field()); }));
    EXPECT_TRUE(waitUntil([&] { return form.hasFocus("InputsList"); }));
    hand.key({"F3"});
    EXPECT_TRUE(goesTo(4)) << "the text is kept";
}

TEST_F(FindKeys, TellThatNoNameHasTheTextUntilOneHas)
{
    form.click("InputsList", 2);
    hand.key({"ctrl+f"});
    ASSERT_TRUE(opens());
    hand.type("Prop");
    hand.key({"Return"});
    EXPECT_TRUE(
        waitUntil([&] { return form.text("StatusLine") == "No name has this text: Prop"; }));
    EXPECT_THAT(form.selectedRows("InputsList"), ElementsAre(2));

    hand.key({"ctrl+f"});  // marks the text, so that another one takes its place
    hand.type("ex");
    hand.key({"Return"});
    EXPECT_TRUE(goesTo(3));
    EXPECT_THAT(form.text("StatusLine"), Not(HasSubstr("No name")));
}

TEST_F(FindKeys, TakeTheLastLineOfTheListWhileTheFieldIsOpen)
{
    const RECT before = form.placeOf("InputsList");
    hand.key({"ctrl+f"});
    ASSERT_TRUE(opens());
    EXPECT_TRUE(waitUntil([&] { return form.placeOf("InputsList").bottom < before.bottom; }));
    form.settle();
    const RECT during = form.placeOf("InputsList");
    RECT of{};
    GetWindowRect(field(), &of);
    MapWindowPoints(nullptr, form.window(), reinterpret_cast<POINT*>(&of), 2);
    hand.key({"Escape"});
    EXPECT_TRUE(waitUntil([&] { return form.placeOf("InputsList").bottom == before.bottom; }));

    EXPECT_LE(during.bottom, of.top);
    EXPECT_LE(of.bottom, before.bottom);
    EXPECT_LE(of.right, before.right);
    EXPECT_GT(of.right, of.left + 100);
}

}  // namespace
