#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// Gives a reader these bytes. Ends the program when what the reader makes of them does not hold.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace fuzz
{

inline std::string textOf(const std::uint8_t* data, std::size_t size)
{
    return {reinterpret_cast<const char*>(data), size};
}

/// Says what does not hold and ends the program.
void require(bool holds, std::string_view what);

}  // namespace fuzz
