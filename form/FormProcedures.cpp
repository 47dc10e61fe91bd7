#include "form/FormProcedures.h"

#include "logging/Module1.h"

#include <algorithm>

namespace form
{

using logging::logDebug;
using logging::logPosition;
using logging::logPositionAndClearErrorIfAny;

namespace
{

constexpr int largeScroll = 2500;  // twips
constexpr int smallScroll = 250;

constexpr int clearedInputCells = 6;
constexpr int clearedOutputCells = 4;  // sic: the type tag of the blank row survives

void clearGrid(ParameterGrid& grid, int cells)
{
    grid.setRows(2);
    for (int column = 0; column < cells; ++column)
        grid.setText(1, column, "");
}

void removeSelected(Context& context, ParameterGrid& grid)
{
    const RowRange rows = grid.selectedRows();
    DeleteSelection(context, grid, rows.first, rows.count);
}

void fitScrollBar(ScrollBar& bar, int viewport, int content)
{
    bar.Visible = viewport < content;
    if (!bar.Visible) {
        bar.Value = 0;
        return;
    }
    bar.Max = content - viewport;
    bar.Value = std::min(bar.Value, bar.Max);
    bar.LargeChange = largeScroll;
    bar.SmallChange = smallScroll;
}

void fitViewport(MainForm& form, int width, int height)
{
    form.VScroll1.Left = width;
    form.VScroll1.Top = 0;
    form.VScroll1.Height = height;

    form.HScroll1.Left = 0;
    form.HScroll1.Top = height;
    form.HScroll1.Width = width;

    form.pbOuter.Left = 0;
    form.pbOuter.Top = 0;
    form.pbOuter.Width = width;
    form.pbOuter.Height = height;

    fitScrollBar(form.VScroll1, height, form.pbInner.Height);
    fitScrollBar(form.HScroll1, width, form.pbInner.Width);
    // No part of the content may stay out of reach when the viewport grows.
    form.pbInner.Top = -form.VScroll1.Value;
    form.pbInner.Left = -form.HScroll1.Value;
}

}  // namespace

void ClearAll_Click(Context& context)
{
    logPosition(context.log, "At start of ClearAll_Click");
    clearGrid(context.form.InputsList, clearedInputCells);
    clearGrid(context.form.OutputsList, clearedOutputCells);
    logPosition(context.log, "At end of ClearAll_Click");
}

void ClearInputSelection_Click(Context& context)
{
    logPosition(context.log, "At start of ClearInputSelection_Click");
    removeSelected(context, context.form.InputsList);
    logPosition(context.log, "At end of ClearInputSelection_Click");
}

void ClearOutputSelection_Click(Context& context)
{
    logPosition(context.log, "At start of ClearOutputSelection_Click");
    removeSelected(context, context.form.OutputsList);
    logPosition(context.log, "At end of ClearOutputSelection_Click");
}

void InputsList_KeyDown(Context& context, int keyCode)
{
    logPosition(context.log, "At start of InputsList_KeyDown");
    if (keyCode == deleteKey)
        ClearInputSelection_Click(context);
    logPosition(context.log, "At end of InputsList_KeyDown");
}

void OutputsList_KeyDown(Context& context, int keyCode)
{
    logPosition(context.log, "At start of OutputsList_KeyDown");
    if (keyCode == deleteKey)
        ClearOutputSelection_Click(context);
    logPosition(context.log, "At end of OutputsList_KeyDown");
}

void DeleteSelection(Context& context, ParameterGrid& grid, int first, int count)
{
    const auto logRow = [&](int row) {
        logDebug(context.log, "Trying to delete entry: Name=", grid.text(row, nameColumn));
    };
    const bool done = context.error.attempt([&] {
        // The rows that may be removed go at once; the first that may not is tried last and raises.
        const int parameters = grid.Rows() - 1;
        const int present = first < 1 ? 0 : std::max(0, parameters - first + 1);
        const int removable = std::min({std::max(0, count), present, parameters - 1});
        for (int i = 0; i < removable; ++i)
            logRow(first + i);
        grid.removeRows({first, removable});
        if (removable < count) {
            logRow(first);
            grid.RemoveItem(first);
        }
        grid.RowSel = grid.Row;
    });
    if (done)
        return;
    // FEMAP is not needed here, so it may be gone: the status line alone tells.
    context.form.status.tellProblem(context.error.description());
    logPositionAndClearErrorIfAny(context.log, context.error, "In DeleteSelection");
}

void HScroll1_Change(Context& context)
{
    logPosition(context.log, "At start of HScroll1_Change");
    context.form.pbInner.Left = -context.form.HScroll1.Value;
    logPosition(context.log, "At End of HScroll1_Change");
}

void VScroll1_Change(Context& context)
{
    logPosition(context.log, "At Start of VScroll1_Change");
    context.form.pbInner.Top = -context.form.VScroll1.Value;
    logPosition(context.log, "At End of VScroll1_Change");
}

void Form_Resize(Context& context)
{
    logPosition(context.log, "At start of Form_Resize");
    const MainForm& form = context.form;
    const int width = form.ScaleWidth - form.VScroll1.Width;
    const int height = form.ScaleHeight - form.HScroll1.Height;
    if (width > 0 && height > 0) {  // else the form is minimised or tiny
        fitViewport(context.form, width, height);
        logDebug(context.log, "Form resized");
    }
    logPosition(context.log, "At end of Form_Resize");
}

}  // namespace form
