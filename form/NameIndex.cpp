#include "form/NameIndex.h"

#include <algorithm>
#include <bit>
#include <functional>
#include <utility>

namespace form
{

namespace
{

constexpr std::size_t fewestSlots = 16;

std::uint32_t hashOf(std::string_view name)
{
    return static_cast<std::uint32_t>(std::hash<std::string_view>{}(name));
}

}  // namespace

void NameIndex::reserve(std::size_t positions)
{
    next_.reserve(positions);
    if (2 * positions > slots_.size())
        rehash(2 * positions);
}

void NameIndex::add(std::string_view name)
{
    if (2 * used_ >= slots_.size())
        rehash(4 * used_);
    const auto position = static_cast<std::uint32_t>(next_.size());
    const std::uint32_t hash = hashOf(name);
    Chain& chain = slotFor(hash);
    next_.push_back(none);
    if (chain.last == none)
        ++used_;
    if (chain.first == none)
        chain = {hash, position, position};
    else
        next_[std::exchange(chain.last, position)] = position;
}

NameIndex::Positions NameIndex::rowsNamed(std::string_view name)
{
    return {*this, slots_.empty() ? nullptr : &slotFor(hashOf(name))};
}

NameIndex::Positions::Positions(NameIndex& index, Chain* chain)
    : index_(index), chain_(chain), position_(chain == nullptr ? none : chain->first)
{}

void NameIndex::Positions::goOn()
{
    before_ = std::exchange(position_, index_.next_[position_]);
}

void NameIndex::Positions::remove()
{
    const std::uint32_t after = index_.next_[position_];
    (before_ == none ? chain_->first : index_.next_[before_]) = after;
    if (after == none && before_ != none)
        chain_->last = before_;
    position_ = after;
}

// The chain of the hash, or the free slot in which it belongs.
NameIndex::Chain& NameIndex::slotFor(std::uint32_t hash)
{
    const std::size_t mask = slots_.size() - 1;
    std::size_t slot = hash & mask;
    while (slots_[slot].last != none && slots_[slot].hash != hash)
        slot = (slot + 1) & mask;
    return slots_[slot];
}

void NameIndex::rehash(std::size_t slots)
{
    const std::vector<Chain> chains =
        std::exchange(slots_, std::vector<Chain>(std::bit_ceil(std::max(slots, fewestSlots))));
    used_ = 0;
    for (const Chain& chain : chains) {
        if (chain.first == none)
            continue;
        slotFor(chain.hash) = chain;
        ++used_;
    }
}

}  // namespace form
