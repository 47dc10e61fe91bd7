#include "femap/embedded/ElementMass.h"

#include "femap/Constants.h"
#include "femap/embedded/ElementKinds.h"
#include "femap/embedded/MeshExtent.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace femap::embedded
{

using neutral::Element;
using neutral::Layup;
using neutral::Material;
using neutral::Model;
using neutral::Node;
using neutral::Ply;
using neutral::Property;

namespace
{

// Places of "pval".
constexpr std::size_t area = 0;
constexpr std::size_t thickness = 0;
constexpr std::size_t nonStructuralMass = 7;
constexpr std::size_t areaAtEndB = 20;  // beams; 0: the section is the same at both ends
constexpr std::size_t nonStructuralMassAtEndB = 27;
constexpr std::size_t laminateBottom = 0;  // from the element to the bottom; 0: half the thickness
constexpr std::size_t laminateNonStructuralMass = 1;
constexpr std::size_t lumpedInertia = 1;  // xx, xy, yy, zx, yz, zz
constexpr std::size_t lumpedMass = 7;     // in x, and in y and z:
constexpr std::size_t lumpedMassInY = 11;
constexpr std::size_t lumpedMassInZ = 12;
constexpr std::size_t lumpedOffset = 8;  // x, y, z

double valueAt(const std::vector<double>& values, std::size_t index)
{
    return index < values.size() ? values[index] : 0;
}

std::optional<double> densityOf(const Model& model, int materialID)
{
    constexpr std::size_t density = 49;
    const Material* const material = model.materials.find(materialID);
    if (material == nullptr)
        return std::nullopt;
    return valueAt(material->mval, density);
}

/// The mean thickness at the corners; 0 at a corner other than the first means that it is as thick
/// as the first.
double thicknessOf(const Property& property, std::size_t corners)
{
    const double first = valueAt(property.pval, thickness);
    const bool isPlate = property.type == elementPlate || property.type == elementPlateParabolic;
    if (!isPlate)
        return first;
    double sum = first;
    for (std::size_t corner = 1; corner < corners; ++corner) {
        const double atCorner = valueAt(property.pval, corner);
        sum += atCorner == 0 ? first : atCorner;
    }
    return sum / static_cast<double>(corners);
}

/// A value of a line element; of a beam with two sections the mean of both.
double meanOfEnds(const Property& property, std::size_t place, std::size_t placeAtEndB)
{
    const double atEndA = valueAt(property.pval, place);
    const bool hasTwoSections =
        property.type == elementBeam && valueAt(property.pval, areaAtEndB) != 0;
    return hasTwoSections ? (atEndA + valueAt(property.pval, placeAtEndB)) / 2 : atEndA;
}

/// Mass by length, area or volume, and how far from the nodes it lies along the normal.
struct Share
{
    double structural = 0;
    double nonStructural = 0;
    double height = 0;
    bool isComplete = true;  // nothing that the structural mass comes from is missing
};

Share shareByExtent(const Model& model, const Property& property, const Extent& extent)
{
    const std::optional<double> given = densityOf(model, property.matlID);
    const double density = given.value_or(0);
    if (extent.measure == Measure::Volume)
        return {density, 0, 0, given.has_value()};
    if (extent.measure == Measure::Area)
        return {density * thicknessOf(property, extent.corners),
                valueAt(property.pval, nonStructuralMass), 0, given.has_value()};
    return {density * meanOfEnds(property, area, areaAtEndB),
            meanOfEnds(property, nonStructuralMass, nonStructuralMassAtEndB), 0, given.has_value()};
}

Share shareByPlies(const Model& model, const Property& property)
{
    const Layup* const layup = model.layups.find(property.layupID);
    const Share nothing = {0, valueAt(property.pval, laminateNonStructuralMass), 0, false};
    if (layup == nullptr || layup->plies.empty())
        return nothing;
    double height = 0;  // above the bottom
    double mass = 0;
    double moment = 0;
    for (const Ply& ply : layup->plies) {
        const std::optional<double> density = densityOf(model, ply.matlID);
        if (!density)
            return nothing;
        const double plyMass = *density * ply.thickness;
        mass += plyMass;
        moment += plyMass * (height + ply.thickness / 2);
        height += ply.thickness;
    }
    const double given = valueAt(property.pval, laminateBottom);
    const double bottom = given == 0 ? -height / 2 : given;
    return {mass, nothing.nonStructural, mass == 0 ? 0 : bottom + moment / mass};
}

Share shareOf(const Model& model, const Element& element, const Property& property,
              const Extent& extent, MassRemarks& remarks)
{
    const bool hasPlies = weighingOf(element.type) == Weighing::ByPlies;
    const Share share =
        hasPlies ? shareByPlies(model, property) : shareByExtent(model, property, extent);
    if (!share.isComplete)
        remarks.add(hasPlies ? MassRemark::NoLayup : MassRemark::NoMaterial, element.type);
    else if (share.structural == 0)
        remarks.add(MassRemark::NoDensity, element.type);
    else if (hasPlies && valueAt(property.pval, laminateBottom) != 0)
        remarks.add(MassRemark::BottomSurface, element.type);
    return share;
}

void addTo(MeshTotals& totals, const Extent& extent)
{
    double& total = extent.measure == Measure::Length ? totals.length
                    : extent.measure == Measure::Area ? totals.area
                                                      : totals.volume;
    total += extent.amount;
}

ElementMass massOfMesh(const Model& model, const Element& element, MeshTotals& totals,
                       MassRemarks& remarks)
{
    const std::optional<Extent> extent = extentOf(model, element);
    if (extent)
        addTo(totals, *extent);
    const Property* const property = model.properties.find(element.propID);
    if (weighingOf(element.type) == Weighing::NotKnown || !extent || property == nullptr) {
        const bool isKnown = weighingOf(element.type) != Weighing::NotKnown;
        remarks.add(!isKnown  ? MassRemark::UnknownKind
                    : !extent ? MassRemark::NoShape
                              : MassRemark::NoProperty,
                    element.type);
        return {};
    }
    const Share share = shareOf(model, element, *property, *extent, remarks);
    const double height = element.offset[0] + share.height;
    return {extent->centre + height * extent->normal, extent->amount * share.structural,
            extent->amount * share.nonStructural};
}

ElementMass massOfValues(const Model& model, const Element& element, MassRemarks& remarks)
{
    const Node* const node = model.nodes.find(element.node[0]);
    const Property* const property = model.properties.find(element.propID);
    if (node == nullptr || property == nullptr) {
        remarks.add(node == nullptr ? MassRemark::NoShape : MassRemark::NoProperty, element.type);
        return {};
    }
    const auto value = [&](std::size_t place) { return valueAt(property->pval, place); };
    const double mass = value(lumpedMass);
    if (mass != 0)
        remarks.add(MassRemark::Lumped, element.type);
    if (value(lumpedMassInY) != mass || value(lumpedMassInZ) != mass)
        remarks.add(MassRemark::LumpedByDirection, element.type);

    Point offset{};
    for (std::size_t i = 0; i < offset.size(); ++i)
        offset[i] = value(lumpedOffset + i);
    Inertia inertia{};
    for (std::size_t i = 0; i < inertia.size(); ++i)
        inertia[i] = value(lumpedInertia + i);
    const Point place = {node->x, node->y, node->z};
    const bool isOffset = offset != Point{};
    if (property->refCS != 0 && (isOffset || inertia != Inertia{})) {
        remarks.add(MassRemark::LumpedElsewhere, element.type);
        return {place, mass, 0};
    }
    if (isOffset)
        remarks.add(MassRemark::LumpedOffset, element.type);
    return {place + offset, mass, 0, inertia};
}

}  // namespace

ElementMass measureElement(const Model& model, const Element& element, MeshTotals& totals,
                           MassRemarks& remarks)
{
    switch (weighingOf(element.type)) {
    case Weighing::Massless:
        return {};
    case Weighing::NotAtAll:
        remarks.add(MassRemark::UnknownKind, element.type);
        return {};
    case Weighing::ByValues:
        return massOfValues(model, element, remarks);
    case Weighing::ByExtent:
    case Weighing::ByPlies:
    case Weighing::NotKnown:
        return massOfMesh(model, element, totals, remarks);
    }
    return {};
}

}  // namespace femap::embedded
