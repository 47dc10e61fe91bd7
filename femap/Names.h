// FEMAP's names: it ignores the case of their ASCII letters.
#pragma once

#include <algorithm>
#include <string_view>

namespace femap
{

constexpr bool isSameLetter(char one, char other)
{
    const auto capital = [](char c) { return c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c; };
    return capital(one) == capital(other);
}

constexpr bool isSameName(std::string_view one, std::string_view other)
{
    return std::equal(one.begin(), one.end(), other.begin(), other.end(), isSameLetter);
}

}  // namespace femap
