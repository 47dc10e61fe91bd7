#include "ClipboardText.h"
#include "KeysFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <thread>

using driver::clipboardText;
using driver::Keys;
using driver::putOnClipboard;
using driver::waitUntil;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

TEST_F(Keys, CtrlASelectsAllInputsAndCtrlCCopiesThemAsLinesOfCells)
{
    putOnClipboard(L"before");
    addMaterials({"Ex"});
    clickRow("InputsList", 1);

    hand.key({"ctrl+a"});
    const bool allAre = selectionBecomes("InputsList", 3);
    hand.key({"ctrl+c"});

    const std::string copied =
        "ExAtMatl1\t70000\tMatl\t1\tEx\t\r\n"
        "ExAtMatl2\t210000\tMatl\t2\tEx\t\r\n"
        "ExAtMatl3\t24000\tMatl\t3\tEx\t\r\n";
    EXPECT_TRUE(allAre);
    EXPECT_TRUE(waitUntil([&] { return clipboardText() == copied; })) << clipboardText();
}

TEST_F(Keys, WithShiftTheHeadingsAreCopiedAsWell)
{
    putOnClipboard(L"before");
    addMaterials({"Ex"});
    clickRow("InputsList", 1);

    hand.key({"ctrl+shift+c"});

    const std::string copied =
        "Variable Name\tValue\tType\tID\tMember\tIndex\r\n"
        "ExAtMatl2\t210000\tMatl\t2\tEx\t\r\n";
    EXPECT_TRUE(waitUntil([&] { return clipboardText() == copied; })) << clipboardText();
}

TEST_F(Keys, CtrlCCopiesTheSelectedOutputsOnly)
{
    putOnClipboard(L"before");
    addMass({"Length", "Area", "Volume"});
    form.selectRows("OutputsList", 1, 2);
    std::string copied;
    for (const int row : {1, 2}) {
        copied += form.cell("OutputsList", row, 0);
        for (int column = 1; column < 5; ++column)
            copied += '\t' + form.cell("OutputsList", row, column);
        copied += "\r\n";
    }
    hand.clickAt(driver::middleOf(form.control("CommandLine")));
    focusComesTo("CommandLine");

    hand.key({"shift+Tab", "shift+Tab", "shift+Tab"});
    hand.key({"Tab", "Tab", "Tab", "shift+Tab"});
    const bool isInGrid = focusComesTo("OutputsList");
    hand.key({"ctrl+c"});

    EXPECT_TRUE(isInGrid);
    EXPECT_TRUE(waitUntil([&] { return clipboardText() == copied; })) << clipboardText();
    EXPECT_THAT(form.selectedRows("OutputsList"), ElementsAre(1, 2));
}

TEST_F(Keys, CopyingWaitsForAProgramThatHasTheClipboardOpen)
{
    putOnClipboard(L"before");
    addMaterials({"Ex"});
    clickRow("InputsList", 0);
    OpenClipboard(nullptr);
    hand.key({"ctrl+c"});
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    CloseClipboard();

    EXPECT_TRUE(waitUntil([&] { return clipboardText().starts_with("ExAtMatl1\t"); }));
}

TEST_F(Keys, CtrlASelectsAllOutputs)
{
    addMass({"Length", "Area", "Volume"});
    clickRow("OutputsList", 0);

    hand.key({"ctrl+a"});

    EXPECT_TRUE(selectionBecomes("OutputsList", 3));
    EXPECT_THAT(form.selectedRows("InputsList"), IsEmpty());
}

TEST_F(Keys, AnEmptyGridLeavesTheClipboardAlone)
{
    putOnClipboard(L"before");
    clickRow("InputsList", 0);

    hand.key({"ctrl+a", "ctrl+c"});
    close();

    EXPECT_EQ(clipboardText(), "before");
}

}  // namespace
