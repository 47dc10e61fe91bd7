// Files that are written under temporary names: made without touching what others have, and removed
// when the process is told to end. A few at a time; each platform keeps them in a fixed table.
#pragma once

#include <cstdio>
#include <string>
#include <string_view>
#include <system_error>

namespace sys
{

/// Creates a file beside the path under a name that nobody else has, readable by no more people
/// than the file at the path. Null when that cannot be, and the reason tells why. The last path
/// that was tried is left in temporary.
std::FILE* createTemporary(const std::string& path, std::string& temporary,
                           std::error_code& reason);
/// The file has its final name, or is gone.
void forgetTemporary(const std::string& temporary);

/// From now on, signals that end the process (on Windows Ctrl+C, the console's end and the
/// session's end) remove the temporary files and then take their usual way. Those that were ignored
/// stay so.
void removeTemporariesWhenEnded();

/// The next name of a temporary file of this process, and whether a name may be one of any process.
std::string nextTemporaryName(unsigned long process);
bool isTemporaryName(std::string_view name);

/// The part of a path up to and including its last separator.
std::string folderPartOf(const std::string& path);

/// Tried when a name turns out to be taken: as many names as a hundred dead processes of one number
/// can have left.
constexpr int temporaryNamesTried = 1000;

}  // namespace sys
