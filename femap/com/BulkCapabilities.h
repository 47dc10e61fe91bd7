// What is known about reading and putting in bulk with one FEMAP.
#pragma once

#include "femap/com/Dispatch.h"
#include "femap/com/bulk/Capability.h"
#include "femap/com/bulk/PrefetchingVector.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace femap::com
{

/// The indices of the named numbers of materials in the array of all their numbers. FEMAP does not
/// tell them, so each named number of a fresh material is set to a value of its own, which is then
/// looked for in the array. The material is never stored in the model.
class MaterialIndices
{
public:
    /// Whether a member is one of the named numbers.
    static bool isNamed(const std::string& member);

    /// Finds the indices of members that were not looked for yet.
    void find(Dispatch& application, const std::vector<std::string>& members);
    bool isLookedFor(const std::string& member) const { return indices_.contains(member); }
    /// None for a member that was not found at exactly one index.
    std::optional<int> of(const std::string& member) const;

private:
    std::map<std::string, std::optional<int>> indices_;
};

struct BulkCapabilities
{
    // By "Node", "Elem", "Prop" or "Matl".
    std::map<std::string, std::shared_ptr<bulk::Capability>> entities;
    std::shared_ptr<bulk::VectorCapabilities> vectors =
        std::make_shared<bulk::VectorCapabilities>();
    bulk::Capability sets;
    std::map<std::string, bulk::Capability> puts;  // by the same words
    MaterialIndices materialIndices;
};

}  // namespace femap::com
