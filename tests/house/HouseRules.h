#pragma once

#include "SourceTree.h"

#include <string>
#include <vector>

namespace house
{

// Each rule lists where a file breaks it, as "path:line: what is wrong".

/// Folders depend on each other only along the arrows of docs/architecture.md.
std::vector<std::string> includesAgainstTheArrows(const SourceFile& file);
/// Windows is reached only where it has its place.
std::vector<std::string> windowsHeadersOutOfPlace(const SourceFile& file);
/// 400 lines a file, 100 columns a line; tables and text that is shown as it will be written may be
/// wider.
std::vector<std::string> tooLong(const SourceFile& file);

}  // namespace house
