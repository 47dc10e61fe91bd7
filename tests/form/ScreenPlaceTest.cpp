#include "form/ScreenPlace.h"

#include <gtest/gtest.h>

#include <ostream>

using form::centredOn;
using form::keptWithin;
using form::ScreenPlace;

namespace form
{

std::ostream& operator<<(std::ostream& out, const ScreenPlace& place)
{
    return out << place.left << ' ' << place.top << ' ' << place.right << ' ' << place.bottom;
}

}  // namespace form

namespace
{

constexpr ScreenPlace screen{0, 0, 1920, 1040};
constexpr ScreenPlace leftScreen{-1600, 100, 0, 1000};

TEST(KeptWithin, LeavesAWindowOnTheScreenWhereItIs)
{
    const ScreenPlace wanted{100, 200, 700, 800};

    EXPECT_EQ(keptWithin(wanted, screen), wanted);
    EXPECT_EQ(keptWithin(screen, screen), screen);
}

TEST(KeptWithin, MovesAWindowInOverTheEdgeThatItCrosses)
{
    EXPECT_EQ(keptWithin({1800, 200, 2400, 800}, screen), (ScreenPlace{1320, 200, 1920, 800}));
    EXPECT_EQ(keptWithin({-50, 200, 550, 800}, screen), (ScreenPlace{0, 200, 600, 800}));
    EXPECT_EQ(keptWithin({100, 900, 700, 1500}, screen), (ScreenPlace{100, 440, 700, 1040}));
    EXPECT_EQ(keptWithin({100, -9, 700, 591}, screen), (ScreenPlace{100, 0, 700, 600}));
}

TEST(KeptWithin, LeavesAWindowOnAScreenLeftOfTheMainOne)
{
    const ScreenPlace wanted{-1000, 300, -400, 900};

    EXPECT_EQ(keptWithin(wanted, leftScreen), wanted);
    EXPECT_EQ(keptWithin({-300, 300, 300, 900}, leftScreen), (ScreenPlace{-600, 300, 0, 900}));
    EXPECT_EQ(keptWithin({-1700, 0, -1100, 600}, leftScreen),
              (ScreenPlace{-1600, 100, -1000, 700}));
}

TEST(KeptWithin, MakesAWindowSmallerThatIsLargerThanTheScreen)
{
    EXPECT_EQ(keptWithin({-100, -100, 3000, 2000}, screen), screen);
    EXPECT_EQ(keptWithin({50, 20, 650, 3000}, screen), (ScreenPlace{50, 0, 650, 1040}));
}

TEST(CentredOn, GivesBothTheSameMiddle)
{
    EXPECT_EQ(centredOn({100, 100, 900, 700}, 600, 400), (ScreenPlace{200, 200, 800, 600}));
    EXPECT_EQ(centredOn({1700, 0, 1920, 1000}, 600, 400), (ScreenPlace{1510, 300, 2110, 700}));
    EXPECT_EQ(centredOn({-1600, 100, 0, 1000}, 600, 400), (ScreenPlace{-1100, 350, -500, 750}));
}

}  // namespace
