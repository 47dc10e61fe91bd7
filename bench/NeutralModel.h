#pragma once

#include <string>

namespace bench
{

/// A neutral file with so many nodes, as many plates on them and ten vectors of results at the
/// nodes. Made once and kept below the current folder.
std::string neutralModel(int size);

}  // namespace bench
