// Looks at a real FEMAP from outside and writes a report of what is different from what the tool
// believes. Without a copy to write into it changes nothing in the model.
#pragma once

#include "system/System.h"

#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace probe
{

struct Options
{
    std::string report;  // the file
    bool asks = false;   // show selection dialogs
    int eventSeconds = 0;
    std::string copy;  // a model that may be changed; empty: none
    bool hidesNames = false;
};

/// What is wrong with the arguments; empty: nothing. The options are filled in.
std::string parse(const std::vector<std::string>& arguments, Options& options);

/// Raises RuntimeError when the report cannot be written, or when the copy is not the model that is
/// open. What the engineer has to do meanwhile is told on the stream. Returns whether FEMAP was
/// there to the end.
bool run(const Options& options, sys::System& system, std::string_view version, std::ostream& said);

/// The same for a command line. Returns the exit code: 0 FEMAP was probed, 1 it was not reached or
/// has ended, 2 wrong arguments.
int runProbe(const std::vector<std::string>& arguments, sys::System& system,
             std::string_view version, std::ostream& said);

}  // namespace probe
