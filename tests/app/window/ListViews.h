// List views of other processes: where their rows are, and which are ticked or have a
// picture.
#pragma once

#include <windows.h>

#include <string>

namespace driver
{

/// Where a row is, inside the list view's window.
POINT rowPlaceIn(HWND listView, int item);
/// Presses the mouse button there and does not wait for what comes of it.
void postClick(HWND window, POINT place);
/// The number of the picture before the text, of a list in this process.
int pictureOf(HANDLE process, HWND listView, int item);
/// A cell of a list in this process.
std::string cellIn(HWND listView, int item, int column);
/// Of a list with boxes.
bool isTicked(HWND listView, int item);
int tickedCount(HWND listView);

}  // namespace driver
