#include "ProductFixture.h"
#include "WindowFixture.h"
#include "app/window/PropertyListWindow.h"

#include <gtest/gtest.h>

using driver::Window;
using window::PropertyListWindow;

namespace
{

struct DialogPlace : Window
{
    RECT work{};

    void SetUp() override { SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0); }
    // Where the dialog is that this form opens.
    RECT openedBy(const RECT& place)
    {
        SetWindowPos(form.window(), nullptr, place.left, place.top, place.right - place.left,
                     place.bottom - place.top, SWP_NOZORDER);
        form.settle();
        RECT result{};
        GetWindowRect(openListOfMaterials(), &result);
        form.pressInDialog(PropertyListWindow::idCancel);
        return result;
    }
    void expectOnScreen(const RECT& place) const
    {
        EXPECT_GE(place.left, work.left);
        EXPECT_GE(place.top, work.top);
        EXPECT_LE(place.right, work.right);
        EXPECT_LE(place.bottom, work.bottom);
    }
};

using DialogPlaceOfAPane = driver::Product;

TEST_F(DialogPlace, IsTheMiddleOfTheForm)
{
    const RECT own{200, 100, 1000, 740};

    const RECT place = openedBy(own);

    EXPECT_NEAR(place.left + place.right, own.left + own.right, 2);
    EXPECT_NEAR(place.top + place.bottom, own.top + own.bottom, 2);
}

TEST_F(DialogPlace, StaysOnTheScreenAtTheRight)
{
    expectOnScreen(openedBy({work.right - 250, 0, work.right, work.bottom}));
}

TEST_F(DialogPlace, StaysOnTheScreenAtTheLeftAndAtTheBottom)
{
    expectOnScreen(openedBy({0, work.bottom - 200, 250, work.bottom}));
}

TEST_F(DialogPlace, StaysOnTheScreenWhenTheFormReachesBeyondIt)
{
    expectOnScreen(
        openedBy({work.right - 60, work.bottom - 60, work.right + 700, work.bottom + 500}));
}

// FEMAP's window has the form at its right, and is at the right of the screen itself.
TEST_F(DialogPlaceOfAPane, IsOnTheScreen)
{
    start();
    femap.dock();
    const HWND pane = form->window();
    ASSERT_TRUE(driver::waitUntil([&] { return GetAncestor(pane, GA_ROOT) != pane; }));
    RECT work{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    SetWindowPos(GetAncestor(pane, GA_ROOT), nullptr, work.right - 300, 0, 300, work.bottom - 50,
                 SWP_NOZORDER);
    femap.pick("1");
    form->choose("InputSelection", "Materials");
    form->press("InputsButton");
    RECT place{};
    GetWindowRect(form->dialog(), &place);
    form->pressInDialog(PropertyListWindow::idCancel);

    EXPECT_GE(place.left, work.left);
    EXPECT_LE(place.right, work.right);
    EXPECT_LE(place.bottom, work.bottom);
}

}  // namespace
