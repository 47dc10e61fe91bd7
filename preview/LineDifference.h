// Which lines of a text became which, as a person would mark them.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

namespace preview
{

/// Its lines with their ends. The text must outlive them.
std::vector<std::string_view> linesOf(std::string_view text);

/// Lines in place of others; both are counted from 0, either may be none.
struct Change
{
    std::size_t before = 0;
    std::size_t beforeCount = 0;
    std::size_t after = 0;
    std::size_t afterCount = 0;

    bool operator==(const Change&) const = default;
};

/// From the first to the last one. Time and memory grow with the number of lines alone: where texts
/// differ much, more lines than needed may count as changed.
std::vector<Change> changesBetween(std::span<const std::string_view> before,
                                   std::span<const std::string_view> after);

}  // namespace preview
