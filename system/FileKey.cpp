#include "system/FileKey.h"

#include "system/Platform.h"

#include <cstdint>

namespace sys
{

std::string keyOfFile(const std::string& path)
{
    // FNV-1a of 64 bits.
    constexpr std::uint64_t offset = 0xCBF29CE484222325;
    constexpr std::uint64_t prime = 0x100000001B3;
    std::uint64_t digest = offset;
    for (const char each : foldedPath(path))
        digest = (digest ^ static_cast<unsigned char>(each)) * prime;
    std::string key;
    for (int shift = 60; shift >= 0; shift -= 4)
        key += "0123456789abcdef"[(digest >> shift) & 15];
    return key;
}

}  // namespace sys
