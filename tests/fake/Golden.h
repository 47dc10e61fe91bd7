#pragma once

#include "fake/MemoryFiles.h"

#include <filesystem>
#include <string>
#include <vector>

namespace fake
{

/// Compares all files that lie in a folder of the memory disk with those in a folder of the real
/// one, byte for byte. One sentence for each file that differs, is missing or is one too many.
/// With UPDATE_GOLDEN=1 in the environment the folder is made anew from what is in memory; that is
/// a difference too, so that nobody takes a new golden for a checked one.
std::vector<std::string> differencesFromGolden(const MemoryFiles& files, const std::string& folder,
                                               const std::filesystem::path& golden);

}  // namespace fake
