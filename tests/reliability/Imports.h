#pragma once

#include <map>
#include <set>
#include <string>

namespace reliability
{

/// What a Windows program asks of which library, as its file says: function names by the name of
/// the library in small letters. Functions that are asked for by number are left out.
using Imports = std::map<std::string, std::set<std::string>>;

/// Throws when the bytes are no 64-bit Windows program.
Imports importsOf(const std::string& program);

}  // namespace reliability
