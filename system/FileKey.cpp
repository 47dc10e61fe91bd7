#include "system/FileKey.h"

#include "system/Files.h"

#include <cstdint>

namespace sys
{

std::string keyOfFile(std::string_view path)
{
    // FNV-1a of 64 bits.
    constexpr std::uint64_t start = 0xcbf29ce484222325;
    constexpr std::uint64_t prime = 0x100000001b3;
    const bool isFolded = pathSeparators.size() > 1;
    std::uint64_t hash = start;
    for (char letter : path) {
        if (isFolded && letter >= 'A' && letter <= 'Z')
            letter = static_cast<char>(letter - 'A' + 'a');
        if (pathSeparators.find(letter) != std::string_view::npos)
            letter = pathSeparator;
        hash = (hash ^ static_cast<unsigned char>(letter)) * prime;
    }
    std::string key;
    for (int shift = 60; shift >= 0; shift -= 4)
        key += "0123456789abcdef"[(hash >> shift) & 15];
    return key;
}

}  // namespace sys
