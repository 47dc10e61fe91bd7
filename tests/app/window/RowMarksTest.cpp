#include "ListViews.h"
#include "WindowFixture.h"
#include "app/window/RowMarks.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

using window::Mark;

namespace
{

constexpr int roomForPicture = 24;

// How many pixels the picture of a mark changes on this background.
int changedPixels(const window::MarkPictures& pictures, Mark mark, COLORREF background)
{
    const HDC screen = GetDC(nullptr);
    const HDC device = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, roomForPicture, roomForPicture);
    const HGDIOBJ before = SelectObject(device, bitmap);
    const HBRUSH brush = CreateSolidBrush(background);
    const RECT all{0, 0, roomForPicture, roomForPicture};
    FillRect(device, &all, brush);
    ImageList_Draw(pictures.handle(), static_cast<int>(mark), device, 0, 0, ILD_TRANSPARENT);
    int changed = 0;
    for (int x = 0; x < roomForPicture; ++x)
        for (int y = 0; y < roomForPicture; ++y)
            changed += GetPixel(device, x, y) != background ? 1 : 0;
    DeleteObject(brush);
    SelectObject(device, before);
    DeleteObject(bitmap);
    DeleteDC(device);
    ReleaseDC(nullptr, screen);
    return changed;
}

TEST(MarkPictures, AreSeenOnTheirBackgroundAndDiffer)
{
    for (const UINT dotsPerInch : {96U, 144U}) {
        const window::MarkPictures pictures{window::Pixels(dotsPerInch)};
        const COLORREF background = GetSysColor(COLOR_WINDOW);
        const int ring = changedPixels(pictures, Mark::NotApplied, background);
        const int disc = changedPixels(pictures, Mark::New, background);

        EXPECT_EQ(changedPixels(pictures, Mark::None, background), 0);
        EXPECT_GT(ring, 10);
        EXPECT_GT(disc, ring + 10);
        const int triangle = changedPixels(pictures, Mark::Warning, background);
        const int cross = changedPixels(pictures, Mark::Error, background);
        EXPECT_GT(triangle, 10);
        EXPECT_LT(triangle, disc);
        EXPECT_GT(cross, 10);
        EXPECT_NE(cross, triangle);
    }
}

struct RowMarks : driver::Window
{
    Mark markOf(int item)
    {
        return static_cast<Mark>(
            driver::pictureOf(process.handle(), form.control("InputsList"), item));
    }
    std::vector<Mark> marks()
    {
        std::vector<Mark> result;
        for (int item = 0; item < form.rowCount("InputsList"); ++item)
            result.push_back(markOf(item));
        return result;
    }
    void press(const char* button)
    {
        form.press(button);
        form.settle();
    }
};

TEST_F(RowMarks, TellWhatIsNewAndWhatIsNotApplied)
{
    using Marks = std::vector<Mark>;
    EXPECT_EQ(marks(), Marks{Mark::None}) << "an empty list";

    addMaterials({"Ex"});
    EXPECT_EQ(marks(), Marks(3, Mark::New));

    press("RefreshOutputs");
    EXPECT_EQ(marks(), Marks(3, Mark::NotApplied));

    press("GenerateButton");
    EXPECT_EQ(marks(), Marks(3, Mark::None));

    addMaterials({"Density"});
    EXPECT_EQ(marks(),
              (Marks{Mark::New, Mark::New, Mark::New, Mark::None, Mark::None, Mark::None}));
}

TEST_F(RowMarks, TellOfFindingsBeforeAllElse)
{
    form.choose("InputSelection", "Nodes");
    form.press("InputsButton");
    form.add({"x", "defCSys"});
    form.settle();
    const int last = form.rowCount("InputsList") - 1;
    EXPECT_EQ(form.cell("InputsList", 0, 0), "defCSysAtNode1");
    EXPECT_THAT(form.cell("InputsList", last, 0), testing::StartsWith("xAtNode"));

    EXPECT_EQ(markOf(0), Mark::Warning) << "a whole number";
    EXPECT_EQ(markOf(last), Mark::New);

    press("GenerateButton");
    EXPECT_EQ(markOf(0), Mark::Warning);
    EXPECT_EQ(markOf(last), Mark::None);
}

}  // namespace
