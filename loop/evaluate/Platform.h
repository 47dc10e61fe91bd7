// What velmar-evaluate does on each platform in its own way.
#pragma once

#include "system/System.h"

#include <string>

namespace loop::evaluate
{

/// Makes this process ready: what it was ended with becomes a request to stop, once.
void prepareProcess();
/// Whether somebody wants the program to stop: by Ctrl+C, by a signal or at the session's end.
bool isToStop();

/// Whether there can be a FEMAP on this platform, which is taken unless the call says otherwise.
bool hasFemap();

/// The folder of this program's own file, as the beginning of paths.
std::string ownFolder();
/// The file of a program with that name.
std::string programFile(const std::string& name);

/// The line for the shell that does in a folder what the batch file there does. Raises RuntimeError
/// when that cannot be read.
std::string batchLine(sys::System& system, const std::string& folder);
/// Whether the shell cannot work in the folder, for that has no drive letter.
bool isOnShare(const std::string& folder);

}  // namespace loop::evaluate
