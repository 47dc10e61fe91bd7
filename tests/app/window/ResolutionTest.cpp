#include "Hand.h"
#include "RemoteMemory.h"
#include "TextExtent.h"
#include "WindowFixture.h"
#include "app/window/Pixels.h"
#include "app/window/PropertyListWindow.h"
#include "form/ControlTable.h"
#include "form/Layout.h"

#include <gtest/gtest.h>

#include <map>

using driver::extent;
using driver::Window;
using window::PropertyListWindow;

namespace
{

constexpr UINT ordinary = 96;
constexpr UINT fine = 144;
constexpr UINT finest = 192;

// What lies in a frame, and the status line.
bool isContent(const form::ControlRow& row)
{
    return row.line > 0 || row.name == "StatusLine";
}

SIZE sizeOf(const RECT& place)
{
    return {place.right - place.left, place.bottom - place.top};
}

// Beside its text a button has an edge and some air.
int leastWidth(const form::ControlRow& row, UINT dotsPerInch)
{
    const int air = row.kind() == form::kindOf<form::Button> ? 12 : 0;
    return static_cast<int>(extent(row.caption, dotsPerInch).cx) +
           MulDiv(air, static_cast<int>(dotsPerInch), ordinary);
}

TEST(Captions, FitAtEveryWidthAndResolution)
{
    constexpr int twipsOfAPixel = 15;
    for (const int width : {280, 600, 900})
        for (const UINT dotsPerInch : {ordinary, fine, finest}) {
            const window::Pixels pixels(dotsPerInch);
            form::MainForm form;
            form.ScaleWidth = width * twipsOfAPixel;
            form.ScaleHeight = form::startHeight;
            form::layOutContent(form);

            for (const form::NamedControl& each : form.controls())
                EXPECT_GE(pixels.fromTwips(each.control->Width), leastWidth(each, dotsPerInch))
                    << each.name << " at " << width << ", " << dotsPerInch;
        }
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
    // Of what the form shows, at this resolution.
    void expectNothingIsCutOrCovered(UINT dotsPerInch)
    {
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
            const SIZE text = extent(form.text(name), dotsPerInch);
            EXPECT_GE(room.cx, text.cx) << name;
            EXPECT_GE(room.cy, text.cy) << name;
        }
        const int arrow = GetSystemMetricsForDpi(SM_CXVSCROLL, dotsPerInch);
        EXPECT_GE(sizeOf(now.at("OutputSelection")).cx,
                  extent("Elements Min/Max", dotsPerInch).cx + arrow);
        EXPECT_GE(sizeOf(now.at("Solver")).cx, extent("NXNastran", dotsPerInch).cx + arrow);
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

    expectNothingIsCutOrCovered(fine);
}

TEST_F(Resolution, ANarrowPaneShowsEverythingWithoutScrollingSideways)
{
    const auto style = static_cast<DWORD>(GetWindowLongW(form.window(), GWL_STYLE));
    for (const UINT dotsPerInch : {ordinary, fine, finest}) {
        RECT frame{0, 0, MulDiv(280, static_cast<int>(dotsPerInch), ordinary), 900};
        AdjustWindowRectEx(&frame, style, FALSE, 0);

        moveToScreenOf(form.window(), dotsPerInch, frame);
        form.settle();

        RECT inside{};
        GetClientRect(form.window(), &inside);
        EXPECT_EQ(inside.right, MulDiv(280, static_cast<int>(dotsPerInch), ordinary));
        EXPECT_FALSE(IsWindowVisible(form.control("HScroll1"))) << dotsPerInch;
        expectNothingIsCutOrCovered(dotsPerInch);
    }
}

// Edges that ought to meet do, at every resolution.
TEST_F(Resolution, NothingIsOffItsLine)
{
    RECT frame{};
    GetWindowRect(form.window(), &frame);
    for (const UINT dotsPerInch : {ordinary, 120U, fine, 168U, finest}) {
        moveToScreenOf(form.window(), dotsPerInch, larger(frame));

        const auto now = places();
        const auto middle = [&](const char* name) {
            return (now.at(name).top + now.at(name).bottom) / 2;
        };
        for (const auto& [one, other] : {std::pair("InputSelection", "InputsButton"),
                                         {"OutputSelection", "RefreshOutputs"},
                                         {"Label1", "CommandLine"},
                                         {"Label2", "Solver"},
                                         {"Label3", "Optimizer"},
                                         {"Optimizer", "GenerateButton"}})
            EXPECT_NEAR(middle(one), middle(other), dotsPerInch > fine ? 2 : 1)
                << one << " at " << dotsPerInch;
        for (const char* const left :
             {"InputsList", "OutputSelection", "OutputsList", "Label1", "Label2", "StatusLine"})
            EXPECT_EQ(now.at(left).left, now.at("InputSelection").left) << left;
        for (const char* const right : {"OutputsList", "CommandLine", "GenerateButton"})
            EXPECT_EQ(now.at(right).right, now.at("InputsList").right)
                << right << " at " << dotsPerInch;
    }
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
