#include "standin/Server.h"

#include "standin/VectorNumbers.h"
#include "system/RuntimeError.h"
#include "windows/Text.h"

#include <windows.h>

#include <algorithm>
#include <filesystem>

namespace standin
{

using sys::ErrorNumber;
using sys::RuntimeError;
using windows::toWide;

namespace
{

constexpr UINT diedExitCode = 3;
constexpr DWORD millisecondsInASecond = 1000;

bool isDue(int& calls)
{
    return calls > 0 && --calls == 0;
}

}  // namespace

Server::Server(bool asClassic, const Modes& asModes)
    : isClassic(asClassic), modes(asModes), host(selections)
{
    host.indexBeyondArrayRaises = !modes[Mode::BeyondIsZero];
    host.activatesResults = modes[Mode::ReadActivates];
}

Admission Server::admit()
{
    ++callCount;
    if (isDue(dieAt))
        die();
    if (isDue(stallAt))
        stall();
    if (busyFor > 0) {
        --busyFor;
        return Admission::Busy;
    }
    return isDue(failAt) ? Admission::Fails : Admission::Goes;
}

void Server::stall() const
{
    Sleep(static_cast<DWORD>(stallSeconds) * millisecondsInASecond);
}

void Server::die()
{
    record("died");
    if (beforeDeath)
        beforeDeath();
    ExitProcess(diedExitCode);
}

void Server::recordTo(const std::string& path)
{
    calls_.open(std::filesystem::path(toWide(path)));
    if (!calls_)
        throw RuntimeError(ErrorNumber::FileError, "File not written: " + path);
}

void Server::record(const std::string& call)
{
    if (calls_.is_open())
        calls_ << call << std::endl;
}

std::vector<int> Server::idsOf(EntityType type, int ownerSet)
{
    std::vector<int> ids = host.idsOf(type, ownerSet);
    if (type == EntityType::OutputVector) {
        for (int& id : ids)
            id = shownVectorID(id);
        std::ranges::sort(ids);
    }
    return ids;
}

int Server::shownVectorID(int vectorID) const
{
    return !isClassic && modes[Mode::Renumbered] ? newVectorID(vectorID) : vectorID;
}

int Server::ownVectorID(int shownID) const
{
    return !isClassic && modes[Mode::Renumbered] ? oldVectorID(shownID) : shownID;
}

int Server::defaultOutputSet()
{
    return modes[Mode::VectorsOfActiveSet] ? host.activeID(EntityType::OutputSet) : 1;
}

embedded::HostSet* Server::findSet(int id) const
{
    const auto found = host.sets.find(id);
    return found == host.sets.end() ? nullptr : found->second;
}

std::vector<int> Server::idsIn(int set, EntityType type)
{
    if (set < 0)
        return {-set};
    if (set == 0)
        return host.idsOf(type);
    embedded::HostSet* const found = findSet(set);
    if (found == nullptr)
        throw RuntimeError(ErrorNumber::InvalidCall,
                           "FEMAP has no set with the ID " + std::to_string(set));
    return found->ids();
}

}  // namespace standin
