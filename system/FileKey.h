// A short name for a file, the same however its path is spelt.
#pragma once

#include <string>
#include <string_view>

namespace sys
{

/// Sixteen letters and digits for a full path: the same for capitals and small letters of ASCII and
/// either separator where the platform takes them for the same. Two files that differ can have the
/// same key, though that is as unlikely as can be.
std::string keyOfFile(std::string_view path);

}  // namespace sys
