#pragma once

#include "fake/MemoryMachine.h"
#include "logging/Module1.h"

#include <string>
#include <utility>

namespace fake
{

/// Initialises a logger whose test does not look at what becomes of level and name.
inline void start(logging::FemapLogger& log, std::string level, std::string name = "run.log")
{
    log.InitialiseLogger(name, level);
}

/// The real logger on a machine in memory, not initialised yet.
class LoggerFixture : public MemoryMachine
{
public:
    logging::FemapLogger log{system};
    sys::PendingError error;

    void start(std::string level, std::string name = "run.log")
    {
        fake::start(log, std::move(level), std::move(name));
    }

    static std::string inFolder(const std::string& folder, const std::string& file)
    {
        return folder + sys::pathSeparator + "korva" + sys::pathSeparator + file;
    }

    /// The bytes of the log, once what was gathered is on the disk.
    std::string content()
    {
        log.flush();
        return files.contents.at(inFolder("/temp", "run.log"));
    }
};

}  // namespace fake
