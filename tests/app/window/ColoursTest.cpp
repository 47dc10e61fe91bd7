#include "ContrastColours.h"
#include "OwnFormFixture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <vector>

using driver::black;
using driver::ContrastColours;
using driver::green;
using driver::white;

namespace
{

using Picture = std::vector<COLORREF>;

// What a window shows.
Picture pictureOf(HWND window)
{
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
    RECT inside{};
    GetClientRect(window, &inside);
    BITMAPINFO info{};
    info.bmiHeader = {
        sizeof info.bmiHeader, inside.right, -inside.bottom, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    Picture picture(static_cast<std::size_t>(inside.right * inside.bottom));
    const HDC shown = GetDC(window);
    const HDC memory = CreateCompatibleDC(shown);
    const HBITMAP bitmap = CreateCompatibleBitmap(shown, inside.right, inside.bottom);
    const HGDIOBJ before = SelectObject(memory, bitmap);
    BitBlt(memory, 0, 0, inside.right, inside.bottom, shown, 0, 0, SRCCOPY);
    SelectObject(memory, before);
    GetDIBits(memory, bitmap, 0, static_cast<UINT>(inside.bottom), picture.data(), &info,
              DIB_RGB_COLORS);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(window, shown);
    for (COLORREF& each : picture)
        each &= 0xFFFFFF;
    return picture;
}

// Green that is more than the other two colours belongs to what is drawn as off.
bool hasGreen(const Picture& picture)
{
    return std::ranges::any_of(
        picture, [](COLORREF each) { return GetGValue(each) > GetRValue(each) + 40; });
}

bool has(const Picture& picture, COLORREF colour)
{
    return std::ranges::find(picture, colour) != picture.end();
}

struct Colours : driver::OwnForm
{
    // The colour in which the form has Windows write a caption.
    COLORREF textColourOf(std::string_view name) const
    {
        const HWND caption = control(name);
        const HDC memory = CreateCompatibleDC(nullptr);
        SendMessageW(GetParent(caption), WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(memory),
                     reinterpret_cast<LPARAM>(caption));
        const COLORREF colour = GetTextColor(memory);
        DeleteDC(memory);
        return colour;
    }
    void closeModel()
    {
        femap.model.reset();
        PostMessageA(form, RegisterWindowMessageA("FE_EVENT_MESSAGE"), 2, 0);
        MSG message;
        while (PeekMessageW(&message, form, 0, 0, PM_REMOVE) != FALSE)
            DispatchMessageW(&message);
    }
};

TEST_F(Colours, CaptionsAreReadableInContrastThemes)
{
    const ContrastColours contrast;
    open();

    for (const char* const name : {"Inputs", "Outputs", "Execution", "Label1", "Label2", "Label3"})
        EXPECT_EQ(textColourOf(name), white) << name;
    EXPECT_TRUE(has(pictureOf(control("Label1")), white));
}

TEST_F(Colours, TheStatusLineIsReadableWhileTheFormIsOff)
{
    const ContrastColours contrast;
    open();

    closeModel();

    ASSERT_EQ(status(), "FEMAP has no model open.");
    EXPECT_FALSE(IsWindowEnabled(control("GenerateButton")));
    const Picture picture = pictureOf(control("StatusLine"));
    EXPECT_TRUE(has(picture, white));
    EXPECT_FALSE(hasGreen(picture)) << "that is how Windows writes what is off";
}

TEST_F(Colours, ListsAreGreyWhileTheFormIsOffAndTakeOverOtherColours)
{
    open();
    const auto colours = [&](const char* list) {
        return std::pair{ListView_GetTextColor(control(list)), ListView_GetBkColor(control(list))};
    };
    const auto systemColours = [](int text, int background) {
        return std::pair{GetSysColor(text), GetSysColor(background)};
    };
    const auto whenOn = colours("InputsList");

    closeModel();

    EXPECT_EQ(whenOn, systemColours(COLOR_WINDOWTEXT, COLOR_WINDOW));
    EXPECT_EQ(colours("InputsList"), systemColours(COLOR_GRAYTEXT, COLOR_BTNFACE));
    EXPECT_EQ(colours("OutputsList"), systemColours(COLOR_GRAYTEXT, COLOR_BTNFACE));
    const ContrastColours contrast;
    EXPECT_EQ(colours("OutputsList"), std::pair(green, black));
}

// Two lines do not hold 60 words; the picture is that of the beginning and three points.
TEST_F(Colours, AStatusThatDoesNotFitEndsInPoints)
{
    open();
    const HWND line = control("StatusLine");
    std::string text;
    for (int i = 1; i <= 60; ++i)
        text += "word" + std::to_string(i) + ' ';
    const auto pictureOfText = [&](const std::string& shown) {
        window.showStatus(shown);
        return pictureOf(line);
    };

    const Picture whole = pictureOfText(text);

    std::size_t kept = 0;
    while (kept < text.size() && pictureOfText(text.substr(0, kept) + "...") != whole)
        ++kept;
    EXPECT_GT(kept, 60U);
    EXPECT_LT(kept, text.size());
    EXPECT_NE(pictureOfText(text.substr(0, kept / 2)), whole) << "the second line is used";
}

}  // namespace
