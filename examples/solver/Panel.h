// The example's panel by closed formulas: the first term of Navier's series for a simply supported
// orthotropic plate under the cabin pressure and the force on the lug. No finite elements.
// Units: mm, N, N/mm2.
#pragma once

#include "femap/neutral/Model.h"

#include <array>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace examples::solver
{

struct VectorKind
{
    int id;
    std::string_view title;
    int outputType;  // 0 any, 1 displacement, 3 force, 4 stress
    femap::EntityType location;
    std::array<int, 3> parts{};  // the vectors that a total is made of
};

/// A vector of results: entity ID and value.
struct ResultVector
{
    const VectorKind* kind = nullptr;
    std::map<int, double> values{};
};

/// The results of one case of load.
struct ResultSet
{
    std::string title;
    std::vector<ResultVector> vectors{};  // ascending ID, none empty
};

/// Both cases: the loads as they are, and one and a half times those, displacements only. Raises
/// RuntimeError when the model is not the example's panel.
std::vector<ResultSet> solve(const femap::neutral::Model& model);

}  // namespace examples::solver
