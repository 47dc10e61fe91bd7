// Lays out the main form. The content (pbInner) is as large as the viewport, but never smaller than
// its smallest size; what is to spare goes to the grids. Where a line does not fit, as in a narrow
// pane of FEMAP, it is broken between its controls. Lengths are in twips from the corner.
#pragma once

#include "form/MainForm.h"

namespace form
{

/// The smallest width of the content, in twips; a window narrower than 280 pixels of an ordinary
/// screen scrolls sideways. The smallest height follows from how many lines are broken.
constexpr int smallestContentWidth = 3945;
/// From here on no line is broken.
constexpr int smallestWideContent = 9000;

/// Size of a fresh window's inside, in twips.
constexpr int startWidth = 12600;
constexpr int startHeight = 10200;

constexpr int scrollBarThickness = 255;  // twips

/// What the list of inputs gets of the height that both lists share, in thousandths.
constexpr int evenShare = 500;
constexpr int wholeShare = 1000;

/// Raises or lowers the share so that no list becomes too small to be used.
void layOutContent(MainForm& form, int inputShare = evenShare);

}  // namespace form
