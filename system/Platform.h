// What each platform does in its own way. Paths are UTF-8.
#pragma once

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <string>
#include <system_error>

namespace sys
{

struct LocalTime;
class CodePage;

/// The path as this platform's functions take it, however long it is.
std::filesystem::path toPath(const std::string& path);
/// Absolute and without parts such as ".."; the reason tells when there is none.
std::string fullPath(const std::string& path, std::error_code& reason);
/// The same for all spellings of a path that this platform takes for the same.
std::string foldedPath(const std::string& path);
/// Whether the system takes the path for a device, whatever lies in its folder.
bool namesDevice(const std::string& path);
enum class Access
{
    Read,
    Write,   // the file is emptied
    Append,  // behind what the file holds
};
/// Binary; null when the file cannot be opened, and errno tells why: EISDIR when it is a folder,
/// ENODEV when it is a pipe or a device that cannot stand for a file. Never waits for one.
std::FILE* openFile(const std::string& path, Access access);
/// For reading and writing, for this process alone, and only where an ordinary file is or can be
/// made. Null when that cannot be, and the reason tells why: device_or_resource_busy while another
/// process has it so. A file that is there keeps its content.
std::FILE* openFileAlone(const std::string& path, std::error_code& reason);
/// 0 when the file is empty then, else errno tells why it is not.
int emptyFile(std::FILE* file);
/// Brings flushed data onto the disk; 0 when that is done, else errno tells why.
int bringToDisk(std::FILE* file);
bool isFolder(const std::string& path);
/// No error when there is no such file.
void removeFile(const std::string& path);
/// The reason as a generic condition, whose text is the same in every language of the system.
std::error_condition conditionOf(const std::error_code& reason);

/// The code page in which the user's programs write their text files.
const CodePage& usersCodePage();
LocalTime localTime();
/// Empty when there is no such variable.
std::string environmentVariable(const std::string& name);

}  // namespace sys
