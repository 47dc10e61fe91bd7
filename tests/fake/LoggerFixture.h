#pragma once

#include "fake/MemoryMachine.h"
#include "logging/Module1.h"

#include <string>
#include <utility>

/// The real logger on a machine in memory, not initialised yet.
namespace fake
{

class LoggerFixture : public MemoryMachine
{
public:
    logging::FemapLogger log{system};
    sys::PendingError error;

    void start(std::string level) { start(std::move(level), "run.log"); }
    void start(std::string level, std::string name) { log.InitialiseLogger(name, level); }

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
