#include "form/Layout.h"

#include <gtest/gtest.h>

#include <vector>

namespace
{

void layOut(form::MainForm& form, int width, int height)
{
    form.ScaleWidth = width;
    form.ScaleHeight = height;
    form::layOutContent(form);
}

bool overlap(const form::Control& a, const form::Control& b)
{
    return a.Left < b.Left + b.Width && b.Left < a.Left + a.Width && a.Top < b.Top + b.Height &&
           b.Top < a.Top + a.Height;
}

// What lies on the content; frames hold others and do not count.
std::vector<form::NamedControl> contents(const form::MainForm& form)
{
    std::vector<form::NamedControl> result;
    for (const auto& each : form.controls())
        if (each.name != "pbOuter" && each.name != "pbInner" && each.name != "Inputs" &&
            each.name != "Outputs" && each.name != "Execution" && each.name != "HScroll1" &&
            each.name != "VScroll1")
            result.push_back(each);
    return result;
}

TEST(LayOutContent, NoControlCoversAnotherOrLeavesTheContent)
{
    for (const int width : {0, 4200, 5000, 7500, 9000, 9255, 12600, 40000})
        for (const int height : {0, 8400, 10200, 30000}) {
            form::MainForm form;
            layOut(form, width, height);

            for (const auto& a : contents(form)) {
                EXPECT_GT(a.control->Width, 0) << a.name;
                EXPECT_GT(a.control->Height, 0) << a.name;
                EXPECT_GE(a.control->Left, 0) << a.name;
                EXPECT_LE(a.control->Left + a.control->Width, form.pbInner.Width) << a.name;
                EXPECT_LE(a.control->Top + a.control->Height, form.pbInner.Height) << a.name;
                for (const auto& b : contents(form)) {
                    const bool covers = a.control != b.control && overlap(*a.control, *b.control);
                    EXPECT_FALSE(covers) << a.name << ", " << b.name;
                }
            }
        }
}

TEST(LayOutContent, TheFramesAreInputOutputExecution)
{
    form::MainForm form;
    layOut(form, form::startWidth, form::startHeight);

    EXPECT_LE(form.Inputs.Top + form.Inputs.Height, form.Outputs.Top);
    EXPECT_LE(form.Outputs.Top + form.Outputs.Height, form.Execution.Top);
    EXPECT_LE(form.Execution.Top + form.Execution.Height, form.StatusLine.Top);
}

TEST(LayOutContent, TheListsShareTheirHeightAsTheyAreTold)
{
    form::MainForm form;
    layOut(form, form::startWidth, form::startHeight);
    const int both = form.Inputs.Height + form.Outputs.Height;
    EXPECT_NEAR(form.Inputs.Height, form.Outputs.Height, 1);

    form::layOutContent(form, 650);

    EXPECT_NEAR(form.Inputs.Height, both * 65 / 100, 1);
    EXPECT_NEAR(form.Inputs.Height + form.Outputs.Height, both, 1);
    EXPECT_LT(form.Inputs.Top + form.Inputs.Height, form.Outputs.Top);
    EXPECT_LT(form.Outputs.Top + form.Outputs.Height, form.Execution.Top);
}

TEST(LayOutContent, NoListBecomesTooSmallToBeUsed)
{
    for (const int share : {-1, 0, 1, 999, 1000, 2000}) {
        form::MainForm form;
        form.ScaleHeight = 8400;
        form::layOutContent(form, share);

        EXPECT_GE(form.InputsList.Height, 600) << share;
        EXPECT_GE(form.OutputsList.Height, 600) << share;
        EXPECT_LE(form.StatusLine.Top + form.StatusLine.Height, form.pbInner.Height) << share;
    }
}

TEST(LayOutContent, TheStatusLineHasRoomForTwoLines)
{
    form::MainForm form;
    layOut(form, form::startWidth, form::startHeight);

    EXPECT_GE(form.StatusLine.Height, 2 * form.Label1.Height);
}

TEST(LayOutContent, SpareSpaceGoesToTheGrids)
{
    form::MainForm form;
    layOut(form, 12000, 10000);
    const int widthBefore = form.InputsList.Width;
    const int heightBefore = form.OutputsList.Height;
    const int buttonBefore = form.InputsButton.Width;

    layOut(form, 13000, 12000);

    EXPECT_EQ(form.InputsList.Width, widthBefore + 1000);
    EXPECT_EQ(form.OutputsList.Height, heightBefore + 1000);
    EXPECT_EQ(form.InputsButton.Width, buttonBefore);
}

TEST(LayOutContent, ASmallWindowHasTheSmallestContent)
{
    form::MainForm form;
    layOut(form, 100, 100);

    EXPECT_EQ(form.pbInner.Width, form::smallestContentWidth);
    EXPECT_LT(form.pbInner.Height, 13'000);
}

TEST(LayOutContent, FromTwoHundredAndEightyPixelsOnNothingScrollsSideways)
{
    constexpr int twipsOfAPixel = 15;
    for (int pixels = 280; pixels < 1000; pixels += 7) {
        form::MainForm form;
        layOut(form, pixels * twipsOfAPixel, 100);

        EXPECT_EQ(form.pbInner.Width, form.ScaleWidth - form::scrollBarThickness) << pixels;
    }
}

TEST(LayOutContent, ANarrowFormBreaksItsLinesInTheOrderOfTheControls)
{
    form::MainForm form;
    layOut(form, 4200, 12'000);

    int top = 0;
    for (const form::Control* const each : {static_cast<form::Control*>(&form.InputSelection),
                                            static_cast<form::Control*>(&form.InputsButton),
                                            static_cast<form::Control*>(&form.ClearInputSelection),
                                            static_cast<form::Control*>(&form.InputsList)}) {
        EXPECT_GT(each->Top, top);
        top = each->Top;
    }
    EXPECT_GT(form.Label3.Top, form.Solver.Top);
}

TEST(LayOutContent, AFieldStaysBesideItsLabel)
{
    const struct
    {
        form::Label form::FormControls::*label;
        form::Control& (*field)(form::MainForm&);
    } pairs[] = {
        {&form::FormControls::Label1,
         [](form::MainForm& form) -> form::Control& { return form.CommandLine; }},
        {&form::FormControls::Label2,
         [](form::MainForm& form) -> form::Control& { return form.Solver; }},
        {&form::FormControls::Label3,
         [](form::MainForm& form) -> form::Control& { return form.Optimizer; }},
    };
    for (int width = 4000; width < 14'000; width += 250) {
        form::MainForm form;
        layOut(form, width, 10'000);

        for (const auto& each : pairs) {
            const form::Control& label = form.*each.label;
            const form::Control& field = each.field(form);
            EXPECT_EQ(label.Left + label.Width, field.Left) << width;
            EXPECT_LT(label.Top, field.Top + field.Height) << width;
            EXPECT_LT(field.Top, label.Top + label.Height) << width;
        }
    }
}

TEST(LayOutContent, AWideFormBreaksNoLine)
{
    form::MainForm form;
    layOut(form, form::smallestWideContent + form::scrollBarThickness, 10'000);

    EXPECT_EQ(form.InputsButton.Top, form.ClearInputSelection.Top);
    EXPECT_EQ(form.ClearAll.Top, form.GenerateButton.Top);
    EXPECT_NEAR(form.Solver.Top, form.GenerateButton.Top, 50);
}

TEST(LayOutContent, TheLowerTheFormTheLowerTheGridsAndNothingElse)
{
    form::MainForm form;
    layOut(form, 12'600, 12'000);
    const int frameBefore = form.Execution.Height;
    const int statusBefore = form.StatusLine.Height;
    const int gridBefore = form.InputsList.Height;

    layOut(form, 12'600, 10'000);

    EXPECT_EQ(form.Execution.Height, frameBefore);
    EXPECT_EQ(form.StatusLine.Height, statusBefore);
    EXPECT_EQ(form.InputsList.Height, gridBefore - 1000);
}

}  // namespace
