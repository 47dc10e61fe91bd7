// Texts between the program's UTF-8 and Windows' UTF-16, and Windows' texts of its errors.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace windows
{

/// Convert between UTF-8 and UTF-16. Malformed text becomes U+FFFD.
std::wstring toWide(std::string_view text);
std::string fromWide(std::wstring_view text);

/// "0x800706BA: The RPC server is unavailable." in the system's language.
std::string describe(HRESULT result);

}  // namespace windows
