#include "form/Layout.h"

#include <algorithm>

namespace form
{

namespace
{

// All lengths are in twips; 15 are one pixel of an ordinary screen.
constexpr int margin = 150;         // around frames, and between a frame's edge and what it holds
constexpr int gap = 105;            // between neighbours
constexpr int captionHeight = 270;  // of a frame, above its first row
constexpr int buttonHeight = 375;
constexpr int fieldHeight = 330;  // combo boxes, text boxes
constexpr int labelHeight = 225;
constexpr int statusHeight = 510;  // two lines of text
constexpr int comboWidth = 2400;
constexpr int selectWidth = 1275;
constexpr int refreshWidth = 1725;
constexpr int removeWidth = 1875;
constexpr int labelWidth = 1350;
constexpr int applyWidth = 1500;

void setBounds(Control& control, int left, int top, int width, int height)
{
    control.Left = left;
    control.Top = top;
    control.Width = width;
    control.Height = height;
}

// Centres a control in a row of another height.
void setBoundsInRow(Control& control, int left, int rowTop, int width, int height)
{
    setBounds(control, left, rowTop + (buttonHeight - height) / 2, width, height);
}

struct SelectionFrame
{
    Frame& frame;
    ComboBox& selection;
    Button& select;
    Button& refresh;
    Button& remove;
    ParameterGrid& grid;
};

// One row of controls and below it the grid.
void layOut(const SelectionFrame& part, int top, int width, int height)
{
    setBounds(part.frame, margin, top, width, height);
    const int row = top + captionHeight;
    int left = 2 * margin;
    setBoundsInRow(part.selection, left, row, comboWidth, fieldHeight);
    left += comboWidth + gap;
    setBounds(part.select, left, row, selectWidth, buttonHeight);
    left += selectWidth + gap;
    setBounds(part.refresh, left, row, refreshWidth, buttonHeight);
    left += refreshWidth + gap;
    setBounds(part.remove, left, row, removeWidth, buttonHeight);

    const int gridTop = row + buttonHeight + gap;
    setBounds(part.grid, 2 * margin, gridTop, width - 2 * margin, top + height - margin - gridTop);
}

constexpr int executionHeight = captionHeight + 2 * buttonHeight + gap + margin;

void layOutExecution(MainForm& form, int top, int width)
{
    setBounds(form.Execution, margin, top, width, executionHeight);
    const int left = 2 * margin;
    const int right = margin + width - margin;
    const int firstRow = top + captionHeight;
    const int secondRow = firstRow + buttonHeight + gap;

    setBoundsInRow(form.Label1, left, firstRow, labelWidth, labelHeight);
    const int fieldLeft = left + labelWidth;
    setBoundsInRow(form.CommandLine, fieldLeft, firstRow, right - fieldLeft, fieldHeight);

    const int applyLeft = right - applyWidth;
    const int clearLeft = applyLeft - gap - applyWidth;
    setBounds(form.GenerateButton, applyLeft, secondRow, applyWidth, buttonHeight);
    setBounds(form.ClearAll, clearLeft, secondRow, applyWidth, buttonHeight);

    constexpr int secondLabelWidth = 975;
    const int boxWidth = (clearLeft - fieldLeft - secondLabelWidth - 3 * gap) / 2;
    setBoundsInRow(form.Label2, left, secondRow, labelWidth, labelHeight);
    setBoundsInRow(form.Solver, fieldLeft, secondRow, boxWidth, fieldHeight);
    const int toolLeft = fieldLeft + boxWidth + 2 * gap;
    setBoundsInRow(form.Label3, toolLeft, secondRow, secondLabelWidth, labelHeight);
    setBoundsInRow(form.Optimizer, toolLeft + secondLabelWidth, secondRow, boxWidth, fieldHeight);
}

}  // namespace

void layOutContent(MainForm& form)
{
    const int width = std::max(form.ScaleWidth - scrollBarThickness, smallestContentWidth);
    const int height = std::max(form.ScaleHeight - scrollBarThickness, smallestContentHeight);
    form.pbInner.Width = width;
    form.pbInner.Height = height;

    const int frameWidth = width - 2 * margin;
    const int fixed = executionHeight + statusHeight + 4 * margin + gap;
    const int frameHeight = (height - fixed) / 2;
    int top = margin;
    layOut({form.Inputs, form.InputSelection, form.InputsButton, form.RefreshInputs,
            form.ClearInputSelection, form.InputsList},
           top, frameWidth, frameHeight);
    top += frameHeight + margin;
    layOut({form.Outputs, form.OutputSelection, form.OutputsButton, form.RefreshOutputs,
            form.ClearOutputSelection, form.OutputsList},
           top, frameWidth, frameHeight);
    top += frameHeight + margin;
    layOutExecution(form, top, frameWidth);
    top += executionHeight + gap;
    setBounds(form.StatusLine, 2 * margin, top, frameWidth - 2 * margin, statusHeight);
}

}  // namespace form
