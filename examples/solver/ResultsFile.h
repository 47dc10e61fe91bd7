// Results as a FEMAP neutral file of version 11.
#pragma once

#include "examples/solver/Panel.h"

#include <string>
#include <vector>

namespace examples::solver
{

/// In Windows-1252, each line ended by a line feed. Reals read back to the same number.
std::string resultsFile(const std::vector<ResultSet>& sets);

}  // namespace examples::solver
