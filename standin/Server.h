// What all objects of the stand-in share: the model, the sets, and how calls are to go.
#pragma once

#include "femap/TypeLibrary.h"
#include "femap/embedded/Host.h"
#include "standin/Fault.h"
#include "standin/QueuedSelections.h"

#include <cstddef>
#include <fstream>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace standin
{

namespace embedded = femap::embedded;
namespace library = femap::library;

/// What becomes of a call.
enum class Admission
{
    Goes,
    Busy,
    Fails,
};

class Server
{
public:
    explicit Server(bool asClassic) : isClassic(asClassic), host(selections) {}

    const bool isClassic;  // FEMAP before 2020.1
    /// Of FEMAP's type libraries.
    unsigned versions() const { return isClassic ? library::v11_2 : library::v2306; }
    QueuedSelections selections;
    embedded::Host host;
    /// The IDs in FEMAP's sets by the sets' IDs.
    std::map<int, std::set<int>*> sets;
    int lastSetID = 0;  // IDs of sets are not used again

    int objectCount = 0;  // of the objects that are alive, the application too
    int callCount = 0;    // of the calls that came in, except those of the stand-in's own members

    // How many of the next calls are rejected, and which one fails or ends the server; 0: none.
    int busyFor = 0;
    int rejectFor = 0;  // as busyFor, but rejected by the filter before an object sees them
    int failAt = 0;
    int dieAt = 0;

    /// What is wrong with single members.
    Faults faults;

    /// Called before the server dies, to take back what is registered with COM.
    std::function<void()> beforeDeath;

    /// Counts a call. Does not return from the one that the server dies at.
    Admission admit();

    /// Writes each call to a file from now on. Raises RuntimeError.
    void recordTo(const std::string& path);
    void record(const std::string& call);

    /// Null when there is none with that ID.
    const std::set<int>* findSet(int id) const;
    /// The IDs that the number of a set stands for: those of the set, all of the kind for 0, or the
    /// one entity for a negative number. Raises RuntimeError for a set that is not there.
    std::vector<int> idsIn(int set, EntityType type);

private:
    std::ofstream calls_;
};

}  // namespace standin
