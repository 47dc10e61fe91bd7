#include "ProductFixture.h"

#include <gtest/gtest.h>

#include <string_view>
#include <utility>

namespace
{

// The form in a window of FEMAP's process.
struct Pane : driver::Product
{
    void SetUp() override
    {
        start();
        femap.dock();
        ASSERT_TRUE(driver::waitUntil(
            [&] { return GetAncestor(form->window(), GA_ROOT) != form->window(); }));
        form->settle();
    }
    static void askForHelp(HWND window)
    {
        HELPINFO info{sizeof info, HELPINFO_WINDOW, 0, window, 0, {}};
        SendMessageW(window, WM_HELP, 0, reinterpret_cast<LPARAM>(&info));
    }
    static void turnWheel(HWND window)
    {
        for (const UINT wheel : {WM_MOUSEWHEEL, WM_MOUSEHWHEEL})
            SendMessageW(window, wheel, MAKEWPARAM(0, -WHEEL_DELTA), 0);
    }
};

TEST_F(Pane, KeepsHelpMenuKeyAndWheelFromFemapsWindows)
{
    for (const std::string_view name :
         {"InputsList", "InputsButton", "InputSelection", "CommandLine", "StatusLine", "pbOuter"}) {
        askForHelp(form->control(name));
        turnWheel(form->control(name));
    }
    askForHelp(form->window());
    turnWheel(form->window());
    SendMessageW(form->window(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(form->window()), -1);

    EXPECT_EQ(femap.dockHeard(), 0);
}

TEST_F(Pane, KeepsThemAlsoWhereAListOfQuantitiesIsOpen)
{
    femap.pick("1");
    form->choose("InputSelection", "Materials");
    form->press("InputsButton");

    for (const HWND window : {form->dialog(), form->list()}) {
        askForHelp(window);
        turnWheel(window);
    }

    EXPECT_EQ(femap.dockHeard(), 0);
}

}  // namespace
