// The numbers of output vectors before 2020.1 and since then, as far as they are known.
#pragma once

namespace standin
{

struct VectorNumber
{
    int before;
    int since;
};

// clang-format off
inline constexpr VectorNumber vectorNumbers[] = {
    {7433, 9033},  // von Mises stress at the bottom of plates
};
// clang-format on

/// A vector that is not in the table has one number.
constexpr int newVectorID(int before)
{
    for (const VectorNumber& one : vectorNumbers)
        if (one.before == before)
            return one.since;
    return before;
}

constexpr int oldVectorID(int since)
{
    for (const VectorNumber& one : vectorNumbers)
        if (one.since == since)
            return one.before;
    return since;
}

}  // namespace standin
