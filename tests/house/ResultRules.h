#pragma once

#include "SourceTree.h"

#include <string>
#include <vector>

namespace house
{

// Each gives the places that break a rule, as "path:line: what is wrong".

/// Every result of COM that tells success from failure is looked at.
std::vector<std::string> resultsThatNobodyLooksAt(const SourceFile& file);
/// The product writes and reads files through sys::Files alone, whose every operation raises
/// when it fails: a stream would keep its failure to itself.
std::vector<std::string> streamsOnFiles(const SourceFile& file);

}  // namespace house
