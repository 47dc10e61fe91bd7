// What all objects of the stand-in share: the model, the sets, and how calls are to go.
#pragma once

#include "femap/TypeLibrary.h"
#include "femap/embedded/Host.h"
#include "femap/embedded/HostObjects.h"
#include "standin/Fault.h"
#include "standin/Modes.h"
#include "standin/QueuedSelections.h"

#include <cstddef>
#include <fstream>
#include <functional>
#include <memory>
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
    explicit Server(bool asClassic, const Modes& asModes = {});

    const bool isClassic;  // FEMAP before 2020.1
    const Modes modes;
    /// Of FEMAP's type libraries.
    unsigned version() const { return isClassic ? library::v11_2 : library::v2306; }
    bool hasSuperseded() const { return !isClassic && modes[Mode::Superseded]; }
    /// The superseded members that were called, such as "set.SelectMultiID".
    std::vector<std::string> supersededCalls;
    QueuedSelections selections;
    embedded::Host host;

    int objectCount = 0;  // of the objects that are alive, the application too
    int callCount = 0;    // of the calls that came in, except those of the stand-in's own members

    // How many of the next calls are rejected, and which one fails or ends the server; 0: none.
    int busyFor = 0;
    int rejectFor = 0;  // as busyFor, but rejected by the filter before an object sees them
    int failAt = 0;
    int dieAt = 0;
    int stallAt = 0;
    int stallSeconds = 0;  // how long that call takes, and members with that fault

    /// What is wrong with single members.
    Faults faults;

    /// Called before the server dies, to take back what is registered with COM.
    std::function<void()> beforeDeath;
    /// From now on nobody who wants a new FEMAP gets this one.
    std::function<void()> withdrawClass;

    /// Counts a call. Does not return from the one that the server dies at.
    Admission admit();
    void stall() const;
    [[noreturn]] void die();

    /// Writes each call to a file from now on. Raises RuntimeError.
    void recordTo(const std::string& path);
    void record(const std::string& call);

    /// The IDs of a kind; load definitions and output vectors are those of the owner set.
    std::vector<int> idsOf(EntityType type, int ownerSet);
    /// The ID under which FEMAP shows the model's vector, and the other way round.
    int shownVectorID(int vectorID) const;
    int ownVectorID(int shownID) const;
    bool refusesDialogs() const { return modes[Mode::LockedNoDialogs] && host.lockCount > 0; }
    /// Where vectors are taken from when nobody says it: the first output set, or the active one.
    int defaultOutputSet();

    /// Null when there is none with that ID.
    embedded::HostSet* findSet(int id) const;
    /// The IDs that the number of a set stands for: those of the set, all of the kind for 0, or the
    /// one entity for a negative number. Raises RuntimeError for a set that is not there.
    std::vector<int> idsIn(int set, EntityType type);

private:
    std::ofstream calls_;
};

}  // namespace standin
