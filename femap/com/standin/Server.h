#pragma once

#include "femap/com/standin/Fault.h"
#include "femap/com/standin/Picks.h"
#include "femap/embedded/Host.h"

#include <cstddef>
#include <fstream>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace femap::com::standin
{

/// What becomes of a call.
enum class Admission
{
    Goes,
    Busy,
    Fails,
};

/// What all objects of the stand-in share: the model, the sets, and how calls are to go.
class Server
{
public:
    explicit Server(bool asClassic) : isClassic(asClassic), host(picks) {}

    const bool isClassic;  // FEMAP before 2020.1
    Picks picks;
    embedded::Host host;
    /// The IDs in FEMAP's sets by the sets' IDs.
    std::map<int, std::set<int>*> sets;
    int lastSetID = 0;  // IDs of sets are not used again

    int objectCount = 0;  // that are alive, the application too
    int callCount = 0;    // that came in, not those of the stand-in's own members

    // From now on: how many calls are rejected, and at which one FEMAP fails or dies; 0: never.
    int busyFor = 0;
    int rejectFor = 0;  // as busyFor, but COM rejects them before the server sees them
    int failAt = 0;
    int dieAt = 0;

    /// What is wrong with single members.
    Faults faults;

    /// Called before the server dies, for what must not stay behind.
    std::function<void()> beforeDeath;

    /// Counts a call. Does not return from the one that the server dies at.
    Admission admit();

    /// Writes each call to a file from now on. Raises RuntimeError.
    void recordTo(const std::string& path);
    void record(const std::string& call);

    /// Null when there is none with that ID.
    const std::set<int>* findSet(int id) const;
    /// The IDs that a set's number means: those of the set, all of the kind for 0, or the one
    /// entity for a negative number. Raises RuntimeError for a set that is not there.
    std::vector<int> idsIn(int set, EntityType type);

private:
    std::ofstream calls_;
};

}  // namespace femap::com::standin
