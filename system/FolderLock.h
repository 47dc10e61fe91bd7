// A folder that one process keeps for itself, as far as other processes ask. The system ends the
// lock with its process, however that ends.
#pragma once

#include "system/Files.h"

#include <memory>
#include <string>

namespace sys
{

/// An empty path is the working folder. Null when another process has the lock, and holder says
/// which one, as far as the system knows; null and no holder where there are no locks.
std::unique_ptr<FolderLock> takeFolder(const std::string& folder, std::string& holder);

}  // namespace sys
