#include "standin/Server.h"

#include "system/RuntimeError.h"
#include "windows/Text.h"

#include <windows.h>

#include <filesystem>

namespace standin
{

using sys::ErrorNumber;
using sys::RuntimeError;
using windows::toWide;

namespace
{

constexpr UINT diedExitCode = 3;

bool isDue(int& calls)
{
    return calls > 0 && --calls == 0;
}

}  // namespace

Admission Server::admit()
{
    ++callCount;
    if (isDue(dieAt)) {
        record("died");
        if (beforeDeath)
            beforeDeath();
        ExitProcess(diedExitCode);
    }
    if (busyFor > 0) {
        --busyFor;
        return Admission::Busy;
    }
    return isDue(failAt) ? Admission::Fails : Admission::Goes;
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

const std::set<int>* Server::findSet(int id) const
{
    const auto found = sets.find(id);
    return found == sets.end() ? nullptr : found->second;
}

std::vector<int> Server::idsIn(int set, EntityType type)
{
    if (set < 0)
        return {-set};
    if (set == 0)
        return host.idsOf(type);
    const std::set<int>* const found = findSet(set);
    if (found == nullptr)
        throw RuntimeError(ErrorNumber::InvalidCall,
                           "FEMAP has no set with the ID " + std::to_string(set));
    return {found->begin(), found->end()};
}

}  // namespace standin
