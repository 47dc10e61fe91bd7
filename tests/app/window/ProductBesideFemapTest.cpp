#include "Hand.h"
#include "ProductFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using driver::StandIn;
using driver::waitUntil;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace
{

using ProductBesideFemap = driver::Product;

TEST_F(ProductBesideFemap, RegistersItsWindowAsAPane)
{
    start();

    const std::string window =
        std::to_string(static_cast<int>(reinterpret_cast<INT_PTR>(form->window())));
    EXPECT_EQ(femap.registrations(), "1 " + window + " " + window + " 0 0 2 0\n");
}

TEST_F(ProductBesideFemap, FillsTheGridsAndWritesTheFiles)
{
    start();
    addMaterials("1-2", {"Ex", "Density"});
    form->choose("OutputSelection", "Mass Properties");
    femap.pick("all");
    form->press("OutputsButton");
    form->add({form->offered().front()});
    const auto outputs = form->rows("OutputsList");
    form->press("GenerateButton");
    form->settle();

    EXPECT_THAT(inputs(),
                ElementsAre("DensityAtMatl1", "DensityAtMatl2", "ExAtMatl1", "ExAtMatl2"));
    EXPECT_THAT(outputs, Not(IsEmpty()));
    EXPECT_THAT(files.read("panelControl.txt"), HasSubstr("DensityAtMatl2\t"));
    EXPECT_TRUE(files.has("CAEInput.txt"));
    EXPECT_TRUE(files.has("FDFemap.bat"));
    EXPECT_EQ(femap.lockCount(), 0);
}

TEST_F(ProductBesideFemap, RestoresTheSelectionOfTheLastApply)
{
    start();
    addMaterials("1", {"Ex"});
    form->press("GenerateButton");
    form->settle();
    const auto before = inputs();
    PostMessageW(form->window(), WM_CLOSE, 0, 0);
    process->exitCode();

    start();

    EXPECT_EQ(inputs(), before);
}

TEST_F(ProductBesideFemap, ACancelledPickShowsNoDialogAndAddsNothing)
{
    start();
    femap.pick("cancel");
    form->choose("InputSelection", "Materials");
    form->press("InputsButton");
    form->settle();

    EXPECT_FALSE(form->isDialogOpen());
    EXPECT_THAT(inputs(), IsEmpty());
}

TEST_F(ProductBesideFemap, OpensTheModelOfAQuotedCommandLine)
{
    const std::filesystem::path other = files.folder() / "a b.neu";
    std::filesystem::copy_file(files.folder() / "panel.neu", other);

    start(L'"' + other.wstring() + L"\"$\"form.log\"$\"DEBUG\"");
    const std::string commandLine = form->text("CommandLine");
    PostMessageW(form->window(), WM_CLOSE, 0, 0);
    process->exitCode();

    EXPECT_THAT(files.log(), HasSubstr("Opened file: " + other.string()));
    EXPECT_THAT(files.log(), HasSubstr("Loglevel:DEBUG"));
    EXPECT_THAT(commandLine, HasSubstr("a b"));
}

TEST_F(ProductBesideFemap, AModelThatCannotBeOpenedIsNamedOnTheStatusLine)
{
    start(L"missing.neu$form.log$DEBUG");

    EXPECT_THAT(form->text("StatusLine"), HasSubstr("missing.neu"));
    EXPECT_TRUE(form->isEnabled("InputsButton")) << "the model that was open still is";
}

TEST_F(ProductBesideFemap, AnEmptyCommandLineGivesAFormWithoutALog)
{
    start(L"");

    EXPECT_THAT(form->text("CommandLine"), StartsWith("nastran "));
    EXPECT_FALSE(files.has("korva"));
}

TEST_F(ProductBesideFemap, FemapsEndUnloadsTheFormAndTakesThePaneBack)
{
    start();
    const std::string window =
        std::to_string(static_cast<int>(reinterpret_cast<INT_PTR>(form->window())));

    femap.sendEvent(4);

    EXPECT_EQ(process->exitCode(), 0u);
    EXPECT_THAT(femap.registrations(), HasSubstr("0 " + window + " " + window + " 0 0 1 0\n"));
}

TEST_F(ProductBesideFemap, AModelThatIsClosedEndsTheFormWhenItWasTheLast)
{
    const int before = femap.objectCount();
    start();
    femap.setModel("none");

    femap.sendEvent(3);

    EXPECT_EQ(process->exitCode(), 0u);
    EXPECT_TRUE(waitUntil([&] { return femap.objectCount() <= before; }));
    EXPECT_THAT(files.log(), HasSubstr("Unloading the form"));
}

TEST_F(ProductBesideFemap, AModelThatIsClosedLeavesTheFormToTheOthers)
{
    start();
    addMaterials("1", {"Ex"});

    femap.sendEvent(3);
    addMaterials("2", {"Ex"});

    EXPECT_TRUE(form->isEnabled("InputsButton"));
    EXPECT_THAT(inputs(), ElementsAre("ExAtMatl1", "ExAtMatl2"));
}

TEST_F(ProductBesideFemap, ControlsAreOnWhileFemapHasAModelOpen)
{
    start();
    femap.setModel("none");
    femap.sendEvent(2);
    const bool isOff = waitUntil([&] { return !form->isEnabled("GenerateButton"); });

    femap.setModel("untitled");
    femap.sendEvent(2);

    EXPECT_TRUE(isOff);
    EXPECT_TRUE(waitUntil([&] { return form->isEnabled("GenerateButton"); }));
}

TEST_F(ProductBesideFemap, FemapsEndLeavesNothingBehind)
{
    const int before = femap.objectCount();
    start();
    addMaterials("1", {"Ex"});
    femap.pick("1");
    form->press("InputsButton");
    form->dialog();
    const HWND window = form->window();

    femap.sendEvent(4);

    EXPECT_EQ(process->exitCode(), 0u);
    EXPECT_FALSE(IsWindow(window));
    EXPECT_TRUE(waitUntil([&] { return femap.objectCount() <= before; }));
    EXPECT_EQ(femap.lockCount(), 0);
    EXPECT_THAT(files.log(), HasSubstr("Setting Main femap instance to Nothing"));
}

TEST_F(ProductBesideFemap, LeavesNoReferenceBehind)
{
    const int before = femap.objectCount();
    start();
    addMaterials("1", {"Ex"});
    PostMessageW(form->window(), WM_CLOSE, 0, 0);
    process->exitCode();

    EXPECT_TRUE(waitUntil([&] { return femap.objectCount() <= before; }));
}

TEST_F(ProductBesideFemap, AnyArgumentsGiveAForm)
{
    for (const wchar_t* const arguments :
         {L"$$$$$$", L"\"\"\"", L"\"a$b", L"$no/such\\:name?$DEBUG", L"   $x$NOTHING  "}) {
        start(arguments);
        form->setText("CommandLine", L"solve");
        PostMessageW(form->window(), WM_CLOSE, 0, 0);

        EXPECT_EQ(process->exitCode(), 0u);
    }
}

TEST_F(ProductBesideFemap, ADoubleClickOnAButtonOpensFemapsDialogOnce)
{
    start();
    form->choose("InputSelection", "Materials");
    driver::Hand hand;
    hand.awaitKeyboardAt(form->window());
    const auto dialog = [&] { return driver::visibleWindow(femap.processID(), L"#32770"); };

    hand.doubleClickAt(driver::middleOf(form->control("InputsButton")));
    const bool isOpen = waitUntil([&] { return dialog() != nullptr; });
    const HWND first = dialog();
    PostMessageW(GetDlgItem(first, IDCANCEL), BM_CLICK, 0, 0);
    waitUntil([&] { return IsWindow(first) == FALSE; });
    const bool isOpenAgain =
        waitUntil([&] { return dialog() != nullptr; }, std::chrono::milliseconds(500));
    PostMessageW(form->window(), WM_CLOSE, 0, 0);

    EXPECT_TRUE(isOpen);
    EXPECT_FALSE(isOpenAgain);
    EXPECT_EQ(process->exitCode(), 0U);
}

TEST_F(ProductBesideFemap, TheCloseBoxAndItsKeysWorkWhileFemapIsBusy)
{
    for (const bool byKeys : {false, true}) {
        start();
        driver::Hand hand;
        hand.awaitKeyboardAt(form->window());
        RECT frame{};
        GetWindowRect(form->window(), &frame);
        femap.beBusy(8);
        form->press("RefreshInputs");
        waitUntil([&] { return IsWindowEnabled(form->control("pbOuter")) == FALSE; });

        if (byKeys)
            hand.key({"alt+F4"});
        else
            hand.clickAt({frame.right - 14, frame.top + 14});

        EXPECT_EQ(process->exitCode(), 0U);
    }
}

TEST_F(ProductBesideFemap, ADeadFemapLeavesTheRowsAndAMessage)
{
    start();
    addMaterials("1-2", {"Ex"});
    const auto before = inputs();

    femap.kill();
    form->press("RefreshInputs");
    const bool isTold = waitUntil(
        [&] { return form->text("StatusLine").find("cannot be reached") != std::string::npos; });

    EXPECT_TRUE(isTold);
    EXPECT_EQ(inputs(), before);
    EXPECT_FALSE(form->isEnabled("InputsButton"));
    EXPECT_TRUE(form->isEnabled("ClearInputSelection"));
    form->selectRows("InputsList", 0, 0);
    form->press("ClearInputSelection");
    form->settle();
    EXPECT_THAT(inputs(), ElementsAre("ExAtMatl2"));
    PostMessageW(form->window(), WM_CLOSE, 0, 0);
    EXPECT_EQ(process->exitCode(), 0u);
}

TEST_F(ProductBesideFemap, AFemapThatIsBackWakesTheForm)
{
    start();
    addMaterials("1-2", {"Ex"});
    const auto before = inputs();
    femap.kill();
    form->press("RefreshInputs");
    waitUntil([&] { return !form->isEnabled("InputsButton"); });

    StandIn again(files.folder() / "panel.neu");
    const bool isAwake = waitUntil([&] { return form->isEnabled("InputsButton"); });

    EXPECT_TRUE(isAwake);
    EXPECT_THAT(form->text("StatusLine"), StartsWith("FEMAP is back."));
    EXPECT_EQ(inputs(), before);
    EXPECT_THAT(again.registrations(), Not(IsEmpty()));
    form->press("GenerateButton");
    form->settle();
    EXPECT_TRUE(files.has("panelControl.txt"));
    PostMessageW(form->window(), WM_CLOSE, 0, 0);
    EXPECT_EQ(process->exitCode(), 0u);
}

}  // namespace
