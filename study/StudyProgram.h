// The program velmar-study: replays, checks or records the script that the arguments name.
#pragma once

#include "femap/Application.h"
#include "femap/SelectionDialogs.h"
#include "system/System.h"

#include <functional>
#include <istream>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace study
{

/// What velmar-study needs of the machine that it runs on.
struct Environment
{
    std::istream& input;
    std::ostream& output;
    std::ostream& errors;
    sys::System& system;
    /// A connector to the FEMAP of this machine; see Platform.h. Empty where there is none.
    std::function<std::unique_ptr<femap::Connector>(femap::SelectionDialogs&)> runningFemap;
    /// Shows the form and records it into a script; see Platform.h. Empty where there is none.
    std::function<void(const std::string& script, const std::string& arguments)> recordedForm = {};
    /// Probes the FEMAP of this machine; see Platform.h. Empty where there is none.
    std::function<int(const std::vector<std::string>& arguments, std::ostream& said)> femapProbe =
        {};
    /// Standard error is a terminal that understands colours.
    bool showsColours = false;
};

/// Arguments are UTF-8. Returns the exit code: 0 the whole script ran or can be run, 1 it was
/// stopped or has problems, 2 wrong arguments, 3 errors were found in the study, when asked for.
int runStudy(const std::vector<std::string>& arguments, const Environment& environment);

/// The same with the things of this machine around it; in Main.cpp.
int runHere(const std::vector<std::string>& arguments);

}  // namespace study
