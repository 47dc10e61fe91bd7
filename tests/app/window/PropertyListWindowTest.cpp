#include "FormDriver.h"
#include "ListViews.h"
#include "app/window/PropertyListWindow.h"
#include "fake/FakeConnector.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

using driver::isTicked;
using selection::frmPropertyList;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Lt;
using window::PropertyListWindow;

namespace
{

using Texts = std::vector<std::string>;

// The dialog in this process; while it is open, the test acts on it.
struct PropertyList : testing::Test
{
    struct NoDialogs : femap::SelectionDialogs
    {
        femap::Selection answer(femap::EntityType, const std::string&, bool,
                                const std::vector<int>&) override
        {
            return {};
        }
    };
    NoDialogs dialogs;
    femap::embedded::Host femap{dialogs};
    fake::FakeConnector connector{femap};
    PropertyListWindow shown{[] { return HWND{}; }};
    frmPropertyList dialog{connector, shown};
    static inline PropertyList* running = nullptr;
    std::function<void()> engineer;
    HWND window = nullptr;
    int linesAskedFor = 0;

    static LRESULT CALLBACK listen(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                   UINT_PTR, DWORD_PTR self)
    {
        if (message == WM_NOTIFY &&
            reinterpret_cast<const NMHDR*>(lParam)->code == LVN_GETDISPINFOW)
            ++reinterpret_cast<PropertyList*>(self)->linesAskedFor;
        return DefSubclassProc(window, message, wParam, lParam);
    }
    static void CALLBACK act(HWND, UINT, UINT_PTR timer, DWORD)
    {
        KillTimer(nullptr, timer);
        running->window = FindWindowW(L"#32770", L"Select Properties");
        SetWindowSubclass(running->window, listen, 1, reinterpret_cast<DWORD_PTR>(running));
        running->engineer();
    }
    HWND control(int id) const { return GetDlgItem(window, id); }
    HWND list() const { return control(PropertyListWindow::idList); }
    std::string line() const { return driver::textOf(control(PropertyListWindow::idAsked)); }
    void press(int id) const { SendMessageW(control(id), BM_CLICK, 0, 0); }
    void key(WPARAM code) const { SendMessageW(list(), WM_KEYDOWN, code, 0); }
    void type(const char* letters) const
    {
        for (; *letters != '\0'; ++letters)
            SendMessageW(list(), WM_CHAR, static_cast<WPARAM>(*letters), 0);
    }
    static void hold(int key, bool isDown)
    {
        BYTE keys[256]{};
        keys[key] = isDown ? 0x80 : 0;
        SetKeyboardState(keys);
    }
    int current() const
    {
        return static_cast<int>(
            SendMessageW(list(), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED));
    }

