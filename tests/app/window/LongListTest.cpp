#include "Hand.h"
#include "ListViews.h"
#include "WindowFixture.h"
#include "app/window/PropertyListWindow.h"
#include "fake/NeutralText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <commctrl.h>
#include <fstream>

using driver::FormDriver;
using driver::FormFiles;
using driver::isTicked;
using driver::Process;
using driver::waitUntil;
using window::PropertyListWindow;

namespace
{

constexpr int vectorCount = 10000;
constexpr int middle = vectorCount / 2;
constexpr int last = vectorCount - 1;

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
        list = form->list();
        ASSERT_EQ(ask(LVM_GETITEMCOUNT), vectorCount);
        hand.awaitKeyboardAt(dialog);
    }

    int ask(UINT message, WPARAM item = 0) const
    {
        return static_cast<int>(SendMessageW(list, message, item, 0));
    }
    /// Asking for each line in turn would take long.
    bool become(const std::vector<int>& ticked, const std::vector<int>& unticked) const
    {
        return waitUntil([&] {
            return std::ranges::all_of(ticked, [&](int row) { return isTicked(list, row); }) &&
                   std::ranges::none_of(unticked, [&](int row) { return isTicked(list, row); });
        });
    }
    bool allBecomeTicked() const { return become({0, 1, 77, middle, last}, {}); }
    bool allBecomeUnticked() const { return become({}, {0, 1, 77, middle, last}); }
    void clickRow(int row, const std::string& held = "")
    {
        hand.clickAt(driver::placeIn(list, driver::rowPlaceIn(list, row)), held);
    }
};

TEST_F(LongList, TheMouseTicksALineOrAStretchAnywhereInTheLine)
{
    clickRow(0);
    const bool one = become({0}, {1, middle, last});
    clickRow(9, "shift");
    const bool ten = become({0, 1, 5, 8, 9}, {10, middle, last});
    clickRow(5);
    const bool nine = become({0, 4, 6, 9}, {5, 10});
    const POINT onText = driver::rowPlaceIn(list, 12);
    hand.clickAt(driver::placeIn(list, {5, onText.y}));
    const bool tenByTheBox = become({0, 4, 6, 9, 12}, {5, 10, 11, 13});

    EXPECT_TRUE(one);
    EXPECT_TRUE(ten);
    EXPECT_TRUE(nine);
    EXPECT_TRUE(tenByTheBox);
}

TEST_F(LongList, ADoubleClickTicksTheLineAndAcceptsNothing)
{
    hand.doubleClickAt(driver::placeIn(list, driver::rowPlaceIn(list, 3)));
    const bool isTickedNow = become({3}, {2, 4});
    form->settle();

    EXPECT_TRUE(isTickedNow);
    EXPECT_TRUE(form->isDialogOpen());
}

TEST_F(LongList, TheKeyboardTicksAndScrolls)
{
    hand.key({"space"});
    const bool one = become({0}, {1, last});
    hand.key({"shift+Down", "shift+Down"});
    const bool three = become({0, 1, 2}, {3, last});
    hand.key({"shift+End"});
    const bool all = allBecomeTicked();
    const int top = ask(LVM_GETTOPINDEX);
    hand.key({"shift+Home"});
    const bool oneAgain = become({0}, {1, middle, last});
    hand.key({"ctrl+a"});
    const bool allAgain = allBecomeTicked();
    hand.type("60077");
    const bool isFound = waitUntil([&] {
        return SendMessageW(list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED) == 77;
    });

    EXPECT_TRUE(one);
    EXPECT_TRUE(three);
    EXPECT_TRUE(all);
    EXPECT_GT(top, vectorCount - 100) << "the list shows its end";
    EXPECT_TRUE(oneAgain);
    EXPECT_TRUE(allAgain);
    EXPECT_TRUE(isFound);
}

TEST_F(LongList, TheWheelScrolls)
{
    clickRow(0);
    become({0}, {1});

    hand.turnWheel(driver::middleOf(list), -3);

    EXPECT_TRUE(waitUntil([&] { return ask(LVM_GETTOPINDEX) >= 3; }));
    EXPECT_TRUE(become({0}, {1, 2, 3, last}));
}

TEST_F(LongList, AccessKeysPressTheButtons)
{
    hand.key({"alt+s"});
    const bool all = allBecomeTicked();
    hand.key({"alt+d"});
    const bool none = allBecomeUnticked();
    hand.key({"alt+c"});

    EXPECT_TRUE(all);
    EXPECT_TRUE(none);
    EXPECT_TRUE(waitUntil([&] { return IsWindow(dialog) == FALSE; }));
}

TEST_F(LongList, SelectAllAndAddGiveARowForEachExtreme)
{
    form->pressInDialog(PropertyListWindow::idSelect);
    const bool all = allBecomeTicked();
    form->pressInDialog(PropertyListWindow::idAdd);

    EXPECT_TRUE(all);
    EXPECT_TRUE(waitUntil([&] { return form->rowCount("OutputsList") == 2 * vectorCount; },
                          std::chrono::seconds(60)));
}

}  // namespace
