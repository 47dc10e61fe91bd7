#include "OwnFormFixture.h"

#include <gtest/gtest.h>

namespace
{

// A form that shows a part of its content only, and the engineer's own settings of the wheel.
struct Wheel : driver::OwnForm
{
    UINT linesBefore = 0;
    UINT charactersBefore = 0;

    void SetUp() override
    {
        OwnForm::SetUp();
        SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &linesBefore, 0);
        SystemParametersInfoW(SPI_GETWHEELSCROLLCHARS, 0, &charactersBefore, 0);
        open();
        SetWindowPos(form, nullptr, 0, 0, 400, 260, SWP_NOMOVE | SWP_NOZORDER);
    }
    void TearDown() override
    {
        setLines(linesBefore);
        setCharacters(charactersBefore);
        OwnForm::TearDown();
    }
    static void setLines(UINT lines)
    {
        SystemParametersInfoW(SPI_SETWHEELSCROLLLINES, lines, nullptr, 0);
    }
    static void setCharacters(UINT characters)
    {
        SystemParametersInfoW(SPI_SETWHEELSCROLLCHARS, characters, nullptr, 0);
    }
    // How far the content went, in twips.
    POINT turn(UINT message, int delta)
    {
        const form::ScrollBar& down = window.form().VScroll1;
        const form::ScrollBar& right = window.form().HScroll1;
        const POINT before{right.Value, down.Value};
        SendMessageW(form, message, MAKEWPARAM(0, delta), 0);
        EXPECT_EQ(window.form().pbInner.Top, -down.Value);
        EXPECT_EQ(window.form().pbInner.Left, -right.Value);
        return {right.Value - before.x, down.Value - before.y};
    }
};

TEST_F(Wheel, ScrollsAsManyLinesAsTheEngineerSet)
{
    setLines(1);
    const POINT one = turn(WM_MOUSEWHEEL, -WHEEL_DELTA);
    setLines(5);
    const POINT five = turn(WM_MOUSEWHEEL, -WHEEL_DELTA);
    const POINT halfBack = turn(WM_MOUSEWHEEL, WHEEL_DELTA / 2);
    setLines(0);
    const POINT none = turn(WM_MOUSEWHEEL, -WHEEL_DELTA);

    const int line = window.form().VScroll1.SmallChange;
    EXPECT_EQ(one.y, line);
    EXPECT_EQ(five.y, 5 * line);
    EXPECT_EQ(halfBack.y, -5 * line / 2);
    EXPECT_EQ(none.y, 0);
    EXPECT_EQ(one.x, 0);
}

TEST_F(Wheel, ScrollsAPageWhereTheEngineerSetThat)
{
    setLines(WHEEL_PAGESCROLL);

    EXPECT_EQ(turn(WM_MOUSEWHEEL, -WHEEL_DELTA).y, window.form().VScroll1.LargeChange);
}

TEST_F(Wheel, ThatIsTurnedSidewaysScrollsSideways)
{
    setCharacters(2);

    const POINT right = turn(WM_MOUSEHWHEEL, WHEEL_DELTA);
    const POINT left = turn(WM_MOUSEHWHEEL, -WHEEL_DELTA);

    EXPECT_EQ(right.x, 2 * window.form().HScroll1.SmallChange);
    EXPECT_EQ(right.y, 0);
    EXPECT_EQ(left.x, -right.x);
}

}  // namespace
