#pragma once

#include <windows.h>

#include <filesystem>
#include <string>
#include <vector>

namespace driver
{

/// An engineer's hand on mouse and keyboard. It works at the display, so what it does comes to the
/// windows as everything does that an engineer does. Under Wine only, by xdotool.
class Hand
{
public:
    Hand();
    ~Hand();
    Hand(const Hand&) = delete;
    Hand& operator=(const Hand&) = delete;

    // IDIndex are those of the screen, in pixels. Each returns when the display has it; the windows
    // hear of it a little later.
    void moveTo(POINT place);
    /// held: a key that is down meanwhile, such as "ctrl".
    void clickAt(POINT place, const std::string& held = "");
    void rightClickAt(POINT place);
    void doubleClickAt(POINT place);
    void pressAt(POINT place);
    void release();
    void drag(POINT from, POINT to);
    /// Towards the engineer when the number is negative.
    void turnWheel(POINT place, int notches);
    /// Such as "Return" or "alt+F4"; several are pressed one after the other. Waits until the
    /// window in front gets the keys.
    void key(const std::vector<std::string>& keys);
    void type(const std::string& text);

    /// Waits until the display sends keys to this window. Windows that come and go get them a
    /// little later than Windows' own focus tells.
    void awaitKeyboardAt(HWND window);

private:
    void awaitDisplayAt(POINT place);
    bool hasKeyboard(HWND window);
    std::string act(const std::vector<std::string>& words);

    std::filesystem::path answer_;
    bool isPressed_ = false;
};

/// The middle of a window, and a place inside it.
POINT middleOf(HWND window);
POINT placeIn(HWND window, POINT inside);
/// The arrow of a box, and an item's place in its open list.
POINT arrowOf(HWND box);
POINT itemPlaceIn(HWND openList, HWND box, int item);

}  // namespace driver
