#include "WindowFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using driver::Window;

namespace
{

TEST_F(Window, ColumnsHaveTheirWidths)
{
    const auto width = [&](const char* grid, WPARAM column) {
        return SendMessageW(form.control(grid), LVM_GETCOLUMNWIDTH, column, 0);
    };
    const UINT dotsPerInch = GetDpiForWindow(form.window());
    const auto pixels = [&](int twips) {
        return MulDiv(twips, static_cast<int>(dotsPerInch), 1440);
    };

    for (const char* const grid : {"InputsList", "OutputsList"}) {
        EXPECT_EQ(width(grid, 0), pixels(2412));
        EXPECT_EQ(width(grid, 1), pixels(10000));
    }
}

TEST_F(Window, AFreshFormHasRoomForAllAndShowsNoScrollBars)
{
    form.settle();

    EXPECT_FALSE(IsWindowVisible(form.control("VScroll1")));
    EXPECT_FALSE(IsWindowVisible(form.control("HScroll1")));
}

TEST_F(Window, AWidenedColumnStaysWideWhenRowsCome)
{
    const HWND list = form.control("InputsList");
    SendMessageW(list, LVM_SETCOLUMNWIDTH, 0, 300);

    addMaterials({"Ex"});

    EXPECT_EQ(SendMessageW(list, LVM_GETCOLUMNWIDTH, 0, 0), 300);
}

TEST_F(Window, TheSpaceOfALargerWindowGoesToTheGrids)
{
    RECT frame{};
    GetWindowRect(form.window(), &frame);
    const RECT gridBefore = form.placeOf("InputsList");
    const RECT buttonBefore = form.placeOf("InputsButton");

    SetWindowPos(form.window(), nullptr, 0, 0, frame.right - frame.left + 100,
                 frame.bottom - frame.top + 80, SWP_NOMOVE | SWP_NOZORDER);
    form.settle();

    const RECT grid = form.placeOf("InputsList");
    const RECT button = form.placeOf("InputsButton");
    EXPECT_NEAR(grid.right - grid.left, gridBefore.right - gridBefore.left + 100, 1);
    EXPECT_NEAR(grid.bottom - grid.top, gridBefore.bottom - gridBefore.top + 40, 1);
    EXPECT_EQ(button.right - button.left, buttonBefore.right - buttonBefore.left);
    EXPECT_FALSE(IsWindowVisible(form.control("VScroll1")));
    EXPECT_FALSE(IsWindowVisible(form.control("HScroll1")));
}

TEST_F(Window, ASmallWindowScrollsToTheEndOfTheContent)
{
    SetWindowPos(form.window(), nullptr, 0, 0, 200, 300, SWP_NOMOVE | SWP_NOZORDER);
    form.settle();
    const HWND bar = form.control("VScroll1");
    const bool areShown =
        IsWindowVisible(bar) != FALSE && IsWindowVisible(form.control("HScroll1")) != FALSE;
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    GetScrollInfo(bar, SB_CTL, &info);
    const RECT inner = form.placeOf("pbInner");
    const RECT outer = form.placeOf("pbOuter");

    SendMessageW(form.window(), WM_VSCROLL, SB_BOTTOM, reinterpret_cast<LPARAM>(bar));

    EXPECT_TRUE(areShown);
    UINT dotsPerInch = GetDpiForWindow(form.window());
    const LONG hidden = (inner.bottom - inner.top) - (outer.bottom - outer.top);
    EXPECT_NEAR(
        MulDiv(info.nMax - static_cast<int>(info.nPage) + 1, static_cast<int>(dotsPerInch), 1440),
        hidden, 1);
    EXPECT_NEAR(form.placeOf("pbInner").bottom, outer.bottom, 1);
}

TEST_F(Window, GrowingAScrolledWindowBringsTheContentBack)
{
    RECT frame{};
    GetWindowRect(form.window(), &frame);
    SetWindowPos(form.window(), nullptr, 0, 0, 200, 300, SWP_NOMOVE | SWP_NOZORDER);
    SendMessageW(form.window(), WM_VSCROLL, SB_BOTTOM,
                 reinterpret_cast<LPARAM>(form.control("VScroll1")));
    SendMessageW(form.window(), WM_HSCROLL, SB_PAGEDOWN,
                 reinterpret_cast<LPARAM>(form.control("HScroll1")));

    SetWindowPos(form.window(), nullptr, 0, 0, frame.right - frame.left, frame.bottom - frame.top,
                 SWP_NOMOVE | SWP_NOZORDER);
    form.settle();

    EXPECT_EQ(form.placeOf("pbInner").top, 0);
    EXPECT_EQ(form.placeOf("pbInner").left, 0);
    EXPECT_FALSE(IsWindowVisible(form.control("VScroll1")));
}

TEST_F(Window, TheWheelScrollsASmallWindow)
{
    SetWindowPos(form.window(), nullptr, 0, 0, 400, 300, SWP_NOMOVE | SWP_NOZORDER);
    const LONG before = form.placeOf("pbInner").top;

    SendMessageW(form.window(), WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA), 0);

    EXPECT_LT(form.placeOf("pbInner").top, before);
}

TEST_F(Window, BecomesAPaneOfAnotherWindowAndWorksThere)
{
    const HWND femap = CreateWindowExW(0, L"STATIC", L"frame", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0,
                                       0, 700, 500, nullptr, nullptr, nullptr, nullptr);
    const HWND pane = form.window();
    const LONG_PTR style = GetWindowLongPtrW(pane, GWL_STYLE);

    SetWindowLongPtrW(pane, GWL_STYLE,
                      (style & ~static_cast<LONG_PTR>(WS_OVERLAPPEDWINDOW)) | WS_CHILD);
    SetParent(pane, femap);
    SetWindowPos(pane, nullptr, 0, 0, 200, 400, SWP_NOZORDER | SWP_FRAMECHANGED);
    form.settle();
    form.choose("Solver", "NENastran");

    EXPECT_TRUE(IsWindowVisible(form.control("HScroll1")));
    EXPECT_EQ(form.text("Solver"), "NENastran");
    SetParent(pane, nullptr);
    DestroyWindow(femap);
}

}  // namespace
