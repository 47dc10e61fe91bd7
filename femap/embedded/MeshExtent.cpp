#include "femap/embedded/MeshExtent.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <span>
#include <vector>

namespace femap::embedded
{

using neutral::Element;
using neutral::Model;
using neutral::Node;

namespace
{

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
// clang-format on

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

/// A length, area or volume, and where its centre lies.
struct Amount
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
    Amount amount(const Point& centreWhenEmpty) const
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

Amount areaOf(std::span<const Point> corners)
{
    const Point middle = meanOf(corners);
    Pieces triangles;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const std::array<Point, 3> triangle = {corners[i], corners[(i + 1) % corners.size()],
                                               middle};
        const Point normal = cross(triangle[0] - middle, triangle[1] - middle);
        triangles.add(length(normal) / 2, meanOf(triangle));
    }
    return triangles.amount(middle);
}

/// Sums up tetrahedra: each face is cut into triangles about its middle, and joined to the centre.
Amount volumeOf(std::span<const Point> corners, std::span<const Face> faces)
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
    return tetrahedra.amount(inside);
}

Amount amountOf(const Shape& shape, std::span<const Point> corners)
{
    if (shape.measure == Measure::Length)
        return {length(corners[1] - corners[0]), meanOf(corners)};
    return shape.measure == Measure::Area ? areaOf(corners) : volumeOf(corners, shape.faces);
}

// The direction in which a planar element is seen from above, by the order of its corners.
Point normalOf(std::span<const Point> corners)
{
    Point sum{};
    for (std::size_t i = 2; i < corners.size(); ++i)
        sum = sum + cross(corners[i - 1] - corners[0], corners[i] - corners[0]);
    const double size = length(sum);
    return size == 0 ? Point{} : (1 / size) * sum;
}

}  // namespace

std::optional<Extent> extentOf(const Model& model, const Element& element)
{
    const auto* const shape = std::ranges::find(shapes, element.topology, &Shape::topology);
    if (shape == std::end(shapes))
        return std::nullopt;
    const std::vector<Point> corners = cornersOf(model, element, shape->corners);
    if (corners.empty())
        return std::nullopt;
    const auto [amount, centre] = amountOf(*shape, corners);
    const Point normal = shape->measure == Measure::Area ? normalOf(corners) : Point{};
    return Extent{shape->measure, shape->corners, amount, centre, normal};
}

}  // namespace femap::embedded
