// The status line on the screen: two lines of text that never look off, and all of it in a tip.
#pragma once

#include "app/window/Controls.h"

#include <windows.h>

#include <string_view>

namespace window
{

class StatusView
{
public:
    StatusView(HWND parent, int id);

    HWND window() const { return window_; }

    /// Lets these tips show the whole text; owner is the window that the tips belong to.
    void addTip(HWND tips, HWND owner);
    void show(std::string_view text);
    /// The answer to WM_DRAWITEM, which Windows sends to the parent.
    void draw(const DRAWITEMSTRUCT& item) const;

private:
    HWND window_;
    HWND tips_ = nullptr;
    HWND tipOwner_ = nullptr;
};

}  // namespace window
