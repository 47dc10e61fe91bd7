// Finds the rows of a grid that have one name. Each name that is added has a position, counted from
// 0. The positions of all names with the same hash form a chain, in the order in which they were
// added; different names may share a chain, so whoever follows it compares the names themselves.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string_view>
#include <vector>

namespace form
{

class NameIndex
{
public:
    static constexpr std::uint32_t none = std::numeric_limits<std::uint32_t>::max();

    struct Chain
    {
        std::uint32_t hash = 0;
        std::uint32_t first = none;
        std::uint32_t last = none;  // none only in a slot that was never used
    };

    /// Also frees the memory.
    void clear() { *this = NameIndex(); }
    void reserve(std::size_t positions);

    /// Adds the name of the next position.
    void add(std::string_view name);
    /// Removes the last position, which must have been unlinked.
    void dropLast() { next_.pop_back(); }

    /// The chain of the name's hash; null when there is none. Valid until the next add.
    Chain* find(std::string_view name);
    /// The position that follows this one in its chain; none at the end.
    std::uint32_t after(std::uint32_t position) const { return next_[position]; }
    /// Takes a position out of its chain. before: the position that it follows, or none.
    void unlink(Chain& chain, std::uint32_t before, std::uint32_t position);

private:
    Chain& slotFor(std::uint32_t hash);
    void rehash(std::size_t slots);

    // A hash table with open addressing: the number of slots is a power of two, and at most half of
    // them are used. A chain that became empty keeps its slot until the table grows.
    std::vector<Chain> slots_;
    std::size_t used_ = 0;
    std::vector<std::uint32_t> next_;  // by position
};

}  // namespace form
