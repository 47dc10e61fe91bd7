// Scripts of the project that write a file; each takes the file's path as its argument.
#pragma once

#include "fake/TemporaryFolder.h"
#include "system/Files.h"

#include <cstdlib>
#include <optional>
#include <string>

namespace fake
{

inline bool hasPython()
{
    return *PYTHON != '\0';
}

/// What the script writes, by its path from the project's folder; nothing when it fails.
inline std::optional<std::string> writtenBy(const std::string& script)
{
    const TemporaryFolder folder;
    const std::string written = folder.path("written");
    const std::string command =
        "\"" PYTHON "\" \"" SOURCE_FOLDER "/" + script + "\" \"" + written + '"';
    if (std::system(command.c_str()) != 0)
        return std::nullopt;
    return sys::DiskFiles().read(written);
}

}  // namespace fake
