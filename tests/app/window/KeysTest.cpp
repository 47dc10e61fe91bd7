#include "KeysFixture.h"
#include "RemoteMemory.h"
#include "app/window/PropertyListWindow.h"
#include "form/MainForm.h"
#include "windows/Text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cctype>

using driver::Keys;
using driver::waitUntil;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

TEST_F(Keys, DeleteTakesTheRowsThatArrowsSelected)
{
    addMaterials({"Ex", "Density"});
    clickRow("InputsList", 1);

    hand.key({"shift+Down", "shift+Down"});
    const bool areSelected = selectionBecomes("InputsList", 3);
    hand.key({"Delete"});

    EXPECT_TRUE(areSelected);
    EXPECT_TRUE(waitUntil([&] { return form.rowCount("InputsList") == 3; }));
    EXPECT_THAT(inputs(), ElementsAre("DensityAtMatl1", "ExAtMatl2", "ExAtMatl3"));
}

TEST_F(Keys, TypedLettersGoToTheRowThatBeginsWithThem)
{
    addMaterials({"Ex", "Density"});
    clickRow("InputsList", 1);
    const auto selected = [&] { return form.selectedRows("InputsList"); };

    hand.type("ex");
    const bool found = waitUntil([&] { return selected() == std::vector<int>{3}; });
    hand.type("q");
    hand.key({"Delete"});
    const bool isGone = waitUntil([&] { return form.rowCount("InputsList") == 5; });

    EXPECT_TRUE(found);
    EXPECT_TRUE(isGone);
    EXPECT_THAT(inputs(), ElementsAre("DensityAtMatl1", "DensityAtMatl2", "DensityAtMatl3",
                                      "ExAtMatl2", "ExAtMatl3"));
}

TEST_F(Keys, AClickOnAButtonTakesATypedTextOverAndPressesIt)
{
    addMaterials({"Ex"});
    hand.clickAt(driver::middleOf(form.control("Optimizer")));
    hand.key({"Home", "shift+End", "Delete"});
    hand.type("Ombra");
    waitUntil([&] { return form.text("Optimizer") == "Ombra"; });

    hand.clickAt(driver::middleOf(form.control("GenerateButton")));

    EXPECT_TRUE(waitUntil([&] { return files.has("panel.pcs"); }));
}

TEST_F(Keys, TabGoesThroughTheControlsFromTopToBottom)
{
    const std::vector<std::string> order = {
        "InputSelection",      "InputsButton",   "RefreshInputs",
        "ClearInputSelection", "InputsList",     "OutputSelection",
        "OutputsButton",       "RefreshOutputs", "ClearOutputSelection",
        "OutputsList",         "CommandLine",    "Solver",
        "Optimizer",           "ClearAll",       "GenerateButton"};
    hand.clickAt(driver::middleOf(form.control("InputSelection")));

    for (const std::string& name : order) {
        EXPECT_TRUE(focusComesTo(name)) << name;
        hand.key({"Tab"});
    }

    EXPECT_TRUE(focusComesTo("InputSelection")) << "the round is closed";
    hand.key({"shift+Tab"});
    EXPECT_TRUE(focusComesTo("GenerateButton"));
}

TEST_F(Keys, EnterInABoxTakesItsTextAlsoWhenThatStayedTheSame)
{
    const std::string before = form.text("CommandLine");
    form.setText("CommandLine", L"solve it");
    hand.clickAt(driver::placeIn(form.control("Solver"), {10, 8}));
    EXPECT_TRUE(focusComesTo("Solver"));

    hand.key({"Return"});

    EXPECT_TRUE(waitUntil([&] { return form.text("CommandLine") == before; }));
    EXPECT_EQ(form.text("Solver"), "NXNastran");
}

TEST_F(Keys, EnterInTheCommandLineChoosesNothing)
{
    form.setText("CommandLine", L"solve it");
    hand.clickAt(driver::middleOf(form.control("CommandLine")));
    EXPECT_TRUE(focusComesTo("CommandLine"));

    hand.key({"Return"});
    close();

    EXPECT_EQ(files.log().find("Solver_Click", files.log().find("At end of Load Form")),
              std::string::npos);
}

TEST_F(Keys, AccessKeysOfFieldsGoThere)
{
    form.window();
    for (const form::ControlRow& each : form::controlTable) {
        if (each.accessKey == 0)
            continue;
        const std::string name(each.name);
        wchar_t kind[32]{};
        GetClassNameW(form.control(name), kind, 32);
        if (std::wstring_view(kind) == L"Button")
            continue;

        hand.key({std::string("alt+") + static_cast<char>(each.accessKey - 'A' + 'a')});

        EXPECT_TRUE(focusComesTo(name)) << name;
    }
}

