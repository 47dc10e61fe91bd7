// The list of a text's lines by itself, in a window of this process.
#include "ClipboardText.h"
#include "ContrastColours.h"
#include "ListViews.h"
#include "app/window/DifferenceView.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <commctrl.h>
#include <string>

using driver::cellIn;
using driver::clipboardText;
using preview::Sign;
using window::coloursOf;
using window::DifferenceView;

namespace
{

constexpr int viewID = 1;

LRESULT CALLBACK notifyView(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    auto* const view = reinterpret_cast<DifferenceView*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (message == WM_NOTIFY && view != nullptr)
        return view->notify(*reinterpret_cast<const NMHDR*>(lParam));
    return DefWindowProcW(window, message, wParam, lParam);
}

HWND createParent()
{
    WNDCLASSW info{};
    info.lpfnWndProc = notifyView;
    info.lpszClassName = L"ParentOfDifference";
    RegisterClassW(&info);
    return CreateWindowExW(0, info.lpszClassName, L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 800,
                           400, nullptr, nullptr, nullptr, nullptr);
}

struct DifferenceLines : testing::Test
{
    HWND parent = createParent();
    DifferenceView view{parent, viewID, sys::windows1252()};

    DifferenceLines()
    {
        SetWindowLongPtrW(parent, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&view));
        MoveWindow(view.window(), 0, 0, 700, 300, TRUE);
        view.setResolution(window::Pixels(96));
    }
    ~DifferenceLines() override { DestroyWindow(parent); }

    int count() const { return ListView_GetItemCount(view.window()); }
    void select(int item) const
    {
        ListView_SetItemState(view.window(), item, LVIS_SELECTED, LVIS_SELECTED);
    }
    std::string copied() const
    {
        driver::putOnClipboard(L"before");
        view.copySelected();
        return clipboardText();
    }
};

TEST_F(DifferenceLines, AreShownFromTheFirstChangeOn)
{
    std::string before;
    for (int i = 1; i <= 1000; ++i)
        before += std::to_string(i) + "\r\n";
    std::string after = before;
    after.replace(after.find("500"), 3, "five hundred");

    view.show({before, after});

    EXPECT_EQ(count(), 1001);
    EXPECT_EQ(ListView_GetTopIndex(view.window()), 499 - 3);
    EXPECT_EQ(ListView_GetNextItem(view.window(), -1, LVNI_FOCUSED), 499);
    EXPECT_EQ(cellIn(view.window(), 499, 0) + cellIn(view.window(), 499, 2), "-500");
    EXPECT_EQ(cellIn(view.window(), 500, 0) + cellIn(view.window(), 500, 2), "+five hundred");
}

TEST_F(DifferenceLines, OfAnotherTextTakeTheirPlace)
{
    view.show({"", "a\r\nb\r\nc\r\n"});
    select(2);

    view.show({"a\r\n", "b\r\n"});

    EXPECT_EQ(count(), 2);
    EXPECT_EQ(ListView_GetSelectedCount(view.window()), 0U);
    view.show({});
    EXPECT_EQ(count(), 0);
}

TEST_F(DifferenceLines, AreCopiedWithSignsWhereTheseDiffer)
{
    view.show({"same\r\nout\r\n", "same\r\nin\tit\r\n"});

    EXPECT_EQ(copied(), "before") << "none is selected";
    select(2);
    EXPECT_EQ(copied(), "in\tit\r\n");
    view.selectAll();
    EXPECT_EQ(copied(), " same\r\n-out\r\n+in\tit\r\n");
}

TEST_F(DifferenceLines, OfHalfAMillionAreThereAtOnce)
{
    std::string text;
    for (int i = 0; i < 500'000; ++i)
        text += "Variable" + std::to_string(i) + "  1.5\r\n";

    view.show({text, text + "Last  2\r\n"});

    EXPECT_EQ(count(), 500'001);
    EXPECT_EQ(cellIn(view.window(), 500'000, 2), "Last  2");
    EXPECT_EQ(view.count(Sign::Added), 1U);
    EXPECT_GT(ListView_GetTopIndex(view.window()), 499'900);
}

TEST_F(DifferenceLines, HaveAColumnAsWideAsTheLongest)
{
    const std::string longest(300, 'w');
    view.show({"", "a\r\n" + longest + "\r\n"});

    const HDC device = GetDC(view.window());
    SelectObject(device, reinterpret_cast<HGDIOBJ>(SendMessageW(view.window(), WM_GETFONT, 0, 0)));
    SIZE size{};
    GetTextExtentPoint32A(device, longest.data(), int(longest.size()), &size);
    ReleaseDC(view.window(), device);
    EXPECT_GT(size.cx, 0);
    EXPECT_GE(ListView_GetColumnWidth(view.window(), 2), size.cx);
}

TEST_F(DifferenceLines, AreNotGoneToByLetters)
{
    view.show({"", "a\r\nb\r\n"});
    LVFINDINFOW wanted{};
    wanted.flags = LVFI_STRING;
    wanted.psz = L"b";

    EXPECT_EQ(
        SendMessageW(view.window(), LVM_FINDITEMW, WPARAM(-1), reinterpret_cast<LPARAM>(&wanted)),
        -1);
}

TEST(LineColours, TellWhatIsAddedFromWhatIsRemovedByTheGround)
{
    EXPECT_NE(coloursOf(Sign::Added).ground, coloursOf(Sign::Removed).ground);
    EXPECT_NE(coloursOf(Sign::Added).ground, coloursOf(Sign::Unchanged).ground);
    EXPECT_NE(coloursOf(Sign::Removed).ground, coloursOf(Sign::Unchanged).ground);
    for (const Sign sign : {Sign::Added, Sign::Removed, Sign::Unchanged, Sign::Remark})
        EXPECT_EQ(coloursOf(sign).text, driver::black);
}

TEST(LineColours, AreWindowsOwnInContrastThemes)
{
    const driver::ContrastColours contrast;

    for (const Sign sign : {Sign::Added, Sign::Removed, Sign::Unchanged, Sign::Remark})
        EXPECT_EQ(coloursOf(sign).ground, driver::black);
    EXPECT_EQ(coloursOf(Sign::Unchanged).text, driver::white);
    EXPECT_EQ(coloursOf(Sign::Removed).text, driver::green) << "that of what is off";
    EXPECT_EQ(coloursOf(Sign::Added).text, GetSysColor(COLOR_HOTLIGHT));
}

}  // namespace
