#include "Hand.h"
#include "ProductFixture.h"
#include "RemoteMemory.h"
#include "windows/Text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

using driver::waitUntil;
using testing::HasSubstr;
using testing::Not;

namespace
{

// The form with rows in it, after FEMAP closed its model.
struct FormThatIsOff : driver::Product
{
    driver::Hand hand;
    HWND list = nullptr;

    void SetUp() override
    {
        start();
        hand.awaitKeyboardAt(form->window());
        femap.pick("1-60");
        form->press("InputsButton");
        form->add({"x", "y"});
        list = form->control("InputsList");
        femap.setModel("none");
        femap.sendEvent(2);
        ASSERT_TRUE(waitUntil([&] { return !form->isEnabled("GenerateButton"); }));
        form->settle();
    }
    POINT rowAt(int item) { return driver::placeIn(list, form->rowPlace("InputsList", item)); }
    int topRow() const { return static_cast<int>(SendMessageW(list, LVM_GETTOPINDEX, 0, 0)); }
    std::string clipboard()
    {
        if (OpenClipboard(nullptr) == FALSE)
            return {};
        const HANDLE data = GetClipboardData(CF_UNICODETEXT);
        const std::string text =
            data == nullptr ? "" : windows::fromWide(static_cast<const wchar_t*>(GlobalLock(data)));
        GlobalUnlock(data);
        CloseClipboard();
        return text;
    }
};

TEST_F(FormThatIsOff, KeepsItsStatusReadableAndItsButtonsOff)
{
    EXPECT_EQ(form->text("StatusLine"), "FEMAP has no model open.");
    EXPECT_TRUE(form->isEnabled("StatusLine"));
    for (const char* const name : {"InputsButton", "RefreshInputs", "ClearInputSelection", "Solver",
                                   "CommandLine", "ClearAll", "Label1"})
        EXPECT_FALSE(form->isEnabled(name)) << name;
}

TEST_F(FormThatIsOff, ShowsTheWholeListToTheWheel)
{
    hand.clickAt(rowAt(1));
    EXPECT_TRUE(waitUntil([&] { return form->hasFocus("InputsList"); }));

    hand.turnWheel(rowAt(1), -5);

    EXPECT_TRUE(waitUntil([&] { return topRow() >= 5; })) << topRow();
}

TEST_F(FormThatIsOff, LetsRowsBeCopied)
{
    hand.clickAt(rowAt(2));
    EXPECT_TRUE(waitUntil([&] { return form->hasFocus("InputsList"); }));
    hand.key({"shift+Down", "ctrl+c"});

    const std::string copied = form->cell("InputsList", 2, 0) + "\t";
    EXPECT_TRUE(waitUntil([&] { return clipboard().starts_with(copied); })) << clipboard();
    const std::string text = clipboard();
    EXPECT_EQ(std::ranges::count(text, '\n'), 2);
}

TEST_F(FormThatIsOff, RunsNothingForAKeyOrAClickInAList)
{
    const auto before = inputs();
    hand.clickAt(rowAt(0));
    EXPECT_TRUE(waitUntil([&] { return form->hasFocus("InputsList"); }));

    hand.key({"Delete", "ctrl+a", "Delete", "F5"});
    hand.clickAt(rowAt(1));
    form->settle();

    EXPECT_EQ(inputs(), before);
    EXPECT_EQ(form->text("StatusLine"), "FEMAP has no model open.");
    PostMessageW(form->window(), WM_CLOSE, 0, 0);
    EXPECT_EQ(process->exitCode(), 0U);
    EXPECT_THAT(files.log(), Not(HasSubstr("InputsList_KeyDown")));
}

TEST_F(FormThatIsOff, ScrollsToItsStatusLineInASmallPane)
{
    SetWindowPos(form->window(), nullptr, 0, 0, 400, 300, SWP_NOMOVE | SWP_NOZORDER);
    form->settle();
    const HWND bar = form->control("VScroll1");
    RECT place{};
    GetWindowRect(bar, &place);

    for (int i = 0; i < 4; ++i) {
        hand.clickAt({(place.left + place.right) / 2, place.bottom - 40});
        form->settle();
    }

    const RECT line = form->placeOf("StatusLine");
    const RECT view = form->placeOf("pbOuter");
    EXPECT_GE(line.top, view.top);
    EXPECT_LE(line.bottom, view.bottom);
}

TEST_F(FormThatIsOff, IsOnAgainWithAModel)
{
    femap.setModel("untitled");
    femap.sendEvent(2);
    ASSERT_TRUE(waitUntil([&] { return form->isEnabled("GenerateButton"); }));
    hand.clickAt(rowAt(0));
    EXPECT_TRUE(waitUntil([&] { return form->hasFocus("InputsList"); }));

    hand.key({"Delete"});

    EXPECT_TRUE(waitUntil([&] { return form->rowCount("InputsList") == 119; }));
}

// A long text that a tip shows whole.
TEST_F(FormThatIsOff, ShowsTheWholeStatusAsATip)
{
    const HWND line = form->control("StatusLine");
    hand.moveTo(driver::middleOf(form->control("CommandLine")));
    const POINT middle = driver::middleOf(line);

    hand.moveTo(middle);
    hand.moveTo({middle.x + 3, middle.y});

    HWND tip = nullptr;
    ASSERT_TRUE(waitUntil([&] {
        tip = driver::visibleWindow(process->id(), TOOLTIPS_CLASSW);
        return tip != nullptr;
    }));
    constexpr std::size_t textAt = 512;
    driver::RemoteMemory there(process->handle(), 4096);
    TTTOOLINFOW tool{};
    tool.cbSize = sizeof tool;
    tool.uFlags = TTF_IDISHWND;
    tool.hwnd = form->window();
    tool.uId = reinterpret_cast<UINT_PTR>(line);
    tool.lpszText = reinterpret_cast<wchar_t*>(there.address(textAt));
    there.write(tool);
    SendMessageW(tip, TTM_GETTEXTW, 1000, there.parameter());
    EXPECT_EQ(windows::fromWide(there.text(textAt, 200).c_str()), "FEMAP has no model open.");
    EXPECT_GT(SendMessageW(tip, TTM_GETMAXTIPWIDTH, 0, 0), 0) << "a long text breaks into lines";
}

}  // namespace
