#include "app/window/FormDriver.h"
#include "app/window/FormFiles.h"
#include "app/window/Hand.h"
#include "fake/NeutralText.h"
#include "standin/StandIn.h"
#include "windows/Text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <memory>

using driver::FormDriver;
using driver::Process;
using driver::StandIn;
using driver::waitUntil;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

// The window in which the stand-in for FEMAP asks what to pick, opened by the form.
struct SelectionWindow : testing::Test
{
    driver::FormFiles files;
    std::unique_ptr<StandIn> femap;
    std::unique_ptr<Process> process;
    std::unique_ptr<FormDriver> form;
    driver::Hand hand;
    HWND window = nullptr;
    HWND list = nullptr;
    HWND field = nullptr;

    void open(const std::string& kind, const std::string& model = "panel.neu")
    {
        femap = std::make_unique<StandIn>(files.folder() / model);
        process = std::make_unique<Process>(driver::programPath("VelmarFemapInterface.exe"),
                                            L"$form.log$DEBUG", files.folder());
        form = std::make_unique<FormDriver>(*process);
        hand.awaitKeyboardAt(form->window());
        form->choose("InputSelection", kind);
        form->press("InputsButton");
        ASSERT_TRUE(waitUntil([&] {
            window = driver::visibleWindow(femap->processID(), L"#32770");
            return window != nullptr;
        }));
        list = FindWindowExW(window, nullptr, L"ListBox", nullptr);
        field = FindWindowExW(window, nullptr, L"Edit", nullptr);
        ASSERT_TRUE(focusComesTo(list));
        hand.awaitKeyboardAt(window);
    }

    HWND focus() const
    {
        GUITHREADINFO info{};
        info.cbSize = sizeof info;
        GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &info);
        return info.hwndFocus;
    }
    bool focusComesTo(HWND control) const
    {
        return waitUntil([&] { return focus() == control; });
    }
    int ask(UINT message, WPARAM item = 0) const
    {
        return static_cast<int>(SendMessageW(list, message, item, 0));
    }
    std::string item(int place) const
    {
        std::wstring text(
            static_cast<std::size_t>(ask(LB_GETTEXTLEN, static_cast<WPARAM>(place))) + 1, L'\0');
        text.resize(static_cast<std::size_t>(SendMessageW(
            list, LB_GETTEXT, static_cast<WPARAM>(place), reinterpret_cast<LPARAM>(text.data()))));
        return windows::fromWide(text);
    }
    bool markedBecome(int count) const
    {
        return waitUntil([&] { return ask(LB_GETSELCOUNT) == count; });
    }
    bool isGone() const
    {
        return waitUntil([&] { return IsWindow(window) == FALSE; });
    }
    std::string said() const
    {
        HWND label = nullptr;
        HWND last = nullptr;
        while ((label = FindWindowExW(window, label, L"Static", nullptr)) != nullptr)
            last = label;
        return driver::textOf(last);
    }
};

TEST_F(SelectionWindow, ListsTheEntitiesWithTheirTitles)
{
    open("Materials");

    EXPECT_EQ(driver::textOf(window), "Select Materials to Control");
    EXPECT_EQ(ask(LB_GETCOUNT), 3);
    EXPECT_EQ(item(1), "2\tStahl S355 - gewalzt/geölt");
    EXPECT_EQ(said(), "0 of 3 marked");
    EXPECT_FALSE(IsWindowEnabled(GetDlgItem(window, IDOK)));
    hand.key({"Escape"});
    EXPECT_TRUE(isGone());
}

TEST_F(SelectionWindow, WorksByKeysAlone)
{
    open("Materials");

    hand.key({"ctrl+a"});
    const bool all = markedBecome(3);
    hand.key({"space"});
    const bool two = markedBecome(2);
    const bool isOn = waitUntil([&] { return said() == "2 of 3 marked"; });
    hand.key({"Tab"});
    const bool okIsNext = focusComesTo(GetDlgItem(window, IDOK));
    hand.key({"Tab"});
    const bool cancelIsNext = focusComesTo(GetDlgItem(window, IDCANCEL));
    hand.key({"Tab"});
    const bool fieldIsNext = focusComesTo(field);
    hand.key({"Return"});
    const bool isLeft = isGone();
    form->add({"Ex"});

    EXPECT_TRUE(all);
    EXPECT_TRUE(two);
    EXPECT_TRUE(isOn);
    EXPECT_TRUE(okIsNext);
    EXPECT_TRUE(cancelIsNext);
    EXPECT_TRUE(fieldIsNext);
    EXPECT_TRUE(isLeft);
    EXPECT_EQ(form->rows("InputsList", 1).size(), 2U);
}