TEST_F(Keys, AccessKeysOfButtonsPressThem)
{
    addMaterials({"Ex"});
    addMass({"Area"});
    clickRow("InputsList", 0);
    clickRow("OutputsList", 0);
    hand.clickAt(driver::middleOf(form.control("CommandLine")));
    focusComesTo("CommandLine");

    hand.key({"alt+e"});
    const std::string inputHeading = form.heading();
    hand.key({"Escape"});
    hand.awaitKeyboardAt(form.window());
    hand.key({"alt+t"});
    const std::string outputHeading = form.heading();
    hand.key({"Escape"});
    hand.awaitKeyboardAt(form.window());
    // One at a time: what is pressed while a button does its work is dropped, as an x may be here.
    for (const char* const key : {"alt+r", "alt+f", "alt+m", "alt+v", "alt+a", "alt+l"}) {
        const std::string before = form.text("CommandLine");
        hand.key({key});
        EXPECT_TRUE(waitUntil([&] {
            hand.type("x");
            form.settle();
            return form.text("CommandLine") != before;
        })) << key;
    }
    close();

    EXPECT_EQ(inputHeading, "Material Properties");
    EXPECT_EQ(outputHeading, "Total Mesh Properties");
    const std::string log = files.log();
    std::size_t place = 0;
    for (const char* const line :
         {"At the start of RefreshInputs_Click", "At the start of RefreshOutputs_Click",
          "At start of ClearInputSelection_Click", "At start of ClearOutputSelection_Click",
          "Before Generating supporting files", "At start of ClearAll_Click"}) {
        place = log.find(line, place);
        ASSERT_NE(place, std::string::npos) << line;
    }
}

TEST_F(Keys, EachAccessKeyIsUnderlinedOnceInACaptionThatStaysAsItIs)
{
    std::string underlined;
    std::string keys;
    for (const form::ControlRow& each : form::controlTable) {
        if (each.accessKey != 0)
            keys += each.accessKey;
        if (each.caption.empty())
            continue;
        std::string text = form.text(each.name);
        const std::size_t mark = text.find('&');
        if (mark != std::string::npos) {
            underlined += static_cast<char>(std::toupper(text.at(mark + 1)));
            text.erase(mark, 1);
        }
        EXPECT_EQ(text, each.caption);
    }

    EXPECT_EQ(underlined, keys);
}

TEST_F(Keys, APointerThatRestsOnAButtonShowsWhatItDoesAndItsAccessKey)
{
    const HWND button = form.control("RefreshInputs");
    hand.moveTo(driver::middleOf(form.control("CommandLine")));
    const POINT middle = driver::middleOf(button);

    hand.moveTo(middle);
    hand.moveTo({middle.x + 3, middle.y});

    HWND tip = nullptr;
    ASSERT_TRUE(waitUntil([&] {
        tip = driver::visibleWindow(process.id(), TOOLTIPS_CLASSW);
        return tip != nullptr;
    }));
    constexpr std::size_t textAt = 512;
    driver::RemoteMemory there(process.handle(), 4096);
    TTTOOLINFOW tool{};
    tool.cbSize = sizeof tool;
    tool.uFlags = TTF_IDISHWND;
    tool.hwnd = form.window();
    tool.uId = reinterpret_cast<UINT_PTR>(button);
    tool.lpszText = reinterpret_cast<wchar_t*>(there.address(textAt));
    there.write(tool);
    SendMessageW(tip, TTM_GETTEXTW, 100, there.parameter());
    const std::wstring text = there.text(textAt, 100);
    EXPECT_EQ(windows::fromWide(text.c_str()),
              "Read the inputs' values from the model again  (Alt+R)");
}

TEST_F(Keys, EnterInTheDialogAddsAndEscapeLeavesIt)
{
    const HWND first = openListOfMaterials();
    hand.clickAt(driver::placeIn(GetDlgItem(first, window::PropertyListWindow::idList), {30, 8}));
    hand.key({"Escape"});
    const bool isLeft = waitUntil([&] { return IsWindow(first) == FALSE; });
    form.settle();
    const auto afterEscape = inputs();

    form.press("InputsButton");
    const HWND second = form.dialog();
    hand.clickAt(driver::placeIn(GetDlgItem(second, window::PropertyListWindow::idList), {30, 8}));
    hand.key({"Return"});
    const bool isAdded = waitUntil([&] { return IsWindow(second) == FALSE; });
    form.settle();

    EXPECT_TRUE(isLeft);
    EXPECT_THAT(afterEscape, IsEmpty());
    EXPECT_TRUE(isAdded);
    EXPECT_THAT(inputs(), ElementsAre("ExAtMatl1", "ExAtMatl2", "ExAtMatl3"));
}

TEST_F(Keys, AColumnThatTheMouseWidensStaysWide)
{
    const HWND list = form.control("InputsList");
    const auto width = [&] {
        return static_cast<int>(SendMessageW(list, LVM_GETCOLUMNWIDTH, 0, 0));
    };
    const int before = width();
    const POINT edge = driver::placeIn(list, {before - 1, 8});

    hand.drag(edge, {edge.x + 60, edge.y});
    const bool isWider = waitUntil([&] { return width() == before + 60; });
    addMaterials({"Ex"});
    form.press("ClearAll");
    form.settle();

    EXPECT_TRUE(isWider) << width() << " after " << before;
    EXPECT_EQ(width(), before + 60);
}

}  // namespace
