#include "Hand.h"
#include "WindowFixture.h"

#include <gtest/gtest.h>

using driver::waitUntil;

namespace
{

struct Divider : driver::Window
{
    driver::Hand hand;

    void SetUp() override { hand.awaitKeyboardAt(form.window()); }
    int heightOf(const char* name)
    {
        const RECT place = form.placeOf(name);
        return static_cast<int>(place.bottom - place.top);
    }
    POINT place()
    {
        RECT above{};
        RECT below{};
        GetWindowRect(form.control("Inputs"), &above);
        GetWindowRect(form.control("Outputs"), &below);
        return {(above.left + above.right) / 2, (above.bottom + below.top) / 2};
    }
};

TEST_F(Divider, GivesTheHeightOfOneListToTheOtherAsTheMouseDragsIt)
{
    const int inputs = heightOf("InputsList");
    const int outputs = heightOf("OutputsList");
    const POINT from = place();

    hand.drag(from, {from.x, from.y + 40});

    EXPECT_TRUE(waitUntil([&] { return heightOf("InputsList") > inputs + 35; }));
    form.settle();
    EXPECT_NEAR(heightOf("InputsList"), inputs + 40, 2);
    EXPECT_NEAR(heightOf("OutputsList"), outputs - 40, 2);
}

TEST_F(Divider, LeavesBothListsOfUse)
{
    const POINT from = place();

    hand.drag(from, {from.x, from.y - 400});

    form.settle();
    EXPECT_GE(heightOf("InputsList"), 40);
    EXPECT_GE(heightOf("OutputsList"), 40);
}

TEST_F(Divider, GoesUpAndDownByKeysFromEverywhere)
{
    const int before = heightOf("InputsList");

    hand.key({"alt+Next", "alt+Next"});
    EXPECT_TRUE(waitUntil([&] { return heightOf("InputsList") > before + 10; }));
    hand.key({"alt+Prior", "alt+Prior"});
    EXPECT_TRUE(waitUntil([&] { return std::abs(heightOf("InputsList") - before) <= 2; }));
}

TEST_F(Divider, KeepsItsShareWhenTheWindowChanges)
{
    for (int step = 0; step < 4; ++step) {
        const int before = heightOf("Inputs");
        hand.key({"alt+Next"});
        ASSERT_TRUE(waitUntil([&] { return heightOf("Inputs") > before; }));
    }
    form.settle();
    const int inputs = heightOf("Inputs");
    const int outputs = heightOf("Outputs");
    RECT window{};
    GetWindowRect(form.window(), &window);

    SetWindowPos(form.window(), nullptr, 0, 0, window.right - window.left,
                 window.bottom - window.top + 100, SWP_NOMOVE | SWP_NOZORDER);
    form.settle();

    EXPECT_NEAR(heightOf("Inputs") * 1.0 / heightOf("Outputs"), inputs * 1.0 / outputs, 0.05);
}

}  // namespace
