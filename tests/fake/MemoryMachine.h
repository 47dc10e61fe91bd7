#pragma once

#include "fake/MemoryFiles.h"
#include "system/System.h"

#include <map>
#include <string>

namespace fake
{

/// A machine with a disk in memory, a clock that stands still, and an environment of its own.
class MemoryMachine
{
public:
    MemoryMachine() = default;
    MemoryMachine(const MemoryMachine&) = delete;  // the system looks into it
    MemoryMachine& operator=(const MemoryMachine&) = delete;

    MemoryFiles files;
    std::map<std::string, std::string> environment = {{"TEMP", "/temp"}};
    sys::LocalTime time = {2024, 3, 7, 9, 5, 2, 45};
    double seconds = 0;
    sys::System system{files, sys::windows1252(), [this] { return time; },
                       [this] { return seconds; },
                       [this](const std::string& name) { return environment[name]; }};

    /// Where a log lies as long as TEMP stays as it is.
    static std::string logPath(const std::string& name)
    {
        const std::string separator(1, sys::pathSeparator);
        return "/temp" + separator + "korva" + separator + name;
    }
};

}  // namespace fake
