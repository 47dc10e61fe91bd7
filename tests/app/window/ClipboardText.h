// What is on the clipboard, as text.
#pragma once

#include "windows/Text.h"

#include <windows.h>

#include <algorithm>
#include <string>

namespace driver
{

inline void putOnClipboard(const std::wstring& text)
{
    OpenClipboard(nullptr);
    EmptyClipboard();
    const std::size_t size = (text.size() + 1) * sizeof(wchar_t);
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, size);
    std::copy_n(text.c_str(), text.size() + 1, static_cast<wchar_t*>(GlobalLock(memory)));
    GlobalUnlock(memory);
    SetClipboardData(CF_UNICODETEXT, memory);
    CloseClipboard();
}

inline std::string clipboardText()
{
    if (OpenClipboard(nullptr) == FALSE)
        return {};
    std::string text;
    if (const HANDLE data = GetClipboardData(CF_UNICODETEXT); data != nullptr) {
        text = windows::fromWide(static_cast<const wchar_t*>(GlobalLock(data)));
        GlobalUnlock(data);
    }
    CloseClipboard();
    return text;
}

}  // namespace driver
