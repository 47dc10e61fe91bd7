#pragma once

#include "femap/TypeLibrary.h"

#include <windows.h>

#include <map>
#include <oleauto.h>

namespace comtest
{

/// Whether COM's type is the one that a letter of FEMAP's type libraries means.
inline bool isOf(VARTYPE type, char letter)
{
    static const std::map<char, int> types = {{'i', VT_I4},      {'l', VT_I8},   {'d', VT_R8},
                                              {'b', VT_BOOL},    {'s', VT_BSTR}, {'v', VT_VARIANT},
                                              {'o', VT_DISPATCH}};
    if (letter == 'v')  // anything, but no reference
        return (type & VT_BYREF) == 0;
    return femap::library::isFilled(letter)
               ? type == (VT_BYREF | types.at(static_cast<char>(letter - 'A' + 'a')))
               : type == types.at(letter);
}

}  // namespace comtest
