// A short name for a file, the same however its path is spelt.
#pragma once

#include <string>

namespace sys
{

/// Sixteen letters and digits for a full path: the same for small and capital letters and for
/// either slash where the platform takes them for the same. That two files have one is as unlikely
/// as can be.
std::string keyOfFile(const std::string& path);

}  // namespace sys
