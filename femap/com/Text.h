#pragma once

#include <windows.h>

#include <oleauto.h>
#include <string>
#include <string_view>

namespace femap::com
{

/// The edge between the program's UTF-8 and COM's UTF-16. Malformed text becomes U+FFFD.
std::wstring toWide(std::string_view text);
std::string fromWide(std::wstring_view text);

/// Text as COM passes it; the caller owns it. Raises std::bad_alloc.
BSTR toBstr(std::string_view text);
/// A null BSTR is the empty text.
std::string fromBstr(BSTR text);

/// "0x800706BA: The RPC server is unavailable." in the system's language.
std::string describe(HRESULT result);

}  // namespace femap::com
