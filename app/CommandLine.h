// What the program was started with: model, log file and log level, out of one argument string.
#pragma once

#include <string>
#include <string_view>

namespace app
{

struct CommandLine
{
    std::string modelFile;    // full path; empty: no model is opened
    std::string logFileName;  // empty: the logger's default name
    std::string logLevel;     // empty: logging off
};

/// The argument string "model$log name$level". Double quotes are dropped wherever they stand;
/// missing fields are empty, further ones are ignored.
CommandLine parseCommandLine(std::string_view arguments);

}  // namespace app
