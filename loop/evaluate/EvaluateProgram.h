// velmar-evaluate: runs one point of a study or many, for whoever optimises it.
#pragma once

#include "loop/Program.h"
#include "system/System.h"

#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

namespace loop::evaluate
{

/// What the program has of its machine.
struct Environment
{
    std::ostream& output;
    std::ostream& errors;
    sys::System& system;
    std::string programFolder;  // where CAEInput and CAEOutput are, as the beginning of paths
    std::function<bool()> isToStop;
    std::function<Connection()> running = {};  // empty where FEMAP does not run
};

/// Returns the exit code: 0 when all is done, 1 when not, 2 for wrong arguments.
int runEvaluate(const std::vector<std::string>& arguments, const Environment& environment);

/// The same with the things of this machine.
int runHere(const std::vector<std::string>& arguments);

}  // namespace loop::evaluate
