#include "ListViews.h"
#include "WindowFixture.h"
#include "app/window/MainWindow.h"
#include "app/window/PropertyListWindow.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using driver::waitUntil;
using driver::Window;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;
using window::PropertyListWindow;

namespace
{

constexpr WPARAM newModel = 2;
constexpr WPARAM endModel = 3;
constexpr WPARAM shutdown = 4;

TEST_F(Window, StartsWithItsInitialChoicesAndEmptyGrids)
{
    EXPECT_EQ(form.text("InputSelection"), "Nodes");
    EXPECT_EQ(form.text("OutputSelection"), "Nodes");
    EXPECT_EQ(form.text("Solver"), "NXNastran");
    EXPECT_EQ(form.text("Optimizer"), "Velmar");
    EXPECT_THAT(form.text("CommandLine"), StartsWith("nastran "));
    EXPECT_THAT(form.rows("InputsList"), IsEmpty());
    EXPECT_THAT(form.rows("OutputsList"), IsEmpty());
}

TEST_F(Window, ChoosingInTheDialogGivesRows)
{
    openListOfMaterials();
    const std::string heading = form.heading();
    const bool mainIsEnabled = IsWindowEnabled(form.window()) != FALSE;
    form.add({"Ex", "Density"});

    EXPECT_EQ(heading, "Material Properties");
    EXPECT_FALSE(mainIsEnabled) << "the dialog is modal";
    EXPECT_THAT(inputs(), ElementsAre("DensityAtMatl1", "DensityAtMatl2", "DensityAtMatl3",
                                      "ExAtMatl1", "ExAtMatl2", "ExAtMatl3"));
}

TEST_F(Window, SelectAllAndDeselectAllTickTheWholeList)
{
    openListOfMaterials();
    const HWND list = form.list();
    const auto marked = [&] { return driver::tickedCount(list); };

    form.pressInDialog(PropertyListWindow::idSelect);
    const bool allWere =
        waitUntil([&] { return marked() == SendMessageW(list, LVM_GETITEMCOUNT, 0, 0); });
    form.pressInDialog(PropertyListWindow::idDeSelect);
    const bool noneWere = waitUntil([&] { return marked() == 0; });
    form.pressInDialog(PropertyListWindow::idCancel);

    EXPECT_TRUE(allWere);
    EXPECT_TRUE(noneWere);
    EXPECT_THAT(inputs(), IsEmpty());
}

TEST_F(Window, EscapeLeavesTheDialogAndEnterAdds)
{
    PostMessageW(GetDlgItem(openListOfMaterials(), PropertyListWindow::idList), WM_KEYDOWN,
                 VK_ESCAPE, 0);
    const bool isLeft = waitUntil([&] { return !form.isDialogOpen(); });
    form.settle();
    const auto afterEscape = inputs();
    form.press("InputsButton");
    form.tick(0);
    PostMessageW(form.list(), WM_KEYDOWN, VK_RETURN, 0);
    const bool isAdded = waitUntil([&] { return !form.isDialogOpen(); });
    form.settle();

    EXPECT_TRUE(isLeft);
    EXPECT_THAT(afterEscape, IsEmpty());
    EXPECT_TRUE(isAdded);
    EXPECT_THAT(inputs(), Not(IsEmpty()));
}

TEST_F(Window, TheDialogsListTakesTheSpaceWhenItGrows)
{
    const HWND dialog = openListOfMaterials();
    const HWND list = GetDlgItem(dialog, PropertyListWindow::idList);
    RECT dialogBefore{};
    RECT before{};
    RECT after{};
    GetWindowRect(dialog, &dialogBefore);
    GetWindowRect(list, &before);

    SetWindowPos(dialog, nullptr, 0, 0, dialogBefore.right - dialogBefore.left + 100,
                 dialogBefore.bottom - dialogBefore.top + 50, SWP_NOMOVE | SWP_NOZORDER);
    GetWindowRect(list, &after);
    form.pressInDialog(PropertyListWindow::idCancel);

    EXPECT_EQ(after.right - after.left, before.right - before.left + 100);
    EXPECT_EQ(after.bottom - after.top, before.bottom - before.top + 50);
}

TEST_F(Window, ALineNamesTheModelAndCountsTheRows)
{
    const HWND content = GetParent(form.control("StatusLine"));
    const auto line = [&] {
        return driver::textOf(GetDlgItem(content, window::MainWindow::idModelLine));
    };
    const std::string empty = line();
    addMaterials({"Ex", "Density"});
    form.selectRows("InputsList", 1, 2);
    const std::string selected = line();
    form.press("GenerateButton");
    form.settle();

    EXPECT_EQ(empty, "panel.neu: no rows");
    EXPECT_EQ(selected, "panel.neu: 6 rows, 2 selected, 6 not applied");
    EXPECT_EQ(line(), "panel.neu: 6 rows, 2 selected, all applied");
}

TEST_F(Window, RemoveSelectedTakesTheSelectedRows)
{
    addMaterials({"Ex", "Density"});

    form.selectRows("InputsList", 1, 2);
    form.press("ClearInputSelection");
    form.settle();

    EXPECT_THAT(inputs(), ElementsAre("DensityAtMatl1", "ExAtMatl1", "ExAtMatl2", "ExAtMatl3"));
}

TEST_F(Window, DeleteKeyTakesTheSelectedRowsAndOtherKeysNone)
{
    addMaterials({"Ex", "Density"});

    form.selectRows("InputsList", 3, 5);
    form.key("InputsList", VK_DELETE);
    const auto afterDelete = inputs();
    form.key("InputsList", VK_BACK);
    form.key("InputsList", VK_F5);

    EXPECT_THAT(afterDelete, ElementsAre("DensityAtMatl1", "DensityAtMatl2", "DensityAtMatl3"));
    EXPECT_EQ(inputs(), afterDelete);
}

TEST_F(Window, ASelectionHasNoHoles)
{
    addMaterials({"Ex"});

    form.click("InputsList", 0);
    form.markRow("InputsList", 2, true);
    form.settle();

    EXPECT_EQ(form.selectedRows("InputsList").size(), 1u);
}

TEST_F(Window, ClickingBesideTheRowsKeepsASelection)
{
    addMaterials({"Ex"});
    form.selectRows("InputsList", 1, 1);

    form.click("InputsList", 5);

    EXPECT_THAT(form.selectedRows("InputsList"), ElementsAre(1));
}

TEST_F(Window, ClearAllEmptiesBothGrids)
{
    addMaterials({"Ex"});
    form.choose("OutputSelection", "Mass Properties");
    form.press("OutputsButton");
    form.add({form.offered().front()});
    const auto outputsBefore = form.rows("OutputsList");

    form.press("ClearAll");
    form.settle();

    EXPECT_THAT(outputsBefore, Not(IsEmpty()));
    EXPECT_THAT(form.rows("InputsList"), IsEmpty());
    EXPECT_THAT(form.rows("OutputsList"), IsEmpty());
}

TEST_F(Window, ATypedTextIsTakenOverByEnter)
{
    form.type("Optimizer", L"Ombra");
    addMaterials({"Ex"});
    form.press("GenerateButton");
    form.settle();

    EXPECT_EQ(form.text("Optimizer"), "Ombra");
    EXPECT_TRUE(files.has("panel.pcs"));
    EXPECT_THAT(files.read("panelControl.txt"), HasSubstr("ExAtMatl1"));
}

TEST_F(Window, ChoosingTheOtherSolverChangesTheCommandLine)
{
    const std::string before = form.text("CommandLine");

    form.choose("Solver", "NENastran");

    EXPECT_NE(form.text("CommandLine"), before);
}

TEST_F(Window, ApplyWritesTheFilesWithTheTypedCommandLine)
{
    addMaterials({"Ex"});
    form.setText("CommandLine", L"solve \"a b\" 50%");
    form.press("GenerateButton");
    form.settle();

    EXPECT_THAT(files.read("panelControl.txt"), HasSubstr("ExAtMatl1"));
    EXPECT_EQ(files.read("FDFemap.bat"), "solve \"a b\" 50%\r\n");
    EXPECT_TRUE(files.has("CAEInput.txt"));
}

TEST_F(Window, EventThatEndsFemapClosesTheFormAndItsDialog)
{
    openListOfMaterials();

    form.sendEvent(shutdown);

    EXPECT_EQ(process.exitCode(), 0u);
    EXPECT_THAT(files.log(), HasSubstr("Setting Main femap instance to Nothing"));
}

TEST_F(Window, EventsOfModelsLeaveTheFormUsable)
{
    for (const WPARAM code : {newModel, endModel, WPARAM{1}, WPARAM{12}, WPARAM{99}})
        form.sendEvent(code);
    form.settle();
    addMaterials({"Ex"});

    EXPECT_THAT(inputs(), ElementsAre("ExAtMatl1", "ExAtMatl2", "ExAtMatl3"));
    EXPECT_TRUE(form.isEnabled("GenerateButton"));
}

TEST_F(Window, AnEventThatComesWithTheDialogOpenIsHandledAfterIt)
{
    openListOfMaterials();

    form.sendEvent(newModel);
    form.add({"Ex"});

    EXPECT_THAT(inputs(), ElementsAre("ExAtMatl1", "ExAtMatl2", "ExAtMatl3"));
}

TEST_F(Window, ClosingUnloadsTheForm)
{
    PostMessageW(form.window(), WM_CLOSE, 0, 0);

    EXPECT_EQ(process.exitCode(), 0u);
    EXPECT_THAT(files.log(), HasSubstr("Unloading the form"));
}

TEST_F(Window, ACloseWhileTheDialogIsOpenIsCarriedOutAfterIt)
{
    openListOfMaterials();

    PostMessageW(form.window(), WM_CLOSE, 0, 0);
    form.settle();
    const bool wasStillOpen = form.isDialogOpen();
    PostMessageW(GetDlgItem(form.dialog(), PropertyListWindow::idCancel), BM_CLICK, 0, 0);

    EXPECT_TRUE(wasStillOpen);
    EXPECT_EQ(process.exitCode(), 0u);
}

}  // namespace
