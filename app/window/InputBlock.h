// Keeps mouse and keyboard away from what the form holds while a procedure runs.
#pragma once

#include <windows.h>

namespace window
{

/// While it lives the content is disabled, but not the frame around it: it can be moved and closed.
class InputBlock
{
public:
    /// Releases the mouse first where something in the form holds it.
    InputBlock(HWND form, HWND content);
    ~InputBlock();
    InputBlock(const InputBlock&) = delete;
    InputBlock& operator=(const InputBlock&) = delete;

private:
    HWND content_;
    bool wasDisabled_;
};

/// Forgets keys and clicks that wait for the form and what is in it, but for keys that end
/// something: Esc and Alt+F4. The close box belongs to the frame and is none of them.
void dropInput(HWND form);

}  // namespace window
