#pragma once

#include "fake/MemoryFiles.h"
#include "logging/Module1.h"

#include <map>
#include <string>
#include <vector>

/// The real logger on a disk in memory, not initialised yet.
class LoggerFixture
{
public:
    fake::MemoryFiles files;
    std::map<std::string, std::string> environment = {{"TEMP", "/temp"}};
    logging::LocalTime time;
    logging::System system{files, logging::windows1252(), [this] { return time; },
                           [] { return 0.0; },
                           [this](const std::string& name) { return environment[name]; }};
    logging::FemapLogger log{system};
    logging::PendingError error;

    void start(std::string level) { start(std::move(level), "run.log"); }
    void start(std::string level, std::string name) { log.InitialiseLogger(name, level); }

    static std::string inFolder(const std::string& folder, const std::string& file)
    {
        return folder + logging::pathSeparator + "korva" + logging::pathSeparator + file;
    }

    /// The bytes of the log, once what was gathered is on the disk.
    std::string content()
    {
        log.flush();
        return files.contents.at(inFolder("/temp", "run.log"));
    }
};
