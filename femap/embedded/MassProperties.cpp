// Measures mass properties from the mesh. Each element counts as a point mass at its centre; its
// own inertia, which vanishes as the mesh becomes finer, is left out, but for mass elements. The
// offset of a planar element moves its mass; that of a line element does not.
#include "femap/embedded/ElementMass.h"
#include "femap/embedded/Host.h"
#include "femap/embedded/MassRemarks.h"

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace femap::embedded
{

using neutral::Element;

namespace
{

/// The centre of gravity of one share of each mass; the origin when there is no mass.
template <class Share>
std::vector<double> centreOf(std::span<const ElementMass> masses, double total, const Share& share)
{
    if (total == 0)
        return std::vector<double>(3);
    Point moment{};
    for (const ElementMass& mass : masses)
        moment = moment + share(mass) * mass.centre;
    return {moment[0] / total, moment[1] / total, moment[2] / total};
}

double totalOf(const ElementMass& mass)
{
    return mass.structural + mass.nonStructural;
}

std::vector<double> inertiaAbout(const Point& origin, std::span<const ElementMass> masses)
{
    std::vector<double> inertia(6);
    for (const ElementMass& mass : masses) {
        const auto [x, y, z] = mass.centre - origin;
        const double m = totalOf(mass);
        const Inertia share = {m * (y * y + z * z), m * x * y, m * (x * x + z * z),
                               m * z * x,           m * y * z, m * (x * x + y * y)};
        for (std::size_t i = 0; i < share.size(); ++i)
            inertia[i] += share[i] + mass.inertia[i];
    }
    return inertia;
}

}  // namespace

MassProperties measureMassProperties(const Model& model, const std::vector<int>& elementIDs,
                                     std::vector<std::string>* remarks)
{
    MassProperties result;
    MeshTotals totals;
    MassRemarks found;
    std::vector<ElementMass> masses;
    for (const int id : elementIDs) {
        const Element* const element = model.elements.find(id);
        if (element == nullptr)
            continue;
        const ElementMass mass = measureElement(model, *element, totals, found);
        result.structuralMass += mass.structural;
        result.nonStructuralMass += mass.nonStructural;
        masses.push_back(mass);
    }
    if (remarks != nullptr)
        *remarks = found.texts(masses.size());
    result.length = totals.length;
    result.area = totals.area;
    result.volume = totals.volume;
    result.totalMass = result.structuralMass + result.nonStructuralMass;
    result.structuralCG = centreOf(masses, result.structuralMass,
                                   [](const ElementMass& mass) { return mass.structural; });
    result.nonStructuralCG = centreOf(masses, result.nonStructuralMass,
                                      [](const ElementMass& mass) { return mass.nonStructural; });
    result.totalCG = centreOf(masses, result.totalMass, totalOf);
    result.inertia = inertiaAbout({}, masses);
    result.inertiaCG =
        inertiaAbout({result.totalCG[0], result.totalCG[1], result.totalCG[2]}, masses);
    return result;
}

}  // namespace femap::embedded
