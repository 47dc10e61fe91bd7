#include "ProductFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using driver::FormDriver;
using driver::StandIn;
using driver::waitUntil;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace
{

// The form as a pane of FEMAP's window, with rows in it.
struct LostPane : driver::Product
{
    HWND pane = nullptr;

    void SetUp() override
    {
        start();
        pane = form->window();
        femap.dock();
        ASSERT_TRUE(waitUntil([&] { return isPane(pane); }));
        form->settle();
        addMaterials("1-2", {"Ex", "Density"});
        form->choose("Solver", "NENastran");
        form->setText("CommandLine", L"solve it");
        form->settle();
    }
    static bool isPane(HWND window) { return GetAncestor(window, GA_ROOT) != window; }
    // The form's window of its own, once it is there.
    bool comesBack()
    {
        return waitUntil([&] {
            const HWND window = driver::visibleWindow(process->id(), L"VelmarFemapInterface");
            if (window == nullptr || window == pane)
                return false;
            form = std::make_unique<FormDriver>(*process);
            return form->text("StatusLine") != "";
        });
    }
};

TEST_F(LostPane, ComesBackAsAWindowWithItsRows)
{
    const auto before = form->rows("InputsList", 6);

    femap.kill();

    ASSERT_TRUE(comesBack());
    EXPECT_FALSE(isPane(form->window()));
    EXPECT_EQ(form->rows("InputsList", 6), before);
    EXPECT_EQ(form->text("Solver"), "NENastran");
    EXPECT_EQ(form->text("CommandLine"), "solve it");
    EXPECT_THAT(form->text("StatusLine"), StartsWith("FEMAP has ended"));
    EXPECT_THAT(form->text("StatusLine"), HasSubstr("window of its own"));
    EXPECT_FALSE(form->isEnabled("InputsButton"));
    EXPECT_TRUE(form->isEnabled("ClearInputSelection"));
}

TEST_F(LostPane, LetsItsRowsBeRemovedAndClosesAsUsual)
{
    femap.kill();
    ASSERT_TRUE(comesBack());

    form->selectRows("InputsList", 0, 1);
    form->key("InputsList", VK_DELETE);

    EXPECT_THAT(inputs(), ElementsAre("ExAtMatl1", "ExAtMatl2"));
    PostMessageW(form->window(), WM_CLOSE, 0, 0);
    EXPECT_EQ(process->exitCode(), 0U);
    EXPECT_THAT(files.log(), HasSubstr("Setting Main femap instance to Nothing"));
}

TEST_F(LostPane, BecomesAPaneAgainWhenFemapIsBack)
{
    const auto before = inputs();
    femap.kill();
    ASSERT_TRUE(comesBack());

    StandIn again(files.folder() / "panel.neu");

    ASSERT_TRUE(waitUntil([&] { return form->isEnabled("InputsButton"); }));
    EXPECT_THAT(form->text("StatusLine"), StartsWith("FEMAP is back."));
    EXPECT_EQ(inputs(), before);
    again.dock();
    EXPECT_TRUE(waitUntil([&] { return isPane(form->window()); }));
    form->settle();
    form->press("GenerateButton");
    form->settle();
    EXPECT_THAT(files.read("panelControl.txt"), HasSubstr("ExAtMatl1"));
    again.sendEvent(4);
    EXPECT_EQ(process->exitCode(), 0U);
}

// FEMAP ends while a call of the form waits for it, and while the form's dialog is open.
TEST_F(LostPane, ComesBackFromTheMiddleOfWork)
{
    const auto before = inputs();
    femap.beBusy();
    const int calls = femap.callCount();
    form->press("RefreshInputs");
    ASSERT_TRUE(waitUntil([&] { return femap.callCount() > calls; }));

    femap.kill();

    ASSERT_TRUE(comesBack());
    EXPECT_EQ(inputs(), before);
    EXPECT_THAT(form->text("StatusLine"), HasSubstr("window of its own"));
}

TEST_F(LostPane, ComesBackFromAnOpenDialog)
{
    const auto before = inputs();
    femap.pick("1");
    form->press("InputsButton");
    form->dialog();

    femap.kill();

    ASSERT_TRUE(comesBack());
    EXPECT_EQ(inputs(), before);
    EXPECT_FALSE(form->isDialogOpen());
    EXPECT_THAT(form->text("StatusLine"), HasSubstr("window of its own"));
}

// What was typed and not taken over is gone; the box shows what it held before, and nothing runs.
TEST_F(LostPane, ShowsABoxAsItWasIntoWhichSomethingWasTyped)
{
    const HWND edit = FindWindowExW(form->control("Solver"), nullptr, L"Edit", nullptr);
    SendMessageW(edit, EM_SETSEL, 0, -1);
    SendMessageW(edit, WM_CHAR, L'x', 0);
    ASSERT_EQ(form->text("Solver"), "x");

    femap.kill();

    ASSERT_TRUE(comesBack());
    EXPECT_EQ(form->text("Solver"), "NENastran");
    form->press("ClearAll");
    form->settle();
    EXPECT_EQ(form->text("Solver"), "NENastran");
    EXPECT_EQ(form->text("CommandLine"), "solve it");
}

// FEMAP that takes the pane away and lives on has closed the form.
TEST_F(LostPane, EndsWithAPaneThatALivingFemapTookAway)
{
    femap.closeDock();

    EXPECT_EQ(process->exitCode(), 0U);
    EXPECT_THAT(files.log(), HasSubstr("Unloading the form"));
    EXPECT_THAT(files.log(), Not(HasSubstr("has ended")));
}

}  // namespace
