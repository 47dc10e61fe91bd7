#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string_view>
#include <vector>

namespace form
{

/// Finds the places of one name: a chain of places, counted from 0, for each hash of a name, in the
/// order in which they were added. Names of one hash share a chain, so who follows it compares the
/// names themselves.
class NameIndex
{
public:
    static constexpr std::uint32_t none = std::numeric_limits<std::uint32_t>::max();

    struct Chain
    {
        std::uint32_t hash = 0;
        std::uint32_t first = none;
        std::uint32_t last = none;  // of a chain that was ever used
    };

    /// Gives its memory back, too.
    void clear() { *this = NameIndex(); }
    void reserve(std::size_t places);

    /// The name of the next place.
    void add(std::string_view name);
    /// Takes back the last place, which is in no chain any more.
    void dropLast() { next_.pop_back(); }

    /// Null when no place has a name of this hash. It holds until the next add.
    Chain* find(std::string_view name);
    /// The one that follows a place in its chain; none at the end.
    std::uint32_t after(std::uint32_t place) const { return next_[place]; }
    /// Takes a place out of its chain. before: the one that it follows, or none.
    void unlink(Chain& chain, std::uint32_t before, std::uint32_t place);

private:
    Chain& slotFor(std::uint32_t hash);
    void spread(std::size_t slots);

    // A table with a power of two of slots, at most half of them used; a chain lies in the first
    // slot from its hash on that was free. One that became empty keeps its slot until the table
    // grows.
    std::vector<Chain> slots_;
    std::size_t used_ = 0;
    std::vector<std::uint32_t> next_;  // for each place
};

}  // namespace form
