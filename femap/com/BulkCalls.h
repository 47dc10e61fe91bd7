// What all bulk calls over COM share: comparing names, listing IDs, and a set for passing IDs in.
#pragma once

#include "femap/Constants.h"
#include "femap/com/Dispatch.h"

#include <span>
#include <string_view>
#include <vector>

namespace femap::com
{

/// An array that FEMAP counted may be longer than its count.
template <class Element>
void cutTo(std::vector<Element>& elements, LONG count)
{
    if (count >= 0 && elements.size() > static_cast<std::size_t>(count))
        elements.resize(static_cast<std::size_t>(count));
}

/// The IDs that a set object holds, ascending and positive; raises RuntimeError for others.
std::vector<int> idsIn(Dispatch& set);

/// All IDs of a kind, ascending.
std::vector<int> allIDs(Dispatch& application, EntityType type);

/// A set object of FEMAP's that passes IDs to bulk calls.
class ScratchSet
{
public:
    explicit ScratchSet(Dispatch& application);

    /// Makes it hold these IDs only.
    void fill(std::span<const int> ids);
    int ID() const { return id_; }

private:
    Dispatch set_;
    int id_;
    std::vector<int> held_;
};

}  // namespace femap::com
