// The tips that windows show when the mouse rests on a control.
#pragma once

#include <windows.h>

#include <string_view>

namespace window
{

constexpr int widestTip = 7500;  // twips

/// A window that shows the tips of the owner's controls, and goes with the owner.
HWND createTips(HWND owner);
/// Gives a control a tip.
void addTip(HWND tips, HWND owner, HWND control, std::string_view text);
/// Changes it. What no screen could show is cut.
void setTip(HWND tips, HWND owner, HWND control, std::string_view text);
/// In pixels; longer texts have several lines.
void setTipWidth(HWND tips, int width);

}  // namespace window
