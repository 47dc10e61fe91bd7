#include "Hand.h"
#include "WindowFixture.h"
#include "app/window/PropertyListWindow.h"
#include "fake/NeutralText.h"

#include <gtest/gtest.h>

#include <fstream>

using driver::FormDriver;
using driver::FormFiles;
using driver::Process;
using driver::waitUntil;
using window::PropertyListWindow;

namespace
{

constexpr int vectorCount = 10000;

// A model with this many output vectors of elements, and the dialog that lists them.
struct LongList : testing::Test
{
    FormFiles files;
    std::unique_ptr<Process> process;
    std::unique_ptr<FormDriver> form;
    driver::Hand hand;
    HWND dialog = nullptr;
    HWND list = nullptr;

    void SetUp() override
    {
        constexpr int firstID = 60000;
        constexpr int ofElements = 8;
        std::string vectors;
        for (int i = 0; i < vectorCount; ++i)
            vectors += neutral::vectorHead(1, firstID + i, "Stress " + std::to_string(i),
                                           "0.,1.,1.,", ofElements) +
                       "1,0.5,\n-1,0.,\n";
        std::ofstream(files.folder() / "vectors.neu", std::ios::binary)
            << neutral::header() + neutral::block(450, "1,\nResult\n0,1,\n0.,\n1,\nNote\n") +
                   neutral::block(451, vectors);
        process = std::make_unique<Process>(driver::programPath("embedded-form.exe"),
                                            L"vectors.neu $form.log$DEBUG", files.folder());
        form = std::make_unique<FormDriver>(*process);
        hand.awaitKeyboardAt(form->window());
        form->choose("OutputSelection", "Elements Min/Max");
        form->press("OutputsButton");
        dialog = form->dialog();
        list = GetDlgItem(dialog, PropertyListWindow::idList);
        ASSERT_EQ(ask(LB_GETCOUNT), vectorCount);
        hand.awaitKeyboardAt(dialog);
    }

    int ask(UINT message, WPARAM item = 0) const
    {
        return static_cast<int>(SendMessageW(list, message, item, 0));
    }
    bool markedBecome(int count) const
    {
        return waitUntil([&] { return ask(LB_GETSELCOUNT) == count; });
    }
    void clickRow(int row, const std::string& held = "")
    {
        const int height = ask(LB_GETITEMHEIGHT);
        hand.clickAt(driver::placeIn(list, {20, height * row + height / 2}), held);
    }
};

TEST_F(LongList, TheMouseMarksOneAStretchOrOneMore)
{
    clickRow(0);
    const bool one = markedBecome(1);
    clickRow(9, "shift");
    const bool ten = markedBecome(10);
    clickRow(5, "ctrl");
    const bool nine = markedBecome(9);
    clickRow(12, "ctrl");
    const bool tenAgain = markedBecome(10);

    EXPECT_TRUE(one);
    EXPECT_TRUE(ten);
    EXPECT_TRUE(nine);
    EXPECT_TRUE(tenAgain);
    EXPECT_EQ(ask(LB_GETSEL, 5), 0);
    EXPECT_GT(ask(LB_GETSEL, 12), 0);
}

TEST_F(LongList, TheKeyboardMarksAndScrolls)
{
    clickRow(0);
    markedBecome(1);

    hand.key({"shift+Down", "shift+Down"});
    const bool three = markedBecome(3);
    hand.key({"shift+End"});
    const bool all = markedBecome(vectorCount);
    const int top = ask(LB_GETTOPINDEX);
    hand.key({"Home"});
    const bool one = markedBecome(1);

    EXPECT_TRUE(three);
    EXPECT_TRUE(all);
    EXPECT_GT(top, vectorCount - 100) << "the list shows its end";
    EXPECT_TRUE(one);
    EXPECT_EQ(ask(LB_GETTOPINDEX), 0);
}

TEST_F(LongList, TheWheelScrolls)
{
    clickRow(0);
    markedBecome(1);

    hand.turnWheel(driver::middleOf(list), -3);

    EXPECT_TRUE(waitUntil([&] { return ask(LB_GETTOPINDEX) >= 3; }));
    EXPECT_EQ(ask(LB_GETSELCOUNT), 1);
}

TEST_F(LongList, TheBarScrollsToTheLastItem)
{
    const int visible = [&] {
        RECT inside{};
        GetClientRect(list, &inside);
        return static_cast<int>(inside.bottom) / ask(LB_GETITEMHEIGHT);
    }();

    SendMessageW(list, WM_VSCROLL, SB_BOTTOM, 0);

    EXPECT_EQ(ask(LB_GETTOPINDEX), vectorCount - visible);
}

TEST_F(LongList, SelectAllAndAddGiveARowForEachExtreme)
{
    form->pressInDialog(PropertyListWindow::idSelect);
    const bool all = markedBecome(vectorCount);
    form->pressInDialog(PropertyListWindow::idAdd);

    EXPECT_TRUE(all);
    EXPECT_TRUE(waitUntil([&] { return form->rowCount("OutputsList") == 2 * vectorCount; },
                          std::chrono::seconds(60)));
}

}  // namespace
