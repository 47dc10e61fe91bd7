// Points and directions in the global coordinate system.
#pragma once

#include <array>

namespace femap::embedded
{

using Point = std::array<double, 3>;

inline Point operator+(const Point& a, const Point& b)
{
    return {a[0] + b[0], a[1] + b[1], a[2] + b[2]};
}
inline Point operator-(const Point& a, const Point& b)
{
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}
inline Point operator*(double factor, const Point& a)
{
    return {factor * a[0], factor * a[1], factor * a[2]};
}
inline Point cross(const Point& a, const Point& b)
{
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}
inline double dot(const Point& a, const Point& b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

}  // namespace femap::embedded