    void show(const Texts& items, const std::function<void()>& what)
    {
        dialog.lstProperties.items.clear();
        for (const std::string& item : items)
            dialog.lstProperties.items.push_back({item});
        engineer = what;
        running = this;
        SetTimer(nullptr, 0, 1, act);
        shown.showModal(dialog);
    }
    Texts ticked() const
    {
        Texts result;
        for (const auto& item : dialog.lstProperties.items)
            if (item.selected)
                result.push_back(item.text);
        return result;
    }
    void add() const { press(PropertyListWindow::idAdd); }
    void cancel() const { press(PropertyListWindow::idCancel); }
};

Texts numbered(int count)
{
    Texts texts;
    for (int i = 0; i < count; ++i)
        texts.push_back(std::to_string(60000 + i) + " - Stress " + std::to_string(i));
    return texts;
}

TEST_F(PropertyList, TicksNothingByItself)
{
    show({"a", "b"}, [&] { add(); });

    EXPECT_THAT(ticked(), IsEmpty());
}

TEST_F(PropertyList, BeginsANewWordAfterATick)
{
    show({"Ex", "Ey", "Density"}, [&] {
        type("ey");
        key(VK_SPACE);
        type("de");
        key(VK_SPACE);
        add();
    });

    EXPECT_THAT(ticked(), ElementsAre("Ey", "Density"));
}

TEST_F(PropertyList, TicksTheCurrentLineBySpaceAndTakesTheTickAwayByAnotherOne)
{
    show({"a", "b"}, [&] {
        key(VK_SPACE);
        EXPECT_TRUE(isTicked(list(), 0));
        EXPECT_THAT(ticked(), ElementsAre("a"));
        key(VK_SPACE);
        EXPECT_FALSE(isTicked(list(), 0));
        key(VK_DOWN);
        key(VK_SPACE);
        add();
    });

    EXPECT_THAT(ticked(), ElementsAre("b"));
}

TEST_F(PropertyList, ShiftDrawsAStretchOutAndBack)
{
    show({"a", "b", "c", "d", "e"}, [&] {
        key(VK_SPACE);
        hold(VK_SHIFT, true);
        key(VK_DOWN);
        key(VK_DOWN);
        key(VK_DOWN);
        EXPECT_THAT(ticked(), ElementsAre("a", "b", "c", "d"));
        key(VK_UP);
        hold(VK_SHIFT, false);
        add();
    });

    EXPECT_THAT(ticked(), ElementsAre("a", "b", "c"));
}

TEST_F(PropertyList, ShiftWithSpaceTicksFromTheLastPlaceToHere)
{
    show({"a", "b", "c", "d"}, [&] {
        key(VK_DOWN);
        key(VK_SPACE);
        type("d");
        key(VK_UP);
        hold(VK_SHIFT, true);
        key(VK_SPACE);
        hold(VK_SHIFT, false);
        EXPECT_THAT(ticked(), ElementsAre("b", "c"));
        cancel();
    });
}

TEST_F(PropertyList, SelectAllDeselectAllAndCtrlAMeanEveryLine)
{
    show({"a", "b"}, [&] {
        press(PropertyListWindow::idSelect);
        EXPECT_THAT(ticked(), ElementsAre("a", "b"));
        press(PropertyListWindow::idDeSelect);
        EXPECT_THAT(ticked(), IsEmpty());
        hold(VK_CONTROL, true);
        key('A');
        hold(VK_CONTROL, false);
        add();
    });

    EXPECT_THAT(ticked(), ElementsAre("a", "b"));
}

TEST_F(PropertyList, FindsWhatIsTypedAnywhereInALineWhateverItsCase)
{
    show({"1 - Total Translation", "2 - T1 Translation", "7033 - Plate Top VonMises"}, [&] {
        type("MISES");
        EXPECT_EQ(current(), 2);
        EXPECT_EQ(line(), "Typed: MISES");
        type("x");
        EXPECT_EQ(current(), 2);
        EXPECT_EQ(line(), "No line here has: MISESx");
        cancel();
    });
    EXPECT_THAT(ticked(), IsEmpty());
}

TEST_F(PropertyList, FindsByIDAndGoesRound)
{
    show({"1 - Total", "2 - T1", "7033 - Top"}, [&] {
        key(VK_END);
        type("2");
        EXPECT_EQ(current(), 1);
        cancel();
    });
}

TEST_F(PropertyList, TicksByF3WhatWasTickedInTheLastListOfThisKind)
{
    show({"a", "b", "c"}, [&] {
        key(PropertyListWindow::keyToTickAgain);
        EXPECT_EQ(line(), "No list of this kind was answered before");
        key(VK_SPACE);
        type("c");
        key(VK_SPACE);
        add();
    });
    show({"c", "d", "b"}, [&] {
        EXPECT_THAT(ticked(), IsEmpty());
        key(PropertyListWindow::keyToTickAgain);
        EXPECT_EQ(line(), "1 of 2 ticked as in the last list of this kind");
        add();
    });

    EXPECT_THAT(ticked(), ElementsAre("c"));
}

TEST_F(PropertyList, KeepsTheTicksOfListsOfOtherKindsApart)
{
    dialog.Label2 = "Plate Properties";
    show({"a"}, [&] {
        key(VK_SPACE);
        add();
    });
    dialog.Label2 = "Bar Properties";
    show({"a"}, [&] {
        key(PropertyListWindow::keyToTickAgain);
        add();
    });

    EXPECT_THAT(ticked(), IsEmpty());
}

TEST_F(PropertyList, TellsWhatItIsAskedFor)
{
    dialog.asked = {{1, 2, 3, 7}, 2, 7};
    show({"a"}, [&] {
        EXPECT_EQ(line(), "list 2 of 7: 1-3, 7");
        cancel();
    });
}

TEST_F(PropertyList, ShiftWithEscapeCancelsTheListsThatFollowInTheSameClick)
{
    int seen = 0;
    const auto leaveAll = [&] {
        ++seen;
        hold(VK_SHIFT, true);
        SendMessageW(window, WM_COMMAND, IDCANCEL, 0);
        hold(VK_SHIFT, false);
    };
    dialog.asked = {{}, 1, 3};
    show({"a"}, leaveAll);
    for (const int list : {2, 3}) {
        dialog.asked.list = list;
        dialog.Visible = true;
        shown.showModal(dialog);
        EXPECT_FALSE(dialog.Visible) << "it was cancelled";
    }
    dialog.asked.list = 1;
    show({"a"}, [&] {
        ++seen;
        cancel();
    });

    EXPECT_EQ(seen, 2);
}

TEST_F(PropertyList, AsksOnlyForTheLinesThatItShows)
{
    constexpr int many = 100000;
    show(numbered(many), [&] {
        UpdateWindow(list());
        press(PropertyListWindow::idSelect);
        UpdateWindow(list());
        type("159999");
        UpdateWindow(list());
        EXPECT_EQ(current(), many - 1);
        add();
    });

    EXPECT_THAT(linesAskedFor, Lt(2000));
    EXPECT_EQ(ticked().size(), many);
}

}  // namespace
