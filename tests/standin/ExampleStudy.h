#pragma once

#include <windows.h>

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace comtest
{

/// What a study left, by file name; the log is among it.
using Contents = std::map<std::string, std::string>;

/// A file's bytes.
std::string contentOf(const std::filesystem::path& file);

/// The actions of a study on the model "panel.neu" of a folder: by its full path, for FEMAP has a
/// current folder of its own, and without the lines that change the model, for an engineer does
/// that in FEMAP. study: a script, or a page that shows one, from the project's folder.
std::vector<std::string> actionsOf(const std::string& study, const std::filesystem::path& folder);

/// Writes them into a script in that folder and gives its path.
std::filesystem::path writeScript(const std::string& study, const std::filesystem::path& folder);

/// Replays a script without a window, with the FEMAP that velmar-study calls "embedded" or
/// "running". Returns its exit code.
DWORD replay(const std::filesystem::path& script, const std::string& femap);

/// Takes away all but the model and scripts.
Contents takeFiles(const std::filesystem::path& folder);

/// Takes the moment of the start, which differs from run to run, out of the logs.
void forgetTime(Contents& contents);

/// Takes out of a log that a form that is shown gets its size once; a replay shows none.
void forgetFirstSize(std::string& log);

/// What is left of a text where it begins to differ from another one, from the start of that line.
std::string_view fromFirstDifference(const std::string& text, const std::string& other);

}  // namespace comtest
