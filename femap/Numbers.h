// The numbers of properties and materials: FEMAP's arrays of them, and those that have a name too.
#pragma once

#include <cstddef>
#include <string_view>

namespace femap
{

/// How many numbers FEMAP has for each property (pval) and each material (mval).
constexpr std::size_t numbersLength = 200;

/// A number of a material that is a member under a name of its own, too.
struct MaterialNumber
{
    std::string_view name;
    int place;  // in mval, from 0
};

// In the order of FEMAP's type libraries. There is neither an Alphaxz nor a Kxz.
// clang-format off
inline constexpr MaterialNumber materialNumbers[] = {
    {"Ex", 0}, {"Ey", 1}, {"Ez", 2},
    {"Gx", 3}, {"Gy", 4}, {"Gz", 5},
    {"Nuxy", 6}, {"Nuyz", 7}, {"Nuxz", 8},
    {"Alphaxx", 36}, {"Alphayy", 39}, {"Alphazz", 41},
    {"Alphaxy", 37}, {"Alphayz", 40}, {"Alphazx", 38},
    {"Kxx", 42}, {"Kyy", 45}, {"Kzz", 47},
    {"Kxy", 43}, {"Kyz", 46}, {"Kzx", 44},
    {"Cp", 48}, {"Density", 49}, {"Damping", 50}, {"RefTemp", 51},
    {"TensionLimit1", 52}, {"TensionLimit2", 53},
    {"CompressionLimit1", 54}, {"CompressionLimit2", 55},
    {"ShearLimit", 56}, {"TsaiWu", 57},
};
// clang-format on

}  // namespace femap
