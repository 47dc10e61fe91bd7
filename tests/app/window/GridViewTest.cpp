#include "app/window/GridView.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

using form::ParameterGrid;
using testing::ElementsAre;
using window::GridView;

namespace
{

constexpr UINT byLetters = LVFI_STRING | LVFI_PARTIAL;
constexpr UINT around = byLetters | LVFI_WRAP;
constexpr UINT anyPart = 4;  // LVFI_SUBSTRING, another word for LVFI_PARTIAL

// A grid in a window of this test's own.
struct GridWindow : testing::Test
{
    static inline GridWindow* running = nullptr;
    ParameterGrid grid{6};
    std::unique_ptr<GridView> view;
    HWND parent = nullptr;
    std::vector<UINT> toList;  // messages that were sent to the list

    static LRESULT CALLBACK hearNotes(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
    {
        if (message == WM_NOTIFY && running->view != nullptr)
            return running->view->notify(*reinterpret_cast<const NMHDR*>(lParam));
        return DefWindowProcW(window, message, wParam, lParam);
    }
    static LRESULT CALLBACK listen(HWND list, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                   DWORD_PTR)
    {
        running->toList.push_back(message);
        return DefSubclassProc(list, message, wParam, lParam);
    }

    void SetUp() override
    {
        running = this;
        WNDCLASSW kind{};
        kind.lpfnWndProc = hearNotes;
        kind.lpszClassName = L"GridWindow";
        RegisterClassW(&kind);
        parent = CreateWindowExW(0, L"GridWindow", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 500,
                                 400, nullptr, nullptr, nullptr, nullptr);
        ASSERT_NE(parent, nullptr);
        view = std::make_unique<GridView>(parent, 1, grid, [](int) {});
        view->setResolution(window::Pixels(USER_DEFAULT_SCREEN_DPI));
        SetWindowSubclass(list(), listen, 2, 0);
        MoveWindow(list(), 0, 0, 480, 350, TRUE);
    }
    void TearDown() override
    {
        RemoveWindowSubclass(list(), listen, 2);
        view.reset();
        DestroyWindow(parent);
        UnregisterClassW(L"GridWindow", nullptr);
    }

    HWND list() const { return view->window(); }
    void fill(const std::vector<std::string>& names)
    {
        for (const std::string& name : names)
            grid.AddItem(name + "\t1");
        grid.RemoveItem(1);
        view->update();
    }
    void fillWith(int rows)
    {
        for (int row = 0; row < rows; ++row)
            grid.AddItem("Ex" + std::to_string(row) + "\t1");
        grid.RemoveItem(1);
        view->update();
    }

    // What the list view asks for when letters are typed.
    LRESULT find(const std::wstring& text, UINT flags, int start = 0) const
    {
        NMLVFINDITEMW question{};
        question.hdr = {list(), 1, LVN_ODFINDITEMW};
        question.iStart = start;
        question.lvfi.flags = flags;
        question.lvfi.psz = text.c_str();
        return view->notify(question.hdr);
    }

    // A key, or several one after the other, with Shift held down or not.
    void press(WPARAM key, bool shift = false) const
    {
        std::array<BYTE, 256> keys{};
        GetKeyboardState(keys.data());
        keys[VK_SHIFT] = shift ? 0x80 : 0;
        SetKeyboardState(keys.data());
        SendMessageW(list(), WM_KEYDOWN, key, 0);
        keys[VK_SHIFT] = 0;
        SetKeyboardState(keys.data());
        pump();
    }
    void click(int item) const
    {
        RECT place{LVIR_BOUNDS, 0, 0, 0};
        SendMessageW(list(), LVM_GETITEMRECT, static_cast<WPARAM>(item),
                     reinterpret_cast<LPARAM>(&place));
        const LPARAM there = MAKELPARAM(20, (place.top + place.bottom) / 2);
        PostMessageW(list(), WM_LBUTTONDOWN, MK_LBUTTON, there);
        PostMessageW(list(), WM_LBUTTONUP, 0, there);
        pump();
    }
    static void pump()
    {
        MSG message{};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE)
            DispatchMessageW(&message);
    }
    void mark(int item, bool marked) const
    {
        LVITEMW info{};
        info.state = marked ? LVIS_SELECTED : 0;
        info.stateMask = LVIS_SELECTED;
        SendMessageW(list(), LVM_SETITEMSTATE, static_cast<WPARAM>(item),
                     reinterpret_cast<LPARAM>(&info));
    }
    std::vector<int> marked() const
    {
        std::vector<int> result;
        for (int item = -1; (item = ListView_GetNextItem(list(), item, LVNI_SELECTED)) >= 0;)
            result.push_back(item);
        return result;
    }
    std::ptrdiff_t searches() const { return std::ranges::count(toList, UINT{LVM_GETNEXTITEM}); }
};

TEST_F(GridWindow, LettersFindTheNextRowThatBeginsWithThem)
{
    fill({"Alpha", "beta", "Bravo", "Charlie"});

    EXPECT_EQ(find(L"b", around, 0), 1);
    EXPECT_EQ(find(L"b", around, 2), 2);
    EXPECT_EQ(find(L"br", around, 0), 2);
    EXPECT_EQ(find(L"c", byLetters, 3), 3);
    EXPECT_EQ(find(L"b", LVFI_STRING | anyPart, 2), 2);
}

TEST_F(GridWindow, TheSearchGoesOnAtTheFirstRowWhereItMay)
{
    fill({"Alpha", "beta", "Bravo", "Charlie"});

    EXPECT_EQ(find(L"b", around, 3), 1);
    EXPECT_EQ(find(L"b", byLetters, 3), -1);
    EXPECT_EQ(find(L"a", around, 4), 0) << "from beyond the last row";
    EXPECT_EQ(find(L"a", byLetters, 4), -1);
    EXPECT_EQ(find(L"a", byLetters, -1), 0);
}

TEST_F(GridWindow, LettersThatNoRowBeginsWithFindNone)
{
    fill({"Alpha", "beta"});

    EXPECT_EQ(find(L"x", around), -1);
    EXPECT_EQ(find(L"lpha", around), -1);
    EXPECT_EQ(find(L"Alphas", around), -1);
}

TEST_F(GridWindow, AnEmptyGridHasNothingToFind)
{
    view->update();

    EXPECT_EQ(find(L"a", around), -1);
}

TEST_F(GridWindow, CapitalAndSmallLettersAreTheSameToASearch)
{
    fill({"Alpha", "\xC3\xA4hre",
          "Tr\xC3\xA4ger \xC3\x98"
          "12"});

    EXPECT_EQ(find(L"AL", around), 0);
    EXPECT_EQ(find(L"\u00C4", around), 1);
    EXPECT_EQ(find(L"TR\u00C4GER \u00F8", around), 2);
    EXPECT_EQ(find(L"tra", around), -1);
}

TEST_F(GridWindow, WithoutLeaveForPartsTheWholeNameMustBeTheSame)
{
    fill({"Alpha", "beta", "betatron"});

    EXPECT_EQ(find(L"BETA", LVFI_STRING), 1);
    EXPECT_EQ(find(L"betatro", LVFI_STRING), -1);
    EXPECT_EQ(find(L"betatron", LVFI_STRING, 1), 2);
    EXPECT_EQ(find(L"beta", LVFI_WRAP, 2), 1) << "to go round means to look for a text";
}

TEST_F(GridWindow, ASearchForAnythingButTextFindsNone)
{
    fill({"Alpha"});

    EXPECT_EQ(find(L"Alpha", LVFI_PARAM | LVFI_STRING), -1);
    EXPECT_EQ(find(L"Alpha", LVFI_NEARESTXY | LVFI_STRING), -1);
    EXPECT_EQ(find(L"Alpha", 0), -1);
}

TEST_F(GridWindow, AProgramThatAsksInTheAnsiCodePageIsAnsweredToo)
{
    fill({"Alpha", "\xC3\xA4hre"});
    NMLVFINDITEMA question{};
    question.hdr = {list(), 1, LVN_ODFINDITEMA};
    question.lvfi.flags = around;
    question.lvfi.psz = "\xE4h";  // as Windows-1252 has it

    EXPECT_EQ(view->notify(question.hdr), 1);
}

TEST_F(GridWindow, ATypedLetterSelectsTheRowItFindsAndAnotherNone)
{
    fill({"Alpha", "beta", "Bravo", "Charlie"});
    click(3);

    SendMessageW(list(), WM_CHAR, 'b', 1);
    const std::vector<int> found = marked();
    const int row = grid.Row;
    SendMessageW(list(), WM_CHAR, 'x', 1);

    EXPECT_THAT(found, ElementsAre(1));
    EXPECT_EQ(row, 2);
    EXPECT_THAT(marked(), ElementsAre(1));
    EXPECT_EQ(grid.Row, 2);
}

TEST_F(GridWindow, KeysAndClicksLookForNoSelectedRowAmongMany)
{
    constexpr int rows = 100000;
    fillWith(rows);
    click(3);
    toList.clear();

    click(5);
    press(VK_DOWN);
    const int down = grid.Row;
    press(VK_END);
    const int end = grid.Row;
    view->update();
    press(VK_UP, true);
    const form::RowRange two = grid.selectedRows();
    view->update();
    press(VK_HOME);
    SendMessageW(list(), WM_CHAR, 'e', 1);

    EXPECT_EQ(searches(), 0);
    EXPECT_EQ(down, 7);
    EXPECT_EQ(end, rows);
    EXPECT_EQ(two.first, rows - 1);
    EXPECT_EQ(two.count, 2);
    EXPECT_EQ(grid.Row, 2);
}

TEST_F(GridWindow, AStretchIsTakenFromWhereverItBegan)
{
    fillWith(20);
    click(8);

    press(VK_DOWN, true);
    press(VK_DOWN, true);
    const int downRow = grid.Row;
    const int downEnd = grid.RowSel;
    click(8);
    press(VK_UP, true);

    EXPECT_EQ(downRow, 9);
    EXPECT_EQ(downEnd, 11);
    EXPECT_EQ(grid.Row, 9);
    EXPECT_EQ(grid.RowSel, 8);
    EXPECT_EQ(grid.selectedRows().count, 2);
}

TEST_F(GridWindow, RowsThatWentTakeTheirSelectionAlong)
{
    fillWith(20);
    click(8);
    press(VK_END, true);
    const int before = grid.selectedRows().count;

    grid.removeRows({11, 10});
    grid.Row = 9;
    grid.RowSel = 10;
    view->update();
    const std::vector<int> left = marked();
    press(VK_HOME);

    EXPECT_EQ(before, 12);
    EXPECT_THAT(left, ElementsAre(8, 9));
    EXPECT_THAT(marked(), ElementsAre(0));
    EXPECT_EQ(grid.Row, 1);
    EXPECT_EQ(grid.selectedRows().count, 1);
}

TEST_F(GridWindow, ASelectionWithHolesBecomesTheRowInFocus)
{
    fillWith(20);
    click(8);
    press(VK_DOWN, true);
    press(VK_DOWN, true);

    mark(9, false);

    EXPECT_EQ(marked().size(), 1U);
    EXPECT_EQ(grid.selectedRows().count, 1);
}

TEST_F(GridWindow, WhatTheListSelectedWithoutAWordIsSeenAtTheNextChange)
{
    fillWith(20);
    click(8);
    const auto hideChanges = [](HWND window, UINT message, WPARAM wParam,
                                LPARAM lParam) -> LRESULT {
        return DefWindowProcW(window, message, wParam, lParam);
    };
    const LONG_PTR heard = SetWindowLongPtrW(
        parent, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(static_cast<WNDPROC>(hideChanges)));
    mark(9, true);
    SetWindowLongPtrW(parent, GWLP_WNDPROC, heard);

    mark(10, true);

    EXPECT_EQ(grid.selectedRows().first, 9);
    EXPECT_EQ(grid.selectedRows().count, 3);
}

}  // namespace
