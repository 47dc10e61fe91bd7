#include "windows/Text.h"

#include <array>
#include <cstdio>

namespace windows
{

std::wstring toWide(std::string_view text)
{
    const int size = static_cast<int>(text.size());
    const int length = MultiByteToWideChar(CP_UTF8, 0, text.data(), size, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(length), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), size, wide.data(), length);
    return wide;
}

std::string fromWide(std::wstring_view text)
{
    const int size = static_cast<int>(text.size());
    const int length =
        WideCharToMultiByte(CP_UTF8, 0, text.data(), size, nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<std::size_t>(length), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), size, narrow.data(), length, nullptr, nullptr);
    return narrow;
}

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

std::string describe(HRESULT result)
{
    std::array<char, 16> code{};
    static_cast<void>(
        std::snprintf(code.data(), code.size(), "0x%08lX", static_cast<unsigned long>(result)));
    std::array<wchar_t, 512> reason{};
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                                        nullptr, static_cast<DWORD>(result), 0, reason.data(),
                                        static_cast<DWORD>(reason.size()), nullptr);
    std::wstring_view text(reason.data(), length);
    while (!text.empty() && (text.back() == L'\n' || text.back() == L'\r' || text.back() == L' '))
        text.remove_suffix(1);
    return text.empty() ? std::string(code.data())
                        : std::string(code.data()) + ": " + fromWide(text);
}

}  // namespace windows
