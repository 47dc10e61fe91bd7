#pragma once

#include "SourceTree.h"

#include <string>
#include <vector>

namespace house
{

/// The product writes and reads files through sys::Files alone, whose every operation raises
/// when it fails: a stream would keep its failure to itself. Gives the places that break it, as
/// "path:line: what is wrong".
std::vector<std::string> streamsOnFiles(const SourceFile& file);

}  // namespace house
