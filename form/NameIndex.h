// Finds the rows of a grid that have one name. Each name that is added has a position, counted from
// 0.
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
    struct Chain;

public:
    /// The positions of one name, in the order in which they were added. Names with the same hash
    /// are among them, so whoever follows it compares the names. Valid until the next add.
    class Positions
    {
    public:
        bool atEnd() const { return position_ == none; }
        std::size_t position() const { return position_; }
        void goOn();
        /// Takes the position out of the index and goes on.
        void remove();

    private:
        friend class NameIndex;
        Positions(NameIndex& index, Chain* chain);

        NameIndex& index_;
        Chain* chain_;
        std::uint32_t before_ = none;
        std::uint32_t position_;
    };

    /// Also frees the memory.
    void clear() { *this = NameIndex(); }
    void reserve(std::size_t positions);

    /// Adds the name of the next position.
    void add(std::string_view name);
    /// Gives the last position away again, which must have been removed.
    void dropLast() { next_.pop_back(); }

    Positions rowsNamed(std::string_view name);

private:
    static constexpr std::uint32_t none = std::numeric_limits<std::uint32_t>::max();

    // The positions of all names with one hash.
    struct Chain
    {
        std::uint32_t hash = 0;
        std::uint32_t first = none;
        std::uint32_t last = none;  // none only in a slot that was never used
    };

    Chain& slotFor(std::uint32_t hash);
    void rehash(std::size_t slots);

    // A hash table with open addressing: the number of slots is a power of two, and at most half of
    // them are used. A chain that became empty keeps its slot until the table grows.
    std::vector<Chain> slots_;
    std::size_t used_ = 0;
    std::vector<std::uint32_t> next_;  // by position: the one that follows it in its chain
};

}  // namespace form
