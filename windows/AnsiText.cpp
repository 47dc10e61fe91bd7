#include "windows/AnsiText.h"

#include "windows/Text.h"

#include <windows.h>

namespace windows
{

bool appendAnsi(std::string_view text, std::string& bytes)
{
    if (text.empty())
        return true;
    constexpr const char* substitute = "?";
    // Without best fit, which takes letters that only look alike.
    constexpr DWORD flags = WC_NO_BEST_FIT_CHARS;
    const std::wstring wide = toWide(text);
    const int size = static_cast<int>(wide.size());
    const int length =
        WideCharToMultiByte(CP_ACP, flags, wide.data(), size, nullptr, 0, substitute, nullptr);
    const std::size_t before = bytes.size();
    bytes.resize(before + static_cast<std::size_t>(length));
    BOOL lost = FALSE;
    WideCharToMultiByte(CP_ACP, flags, wide.data(), size, bytes.data() + before, length, substitute,
                        &lost);
    return lost == FALSE;
}

std::string fromAnsi(std::string_view bytes)
{
    if (bytes.empty())
        return {};
    const int size = static_cast<int>(bytes.size());
    const int length = MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(length), L'\0');
    MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, wide.data(), length);
    return fromWide(wide);
}

}  // namespace windows
