#include "Hand.h"
#include "RemoteMemory.h"
#include "WindowFixture.h"
#include "app/window/Controls.h"
#include "app/window/PropertyListWindow.h"
#include "form/ControlTable.h"
#include "windows/Text.h"

#include <gtest/gtest.h>

#include <map>

using driver::Window;
using window::PropertyListWindow;

namespace
{

constexpr UINT ordinary = 96;
constexpr UINT fine = 144;

// What lies in a frame, and the status line.
bool isContent(const form::ControlRow& row)
{
    return row.line > 0 || row.name == "StatusLine";
}

SIZE sizeOf(const RECT& place)
{
    return {place.right - place.left, place.bottom - place.top};
}

// How much room a text takes in the form's font.
SIZE extent(const std::string& text, UINT dotsPerInch)
{
    const window::Font font(dotsPerInch);
    const HDC screen = GetDC(nullptr);
    const HGDIOBJ before = SelectObject(screen, font.handle());
    const std::wstring wide = windows::toWide(text);
    SIZE size{};
    GetTextExtentPoint32W(screen, wide.c_str(), static_cast<int>(wide.size()), &size);
    SelectObject(screen, before);
    ReleaseDC(nullptr, screen);
    return size;
}

struct Resolution : Window
{
    // What Windows does when the window comes to a screen of another resolution.
    void moveToScreenOf(HWND window, UINT dotsPerInch, const RECT& suggested)
    {
        driver::RemoteMemory there(process.handle(), sizeof suggested);
        there.write(suggested);
        SendMessageW(window, WM_DPICHANGED, MAKEWPARAM(dotsPerInch, dotsPerInch),
                     there.parameter());
    }
    static RECT larger(const RECT& place)
    {
        const SIZE size = sizeOf(place);
        return {place.left, place.top, place.left + MulDiv(size.cx, fine, ordinary),
                place.top + MulDiv(size.cy, fine, ordinary)};
    }
    std::map<std::string, RECT> places()
    {
        std::map<std::string, RECT> result;
        for (const form::ControlRow& row : form::controlTable)
            if (isContent(row))
                result.emplace(row.name, form.placeOf(row.name));
        return result;
    }
};

TEST_F(Resolution, TheFormTakesTheSuggestedPlaceAndScalesWhatItHolds)
{
    // So that it has its place on the screen afterwards, too.
    SetWindowPos(form.window(), nullptr, 0, 0, 800, 620, SWP_NOZORDER);
    form.settle();
    RECT frame{};
    GetWindowRect(form.window(), &frame);
    const auto before = places();
    const auto columnBefore =
        static_cast<int>(SendMessageW(form.control("InputsList"), LVM_GETCOLUMNWIDTH, 0, 0));
    const RECT suggested = larger(frame);

    moveToScreenOf(form.window(), fine, suggested);

    RECT now{};
    GetWindowRect(form.window(), &now);
    EXPECT_TRUE(EqualRect(&now, &suggested));
    const auto after = places();
    for (const char* const name : {"InputsButton", "RefreshInputs", "ClearInputSelection", "Label1",
                                   "InputSelection", "ClearAll", "GenerateButton"}) {
        EXPECT_NEAR(sizeOf(after.at(name)).cx, sizeOf(before.at(name)).cx * 1.5, 2) << name;
        EXPECT_NEAR(after.at(name).left, before.at(name).left * 1.5, 20) << name;
    }
    for (const char* const name : {"InputsButton", "ClearAll"})
        EXPECT_NEAR(sizeOf(after.at(name)).cy, sizeOf(before.at(name)).cy * 1.5, 2) << name;
    EXPECT_NEAR(
        static_cast<int>(SendMessageW(form.control("InputsList"), LVM_GETCOLUMNWIDTH, 0, 0)),
        columnBefore * 1.5, 2);
}

TEST_F(Resolution, NothingIsCutOrCoveredAfterwards)
{
    RECT frame{};
    GetWindowRect(form.window(), &frame);

    moveToScreenOf(form.window(), fine, larger(frame));

    const auto now = places();
    const RECT inner = form.placeOf("pbInner");
    for (const auto& [name, place] : now) {
        EXPECT_GE(place.left, inner.left) << name;
        EXPECT_LE(place.right, inner.right) << name;
        EXPECT_LE(place.bottom, inner.bottom) << name;
        for (const auto& [other, otherPlace] : now) {
            RECT common{};
            const bool overlaps = IntersectRect(&common, &place, &otherPlace) != FALSE;
            EXPECT_FALSE(name != other && overlaps) << name << " and " << other;
        }
    }
    for (const form::ControlRow& row : form::controlTable) {
        if (!isContent(row) || row.caption.empty())
            continue;
        const std::string name(row.name);
        const SIZE room = sizeOf(now.at(name));
        const SIZE text = extent(form.text(name), fine);
        EXPECT_GE(room.cx, text.cx) << name;
        EXPECT_GE(room.cy, text.cy) << name;
    }
    const int arrow = GetSystemMetricsForDpi(SM_CXVSCROLL, fine);
    EXPECT_GE(sizeOf(now.at("OutputSelection")).cx, extent("Elements Min/Max", fine).cx + arrow);
    EXPECT_GE(sizeOf(now.at("Solver")).cx, extent("NXNastran", fine).cx + arrow);
}

TEST_F(Resolution, TheStatusLineHasTwoLines)
{
    RECT frame{};
    GetWindowRect(form.window(), &frame);
    EXPECT_GE(sizeOf(form.placeOf("StatusLine")).cy, 2 * extent("Xy", ordinary).cy);

    moveToScreenOf(form.window(), fine, larger(frame));

    EXPECT_GE(sizeOf(form.placeOf("StatusLine")).cy, 2 * extent("Xy", fine).cy);
}

TEST_F(Resolution, GoingBackGivesTheFirstPicture)
{
    RECT frame{};
    GetWindowRect(form.window(), &frame);
    const auto before = places();

    moveToScreenOf(form.window(), fine, larger(frame));
    moveToScreenOf(form.window(), ordinary, frame);

    for (const auto& [name, place] : places())
        EXPECT_TRUE(EqualRect(&place, &before.at(name))) << name;
}

// The resolution of a pane can change without a message.
TEST_F(Resolution, EveryNewSizeLooksAtTheResolutionOfTheWindow)
{
    SetWindowPos(form.window(), nullptr, 0, 0, 800, 620, SWP_NOZORDER);
    form.settle();
    const LONG before = sizeOf(form.placeOf("InputsButton")).cx;
    moveToScreenOf(form.window(), fine, {0, 0, 800, 620});
    const LONG asToldByTheMessage = sizeOf(form.placeOf("InputsButton")).cx;

    SetWindowPos(form.window(), nullptr, 0, 0, 810, 620, SWP_NOZORDER);
    form.settle();

    EXPECT_NEAR(asToldByTheMessage, before * 1.5, 2);
    EXPECT_EQ(sizeOf(form.placeOf("InputsButton")).cx, before);
}

TEST_F(Resolution, AColumnThatTheMouseWidenedKeepsItsShareOfTheScreen)
{
    const HWND list = form.control("OutputsList");
    const auto width = [&] {
        return static_cast<int>(SendMessageW(list, LVM_GETCOLUMNWIDTH, 0, 0));
    };
    const int before = width();
    const POINT edge = driver::placeIn(list, {before - 1, 8});
    driver::Hand().drag(edge, {edge.x + 60, edge.y});
    ASSERT_TRUE(driver::waitUntil([&] { return width() == before + 60; }));
    form.settle();
    RECT frame{};
    GetWindowRect(form.window(), &frame);

    moveToScreenOf(form.window(), fine, larger(frame));

    EXPECT_NEAR(width(), (before + 60) * 1.5, 2);
}

TEST_F(Resolution, TheDialogScalesToo)
{
    const HWND dialog = openListOfMaterials();
    constexpr int ids[] = {PropertyListWindow::idHeading, PropertyListWindow::idList,
                           PropertyListWindow::idSelect,  PropertyListWindow::idDeSelect,
                           PropertyListWindow::idAdd,     PropertyListWindow::idCancel};
    const auto placeOf = [&](int id) {
        RECT place{};
        GetWindowRect(GetDlgItem(dialog, id), &place);
        return place;
    };
    RECT frame{};
    GetWindowRect(dialog, &frame);
    const SIZE buttonBefore = sizeOf(placeOf(PropertyListWindow::idSelect));
    const RECT suggested = larger(frame);

    moveToScreenOf(dialog, fine, suggested);

    RECT now{};
    GetWindowRect(dialog, &now);
    EXPECT_TRUE(EqualRect(&now, &suggested));
    const SIZE button = sizeOf(placeOf(PropertyListWindow::idSelect));
    EXPECT_NEAR(button.cx, buttonBefore.cx * 1.5, 2);
    EXPECT_NEAR(button.cy, buttonBefore.cy * 1.5, 2);
    RECT inside{};
    GetClientRect(dialog, &inside);
    MapWindowPoints(dialog, nullptr, reinterpret_cast<POINT*>(&inside), 2);
    for (const int id : ids) {
        const RECT place = placeOf(id);
        RECT common{};
        IntersectRect(&common, &place, &inside);
        EXPECT_TRUE(EqualRect(&common, &place)) << id << " leaves the dialog";
        for (const int other : ids) {
            const RECT otherPlace = placeOf(other);
            EXPECT_FALSE(id != other && IntersectRect(&common, &place, &otherPlace) != FALSE)
                << id << " and " << other;
        }
        if (id == PropertyListWindow::idList)
            continue;
        const std::string text = driver::textOf(GetDlgItem(dialog, id));
        EXPECT_GE(sizeOf(place).cx, extent(text, fine).cx) << text;
        EXPECT_GE(sizeOf(place).cy, extent(text, fine).cy) << text;
    }
    form.pressInDialog(PropertyListWindow::idCancel);
}

}  // namespace
