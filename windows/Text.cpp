#include "windows/Text.h"

#include <array>
#include <cstdio>
#include <limits>
#include <stdexcept>

namespace windows
{

namespace
{

constexpr std::size_t bytesOfAUnit = 4;  // no page takes more for a unit of UTF-16

[[noreturn]] void failToConvert(UINT page, DWORD error)
{
    throw std::runtime_error("Windows does not convert this text (code page " +
                             std::to_string(page) + "): " + describe(HRESULT_FROM_WIN32(error)));
}

// The size of a text or a buffer as Windows takes it.
int sizeOf(std::size_t size, UINT page)
{
    if (size > static_cast<std::size_t>(std::numeric_limits<int>::max()))
        failToConvert(page, ERROR_FILE_TOO_LARGE);
    return static_cast<int>(size);
}

std::wstring toWide(std::string_view text, UINT page)
{
    if (text.empty())
        return {};
    // No page needs more units than bytes.
    std::wstring wide(text.size(), L'\0');
    const int size = sizeOf(text.size(), page);
    const int length = MultiByteToWideChar(page, 0, text.data(), size, wide.data(), size);
    if (length == 0)
        failToConvert(page, GetLastError());
    wide.resize(static_cast<std::size_t>(length));
    return wide;
}

// Appends the text in that page; false when a character became the substitute. Without a substitute
// the page must have every character.
bool append(std::wstring_view wide, std::string& bytes, UINT page, const char* substitute)
{
    if (wide.empty())
        return true;
    const std::size_t before = bytes.size();
    const std::size_t room = wide.size() * bytesOfAUnit;
    // Without best fit, which takes letters that only look alike.
    const DWORD flags = substitute == nullptr ? 0 : WC_NO_BEST_FIT_CHARS;
    BOOL isLost = FALSE;
    bytes.resize(before + room);
    const int length = WideCharToMultiByte(page, flags, wide.data(), sizeOf(wide.size(), page),
                                           bytes.data() + before, sizeOf(room, page), substitute,
                                           substitute == nullptr ? nullptr : &isLost);
    const DWORD error = GetLastError();
    bytes.resize(before + static_cast<std::size_t>(length));
    if (length == 0)
        failToConvert(page, error);
    return isLost == FALSE;
}

}  // namespace

std::wstring toWide(std::string_view text)
{
    return toWide(text, CP_UTF8);
}

std::string fromWide(std::wstring_view text)
{
    std::string narrow;
    append(text, narrow, CP_UTF8, nullptr);
    return narrow;
}

bool appendAnsi(std::string_view text, std::string& bytes, UINT page)
{
    const UINT number = page == CP_ACP ? GetACP() : page;
    const std::wstring wide = toWide(text);
    if (number != CP_UTF8)
        return append(wide, bytes, number, "?");
    // It has every character and takes neither flags nor a substitute.
    append(wide, bytes, number, nullptr);
    return fromWide(wide) == text;
}

std::string fromAnsi(std::string_view bytes, UINT page)
{
    return fromWide(toWide(bytes, page));
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
