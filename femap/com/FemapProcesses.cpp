#include "femap/com/FemapProcesses.h"

#include "windows/Processes.h"

#include <algorithm>
#include <array>

namespace femap::com
{

namespace
{

constexpr const char* femapProgram = "femap.exe";

// A program that is not elevated may not look at one that is.
bool isHidden(std::optional<bool> isElevated, std::optional<bool> other)
{
    return isElevated && *isElevated != other.value_or(true);
}

}  // namespace

std::vector<FemapProcess> femapProcesses()
{
    return processesOf(
        std::array{std::string(femapProgram), windows::serverProgramOf("femap.model")});
}

std::vector<FemapProcess> processesOf(std::span<const std::string> programs)
{
    std::vector<FemapProcess> found;
    for (const windows::Process& each : windows::processes()) {
        const bool isOne = std::ranges::any_of(programs, [&](const std::string& name) {
            return windows::isSameFileName(each.program, name);
        });
        if (isOne && each.isOfOwnSession)
            found.push_back({each.number, windows::isElevated(each.number)});
    }
    return found;
}

RunningFemaps runningAmong(std::span<const FemapProcess> processes, std::optional<bool> isElevated,
                           DWORD given)
{
    RunningFemaps running;
    running.count = std::max(static_cast<int>(processes.size()), 1);
    if (given != 0)
        running.process = given;
    running.isOneHidden = std::ranges::any_of(processes, [&](const FemapProcess& each) {
        return each.number != given && isHidden(isElevated, each.isElevated);
    });
    return running;
}

std::string whyNoneIsFound(const RunningFemaps& running)
{
    return running.isOneHidden
               ? "FEMAP is running, but it and this program cannot see each other: only one of the "
                 "two was started as administrator. Start both the same way"
               : "No FEMAP is running";
}

}  // namespace femap::com
