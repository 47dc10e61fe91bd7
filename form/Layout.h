// Lays out the main form. The content (pbInner) is as large as the viewport, but never smaller than
// its smallest size; what is to spare goes to the grids. Lengths are in twips from its corner.
#pragma once

#include "form/MainForm.h"

namespace form
{

/// The smallest content, in twips; a smaller window scrolls.
constexpr int smallestContentWidth = 9000;
constexpr int smallestContentHeight = 8400;

/// Size of a fresh window's inside, in twips.
constexpr int startWidth = 12600;
constexpr int startHeight = 10200;

constexpr int scrollBarThickness = 255;  // twips

void layOutContent(MainForm& form);

}  // namespace form
