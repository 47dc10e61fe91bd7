// What an object of COM says of its own members: FEMAP's come from the type library that is
// installed.
#pragma once

#include <windows.h>

#include <map>
#include <oleauto.h>
#include <optional>
#include <string>
#include <vector>

namespace probe
{

struct Declared
{
    std::vector<VARTYPE> arguments;  // those by reference with VT_BYREF; without a put value
    VARTYPE returned = VT_EMPTY;
    bool isMethod = false;
};

/// By the numbers of the members.
using Declarations = std::map<DISPID, Declared>;

/// None where the object has no type information; the text tells why.
std::optional<Declarations> declarationsOf(IDispatch& object, std::string& why);

}  // namespace probe