TEST_F(SelectionWindow, TypedIDsMarkTheList)
{
    open("Properties");
    hand.clickAt(driver::middleOf(field));

    hand.type("2-4 7 99");

    EXPECT_TRUE(markedBecome(4));
    for (const int place : {1, 2, 3, 6})
        EXPECT_GT(ask(LB_GETSEL, static_cast<WPARAM>(place)), 0) << place;
    hand.key({"Home", "shift+End", "Delete"});
    EXPECT_TRUE(markedBecome(0));
    hand.type("4-x");
    EXPECT_TRUE(waitUntil([&] { return said() == "\"4-x\" is no range of IDs"; })) << said();
    hand.key({"Return"});
    EXPECT_TRUE(IsWindow(window)) << "there is nothing to pick";
    hand.key({"Escape"});
    EXPECT_TRUE(isGone());
}

TEST_F(SelectionWindow, EscapePicksNothing)
{
    open("Materials");
    hand.key({"ctrl+a"});
    markedBecome(3);

    hand.key({"Escape"});

    EXPECT_TRUE(isGone());
    form->settle();
    EXPECT_FALSE(form->isDialogOpen());
    EXPECT_THAT(form->rows("InputsList"), IsEmpty());
}

TEST_F(SelectionWindow, TakesOneOnlyWhereFemapDoes)
{
    open("Functions");
    const bool takesSeveral = (GetWindowLongPtrW(list, GWL_STYLE) & LBS_EXTENDEDSEL) != 0;
    hand.key({"Down"});
    waitUntil([&] { return ask(LB_GETCURSEL) >= 0; });
    const int place = ask(LB_GETCURSEL);

    hand.key({"Return"});

    EXPECT_FALSE(takesSeveral);
    EXPECT_TRUE(isGone());
    form->settle();
    EXPECT_THAT(
        form->rows("InputsList", 1),
        ElementsAre(place == 0 ? "Lasthistorie - Landung 1 g/2,5 g" : "E-Modul über Temperatur"));
}

TEST_F(SelectionWindow, HoldsAHundredThousandNodes)
{
    constexpr int count = 100'000;
    {
        std::string nodes;
        for (int id = 1; id <= count; ++id)
            nodes += std::to_string(id) + ",0,0,1,46,0,0,0,0,0,0,0.,0.,0.,0,0,\n";
        std::ofstream(files.folder() / "nodes.neu", std::ios::binary)
            << neutral::header() + neutral::block(403, nodes);
    }

    open("Nodes", "nodes.neu");
    const int listed = ask(LB_GETCOUNT);
    hand.clickAt(driver::middleOf(field));
    hand.type("1-99999");
    const bool most = markedBecome(count - 1);
    hand.clickAt(driver::placeIn(list, {20, 5}));
    const bool one = markedBecome(1);
    hand.key({"End"});
    const bool isAtEnd = waitUntil([&] { return ask(LB_GETTOPINDEX) > count - 100; });
    hand.key({"ctrl+a"});
    const bool all = markedBecome(count);
    hand.key({"Escape"});

    EXPECT_EQ(listed, count);
    EXPECT_TRUE(most);
    EXPECT_TRUE(one);
    EXPECT_TRUE(isAtEnd);
    EXPECT_TRUE(all);
    EXPECT_TRUE(isGone());
}

TEST_F(SelectionWindow, GrowsWithItsList)
{
    open("Materials");
    RECT frame{};
    RECT before{};
    RECT after{};
    GetWindowRect(window, &frame);
    GetWindowRect(list, &before);

    SetWindowPos(window, nullptr, 0, 0, frame.right - frame.left + 80,
                 frame.bottom - frame.top + 60, SWP_NOMOVE | SWP_NOZORDER);
    GetWindowRect(list, &after);
    hand.key({"Escape"});

    EXPECT_EQ(after.right - after.left, before.right - before.left + 80);
    EXPECT_EQ(after.bottom - after.top, before.bottom - before.top + 60);
    EXPECT_TRUE(isGone());
}

}  // namespace
