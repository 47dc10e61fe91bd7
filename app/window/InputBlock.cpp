#include "app/window/InputBlock.h"

#include <vector>

namespace window
{

namespace
{

bool isKept(const MSG& message)
{
    return (message.message == WM_KEYDOWN && message.wParam == VK_ESCAPE) ||
           (message.message == WM_SYSKEYDOWN && message.wParam == VK_F4);
}

}  // namespace

InputBlock::InputBlock(HWND form, HWND content) : content_(content)
{
    if (IsChild(form, GetCapture()) != FALSE)
        ReleaseCapture();
    wasDisabled_ = EnableWindow(content_, FALSE) != FALSE;
}

InputBlock::~InputBlock()
{
    if (!wasDisabled_)
        EnableWindow(content_, TRUE);
}

void dropInput(HWND form)
{
    std::vector<MSG> kept;
    MSG message{};
    while (PeekMessageW(&message, form, WM_KEYFIRST, WM_KEYLAST, PM_REMOVE) != FALSE)
        if (isKept(message))
            kept.push_back(message);
    while (PeekMessageW(&message, form, WM_MOUSEFIRST, WM_MOUSELAST, PM_REMOVE) != FALSE) {
    }
    for (const MSG& each : kept)
        PostMessageW(each.hwnd, each.message, each.wParam, each.lParam);
}

}  // namespace window
