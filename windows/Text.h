// Texts between the program's UTF-8 and Windows: its UTF-16, the code page of the user's text files
// (the ANSI code page), and the texts of its errors.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace windows
{

/// All conversions raise std::runtime_error when Windows refuses one; nothing is appended then.

/// Convert between UTF-8 and UTF-16. Malformed text becomes U+FFFD.
std::wstring toWide(std::string_view text);
std::string fromWide(std::wstring_view text);

/// Appends UTF-8 text in the ANSI code page, or another one; false when a character that it lacks
/// became "?", or when the text is malformed.
bool appendAnsi(std::string_view text, std::string& bytes, UINT page = CP_ACP);
/// Bytes of that code page as UTF-8.
std::string fromAnsi(std::string_view bytes, UINT page = CP_ACP);

/// "0x800706BA: The RPC server is unavailable." in the system's language.
std::string describe(HRESULT result);

}  // namespace windows
