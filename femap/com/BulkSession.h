#pragma once

#include "femap/bulk/AheadVector.h"
#include "femap/bulk/Trust.h"
#include "femap/com/Dispatch.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace femap::com
{

/// Where the named numbers of materials stand in the array that holds all of them. FEMAP tells
/// nobody: each is given a number of its own in a fresh material, and that number looked for. The
/// material never goes into the model.
class MaterialPlaces
{
public:
    /// Whether a member is one of the named numbers.
    static bool isNamed(const std::string& member);

    /// Finds the places of those that were not looked for yet.
    void find(Dispatch& application, const std::vector<std::string>& members);
    bool isLookedFor(const std::string& member) const { return places_.contains(member); }
    /// None for a member that was not found in exactly one place.
    std::optional<int> of(const std::string& member) const;

private:
    std::map<std::string, std::optional<int>> places_;
};

/// What is known of reading in bulk from one FEMAP.
struct BulkSession
{
    // By the word of the kind: "Node" …
    std::map<std::string, std::shared_ptr<bulk::Trust>> entities;
    std::shared_ptr<bulk::VectorTrust> vectors = std::make_shared<bulk::VectorTrust>();
    bulk::Trust sets;
    MaterialPlaces materialPlaces;
};

}  // namespace femap::com
