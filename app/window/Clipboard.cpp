#include "app/window/Clipboard.h"

#include <algorithm>

namespace window
{

namespace
{

// Another program may have the clipboard open for a moment.
bool openClipboard(HWND owner)
{
    constexpr int tries = 10;
    constexpr DWORD pause = 20;  // milliseconds
    for (int i = 0; i < tries; ++i) {
        if (OpenClipboard(owner) != FALSE)
            return true;
        Sleep(pause);
    }
    return false;
}

}  // namespace

void putOnClipboard(HWND owner, const std::wstring& text)
{
    const std::size_t size = (text.size() + 1) * sizeof(wchar_t);
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, size);
    if (memory == nullptr)
        return;
    std::copy_n(text.c_str(), text.size() + 1, static_cast<wchar_t*>(GlobalLock(memory)));
    GlobalUnlock(memory);
    bool given = false;
    if (openClipboard(owner)) {
        EmptyClipboard();
        given = SetClipboardData(CF_UNICODETEXT, memory) != nullptr;
        CloseClipboard();
    }
    if (!given)
        GlobalFree(memory);
}

}  // namespace window
