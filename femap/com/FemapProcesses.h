// The processes of FEMAP on this machine: how many there are, and whether rights keep one of them
// and this program from seeing each other's objects.
#pragma once

#include "femap/Application.h"

#include <windows.h>

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace femap::com
{

struct FemapProcess
{
    DWORD number = 0;
    std::optional<bool> isElevated;  // none: it does not let itself be looked at
};

/// Of the user's session: those whose program is FEMAP's or is registered as such.
std::vector<FemapProcess> femapProcesses();
/// The same of programs with these file names.
std::vector<FemapProcess> processesOf(std::span<const std::string> programs);

/// What is to be told of some processes. isElevated: this program; given: the process of the FEMAP
/// that it was given, which it does see; 0 when that is not known.
RunningFemaps runningAmong(std::span<const FemapProcess> processes, std::optional<bool> isElevated,
                           DWORD given);

/// Why no FEMAP was found to attach to.
std::string whyNoneIsFound(const RunningFemaps& running);

}  // namespace femap::com
