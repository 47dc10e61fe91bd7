// The processes of this machine: which programs they run, and with which rights.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

namespace windows
{

struct Process
{
    DWORD number;
    std::string program;         // its file name
    bool isOfOwnSession = true;  // of the user at this screen
};

std::vector<Process> processes();

/// Whether a process is elevated ("as administrator"); none when it does not let itself be looked
/// at.
std::optional<bool> isElevated(HANDLE process);
std::optional<bool> isElevated(DWORD process);

/// The file name of the program that COM starts for a name such as "femap.model"; empty when there
/// is none.
std::string serverProgramOf(const std::string& progID);

/// Whether two file names are the same to Windows.
bool isSameFileName(const std::string& one, const std::string& other);

}  // namespace windows
