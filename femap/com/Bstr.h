// Converts between the program's UTF-8 and BSTR, the text type of COM.
#pragma once

#include "windows/Text.h"

#include <new>
#include <oleauto.h>
#include <string>
#include <string_view>

namespace femap::com
{

/// Text as COM passes it; the caller owns it. Raises std::bad_alloc.
inline BSTR toBstr(std::string_view text)
{
    const std::wstring wide = windows::toWide(text);
    BSTR result = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
    if (result == nullptr)
        throw std::bad_alloc();
    return result;
}

/// A null BSTR is the empty text.
inline std::string fromBstr(BSTR text)
{
    return text == nullptr ? std::string() : windows::fromWide({text, SysStringLen(text)});
}

}  // namespace femap::com
