// Measures mass properties from the mesh. Each element counts as a point mass at its centroid; its
// own inertia, which vanishes as the mesh becomes finer, is left out. Parabolic elements are
// measured by their corners, laminates by material and thickness of their property, which has none
// where its plies carry them. Mass elements, springs and the like count nothing.
#include "femap/embedded/Host.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <span>
#include <vector>

namespace femap::embedded
{

using neutral::Element;
using neutral::Material;
using neutral::Node;
using neutral::Property;

namespace
{

using Point = std::array<double, 3>;

Point operator+(const Point& a, const Point& b)
{
    return {a[0] + b[0], a[1] + b[1], a[2] + b[2]};
}
Point operator-(const Point& a, const Point& b)
{
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}
Point operator*(double factor, const Point& a)
{
    return {factor * a[0], factor * a[1], factor * a[2]};
}
Point cross(const Point& a, const Point& b)
{
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}
double dot(const Point& a, const Point& b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}
double length(const Point& a)
{
    return std::sqrt(dot(a, a));
}
Point meanOf(std::span<const Point> points)
{
    Point sum{};
    for (const Point& point : points)
        sum = sum + point;
    return (1.0 / static_cast<double>(points.size())) * sum;
}

using Face = std::array<int, 4>;  // corners in their cyclic order; the last is -1 in a triangle

constexpr Face tetraFaces[] = {{0, 1, 2, -1}, {0, 3, 1, -1}, {1, 3, 2, -1}, {2, 3, 0, -1}};
constexpr Face pyramidFaces[] = {
    {0, 1, 2, 3}, {0, 4, 1, -1}, {1, 4, 2, -1}, {2, 4, 3, -1}, {3, 4, 0, -1}};
constexpr Face wedgeFaces[] = {
    {0, 1, 2, -1}, {3, 5, 4, -1}, {0, 3, 4, 1}, {1, 4, 5, 2}, {2, 5, 3, 0}};
constexpr Face brickFaces[] = {{0, 1, 2, 3}, {4, 7, 6, 5}, {0, 4, 5, 1},
                               {1, 5, 6, 2}, {2, 6, 7, 3}, {3, 7, 4, 0}};

enum class Measure
{
    Length,
    Area,
    Volume,
};

/// What is measured of the elements of a topology.
struct Shape
{
    int topology;
    Measure measure;
    std::size_t corners;
    std::span<const Face> faces;  // of solids
};

// clang-format off
constexpr Shape shapes[] = {
    { 0, Measure::Length, 2, {}},
    { 1, Measure::Length, 2, {}},
    { 2, Measure::Area,   3, {}},
    { 3, Measure::Area,   3, {}},
    { 4, Measure::Area,   4, {}},
    { 5, Measure::Area,   4, {}},
    { 6, Measure::Volume, 4, tetraFaces},
    {10, Measure::Volume, 4, tetraFaces},
    {14, Measure::Volume, 5, pyramidFaces},
    { 7, Measure::Volume, 6, wedgeFaces},
    {11, Measure::Volume, 6, wedgeFaces},
    { 8, Measure::Volume, 8, brickFaces},
    {12, Measure::Volume, 8, brickFaces},
};

// Elements without a section and a material: springs, gap, plot only, mass, mass matrix, rigid,
// general matrix, plot plate, slide line, contact, weld, springs to ground, cohesive, matrix.
constexpr int unmeasuredTypes[] = {
    6, 7, 9, 10, 27, 28, 29, 30, 32, 33, 34, 38, 41, 42, 43, 44, 45,
};
// clang-format on

const Shape* shapeOf(const Element& element)
{
    const auto same = [&](const Shape& shape) { return shape.topology == element.topology; };
    const auto shape = std::find_if(std::begin(shapes), std::end(shapes), same);
    const auto unmeasured = std::find(std::begin(unmeasuredTypes), std::end(unmeasuredTypes),
                                      static_cast<int>(element.type));
    const bool isMeasured = shape != std::end(shapes) && unmeasured == std::end(unmeasuredTypes);
    return isMeasured ? &*shape : nullptr;
}

/// The corners of an element; none when one of its nodes is missing. Triangular shapes have
/// a 0 where the others have a corner, so the corners are the first nodes that are not 0.
std::vector<Point> cornersOf(const Model& model, const Element& element, std::size_t count)
{
    std::vector<Point> corners;
    for (const int id : element.node) {
        if (corners.size() == count)
            break;
        if (id == 0)
            continue;
        const Node* const node = model.nodes.find(id);
        if (node == nullptr)
            return {};
        corners.push_back({node->x, node->y, node->z});
    }
    return corners.size() == count ? corners : std::vector<Point>();
}

/// Length, area or volume, and where its centre lies.
struct Extent
{
    double amount = 0;
    Point centre{};
};

/// Sums up pieces and their centres.
class Pieces
{
public:
    void add(double amount, const Point& centre)
    {
        amount_ += amount;
        moment_ = moment_ + amount * centre;
    }
    Extent extent(const Point& centreWhenEmpty) const
    {
        // A solid whose corners are numbered the other way round comes out negative.
        if (amount_ == 0)
            return {0, centreWhenEmpty};
        return {std::abs(amount_), (1 / amount_) * moment_};
    }

private:
    double amount_ = 0;
    Point moment_{};
};

Extent areaOf(std::span<const Point> corners)
{
    const Point middle = meanOf(corners);
    Pieces triangles;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const std::array<Point, 3> triangle = {corners[i], corners[(i + 1) % corners.size()],
                                               middle};
        const Point normal = cross(triangle[0] - middle, triangle[1] - middle);
        triangles.add(length(normal) / 2, meanOf(triangle));
    }
    return triangles.extent(middle);
}

/// Sums up tetrahedra: each face is cut into triangles about its middle, and joined to the centre.
Extent volumeOf(std::span<const Point> corners, std::span<const Face> faces)
{
    const Point inside = meanOf(corners);
    Pieces tetrahedra;
    for (const Face& face : faces) {
        std::array<Point, 4> polygon{};
        const std::size_t count = face[3] < 0 ? 3 : 4;
        for (std::size_t i = 0; i < count; ++i)
            polygon[i] = corners[static_cast<std::size_t>(face[i])];
        const Point middle = meanOf(std::span(polygon).first(count));
        for (std::size_t i = 0; i < count; ++i) {
            const std::array<Point, 4> tetrahedron = {polygon[i], polygon[(i + 1) % count], middle,
                                                      inside};
            const Point normal = cross(tetrahedron[0] - inside, tetrahedron[1] - inside);
            tetrahedra.add(dot(normal, middle - inside) / 6, meanOf(tetrahedron));
        }
    }
    return tetrahedra.extent(inside);
}

Extent extentOf(const Shape& shape, std::span<const Point> corners)
{
    if (shape.measure == Measure::Length)
        return {length(corners[1] - corners[0]), meanOf(corners)};
    return shape.measure == Measure::Area ? areaOf(corners) : volumeOf(corners, shape.faces);
}

constexpr std::size_t pvalArea = 0;
constexpr std::size_t pvalThickness = 0;
constexpr std::size_t pvalNonStructuralMass = 7;

double valueAt(const std::vector<double>& values, std::size_t index)
{
    return index < values.size() ? values[index] : 0;
}

/// The mean thickness at the corners; 0 at a corner other than the first means that it is as thick
/// as the first.
double thicknessOf(const Property& property, std::size_t corners)
{
    const double thickness = valueAt(property.pval, pvalThickness);
    const bool isPlate = property.type == elementPlate || property.type == elementPlateParabolic;
    if (!isPlate)
        return thickness;
    double sum = thickness;
    for (std::size_t corner = 1; corner < corners; ++corner) {
        const double atCorner = valueAt(property.pval, corner);
        sum += atCorner == 0 ? thickness : atCorner;
    }
    return sum / static_cast<double>(corners);
}

/// Structural mass by length, area or volume.
double massPerExtent(const Model& model, const Property& property, const Shape& shape)
{
    constexpr std::size_t mvalDensity = 49;
    const Material* const material = model.materials.find(property.matlID);
    const double density = material == nullptr ? 0 : valueAt(material->mval, mvalDensity);
    if (shape.measure == Measure::Length)
        return density * valueAt(property.pval, pvalArea);
    return shape.measure == Measure::Area ? density * thicknessOf(property, shape.corners)
                                          : density;
}

struct PointMass
{
    Point centre{};
    double structural = 0;
    double nonStructural = 0;
};

/// Adds the element's extent to the result and returns its mass.
PointMass measureElement(const Model& model, const Element& element, MassProperties& result)
{
    const Shape* const shape = shapeOf(element);
    if (shape == nullptr)
        return {};
    const std::vector<Point> corners = cornersOf(model, element, shape->corners);
    if (corners.empty())
        return {};
    const Extent extent = extentOf(*shape, corners);
    const auto total = shape->measure == Measure::Length ? &MassProperties::length
                       : shape->measure == Measure::Area ? &MassProperties::area
                                                         : &MassProperties::volume;
    result.*total += extent.amount;
    const Property* const property = model.properties.find(element.propID);
    if (property == nullptr)
        return {};
    const double nonStructural =
        shape->measure == Measure::Volume ? 0 : valueAt(property->pval, pvalNonStructuralMass);
    return {extent.centre, extent.amount * massPerExtent(model, *property, *shape),
            extent.amount * nonStructural};
}

/// The centre of gravity of one share of each mass; the origin when there is no mass.
template <class Share>
std::vector<double> centreOf(std::span<const PointMass> masses, double total, const Share& share)
{
    if (total == 0)
        return std::vector<double>(3);
    Point moment{};
    for (const PointMass& mass : masses)
        moment = moment + share(mass) * mass.centre;
    return {moment[0] / total, moment[1] / total, moment[2] / total};
}

double totalOf(const PointMass& mass)
{
    return mass.structural + mass.nonStructural;
}

/// xx, xy, yy, zx, yz, zz; the mixed ones are the sums of mass times both coordinates.
std::vector<double> inertiaAbout(const Point& origin, std::span<const PointMass> masses)
{
    std::vector<double> inertia(6);
    for (const PointMass& mass : masses) {
        const auto [x, y, z] = mass.centre - origin;
        const double m = totalOf(mass);
        const std::array<double, 6> share = {m * (y * y + z * z), m * x * y, m * (x * x + z * z),
                                             m * z * x,           m * y * z, m * (x * x + y * y)};
        for (std::size_t i = 0; i < share.size(); ++i)
            inertia[i] += share[i];
    }
    return inertia;
}

}  // namespace

MassProperties measureMassProperties(const Model& model, const std::vector<int>& elementIDs)
{
    MassProperties result;
    std::vector<PointMass> masses;
    for (const int id : elementIDs) {
        const Element* const element = model.elements.find(id);
        if (element == nullptr)
            continue;
        const PointMass mass = measureElement(model, *element, result);
        result.structuralMass += mass.structural;
        result.nonStructuralMass += mass.nonStructural;
        masses.push_back(mass);
    }
    result.totalMass = result.structuralMass + result.nonStructuralMass;
    result.structuralCG = centreOf(masses, result.structuralMass,
                                   [](const PointMass& mass) { return mass.structural; });
    result.nonStructuralCG = centreOf(masses, result.nonStructuralMass,
                                      [](const PointMass& mass) { return mass.nonStructural; });
    result.totalCG = centreOf(masses, result.totalMass, totalOf);
    result.inertia = inertiaAbout({}, masses);
    result.inertiaCG =
        inertiaAbout({result.totalCG[0], result.totalCG[1], result.totalCG[2]}, masses);
    return result;
}

}  // namespace femap::embedded
