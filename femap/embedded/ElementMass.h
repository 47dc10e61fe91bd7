// The mass of one element of the mesh.
#pragma once

#include "femap/embedded/MassRemarks.h"
#include "femap/embedded/Point.h"
#include "femap/neutral/Model.h"

#include <array>

namespace femap::embedded
{

/// xx, xy, yy, zx, yz, zz; the mixed ones are the sums of mass times both coordinates.
using Inertia = std::array<double, 6>;

struct ElementMass
{
    Point centre{};
    double structural = 0;
    double nonStructural = 0;
    Inertia inertia{};  // about its centre
};

/// Length, area and volume of the elements of a mesh.
struct MeshTotals
{
    double length = 0;
    double area = 0;
    double volume = 0;
};

/// Adds the element's extent to the totals, and to the remarks what cannot be weighed or is in
/// doubt.
ElementMass measureElement(const neutral::Model& model, const neutral::Element& element,
                           MeshTotals& totals, MassRemarks& remarks);

}  // namespace femap::embedded
