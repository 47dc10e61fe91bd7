#include "app/window/WaitEnd.h"

#include <initializer_list>

namespace window
{

namespace
{

bool isKey(const MSG& message, WPARAM key)
{
    // Windows sends the second one where no control has the keyboard.
    return (message.message == WM_KEYDOWN || message.message == WM_SYSKEYDOWN) &&
           message.wParam == key;
}

bool closes(const MSG& message)
{
    constexpr WPARAM commandBits = 0xFFF0;
    return message.message == WM_CLOSE ||
           (message.message == WM_NCLBUTTONDOWN && message.wParam == HTCLOSE) ||
           (message.message == WM_SYSCOMMAND && (message.wParam & commandBits) == SC_CLOSE);
}

// A pane shares its queue with FEMAP's windows: while FEMAP handles no messages, no key comes here.
bool isEscapeDownOverPane(HWND form)
{
    const HWND frame = GetAncestor(form, GA_ROOT);
    return frame != form && frame != nullptr && GetForegroundWindow() == frame &&
           GetAsyncKeyState(VK_ESCAPE) < 0;
}

}  // namespace

WaitEnd takeWaitEnd(HWND form)
{
    WaitEnd found = isEscapeDownOverPane(form) ? WaitEnd::Escape : WaitEnd::None;
    MSG message{};
    while (PeekMessageW(&message, nullptr, WM_KEYFIRST, WM_KEYLAST, PM_REMOVE) != FALSE) {
        if (isKey(message, VK_ESCAPE))
            found = WaitEnd::Escape;
        else if (isKey(message, VK_F4) && message.message == WM_SYSKEYDOWN)
            found = WaitEnd::Close;
    }
    for (const UINT kind : std::initializer_list<UINT>{WM_NCLBUTTONDOWN, WM_SYSCOMMAND, WM_CLOSE})
        if (PeekMessageW(&message, form, kind, kind, PM_NOREMOVE) != FALSE && closes(message)) {
            PeekMessageW(&message, form, kind, kind, PM_REMOVE);
            found = WaitEnd::Close;
        }
    return found;
}

}  // namespace window
