#pragma once

#include "app/form/MainForm.h"

namespace win32
{

/// The smallest content, in twips; a smaller window scrolls.
constexpr int smallestContentWidth = 9000;
constexpr int smallestContentHeight = 8400;

/// Size of a fresh window's inside, in twips.
constexpr int startWidth = 12600;
constexpr int startHeight = 10200;

/// Thickness of the scroll bars, in twips.
constexpr int scrollBarThickness = 255;

/// Gives the content (pbInner) and everything on it their places, in twips from the content's
/// corner. The content is as large as the viewport, but never smaller than its smallest size; what
/// is to spare goes to the grids.
void layOutContent(form::MainForm& form);

}  // namespace win32
