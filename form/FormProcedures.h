// The form's procedures that need no FEMAP: clearing and removing rows, scrolling, resizing.
#pragma once

#include "form/Context.h"

namespace form
{

constexpr int deleteKey = 46;

/// "Clear All": both grids become the header and one blank row.
void ClearAll_Click(Context& context);

/// "Remove Selected" under Input and under Output.
void ClearInputSelection_Click(Context& context);
void ClearOutputSelection_Click(Context& context);

/// A key in a grid; Delete removes the selected rows.
void InputsList_KeyDown(Context& context, int keyCode);
void OutputsList_KeyDown(Context& context, int keyCode);

/// Removes count rows, beginning with the row first. Logs a refusal of the grid and ends there.
void DeleteSelection(Context& context, ParameterGrid& grid, int first, int count);

/// The scroll bars move the content.
void HScroll1_Change(Context& context);
void VScroll1_Change(Context& context);

/// Fits scroll bars and viewport to the form's inner size.
void Form_Resize(Context& context);

}  // namespace form
