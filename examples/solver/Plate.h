// The deflected skin: a simply supported orthotropic plate.
#pragma once

#include "femap/neutral/Model.h"

#include <array>
#include <cmath>
#include <numbers>

namespace examples::solver
{

constexpr double pi = std::numbers::pi;
constexpr double elementsAlong = 24;

struct Place
{
    double x;
    double y;
    double z;
};

struct Stress
{
    double x;
    double y;
    double shear;

    double vonMises() const { return std::sqrt(x * x - x * y + y * y + 3 * shear * shear); }
};

struct Bending
{
    double along;  // curvatures; positive where the outside is in tension
    double across;
    double twist;
};

class Plate
{
public:
    explicit Plate(const femap::neutral::Model& model);

    double length = 0;
    double width = 0;

    double step() const { return length / elementsAlong; }
    double rigidity(double ofThickness) const
    {
        return young_ * std::pow(ofThickness, 3) / (12 * (1 - poisson_ * poisson_));
    }
    double youngsModulusOfSkin() const { return young_; }
    double poisson() const { return poisson_; }

    std::array<double, 2> slopes(const Place& at) const
    {
        const double u = pi * at.x / length;
        const double v = pi * at.y / width;
        return {deflection_ * pi / length * std::cos(u) * std::sin(v),
                deflection_ * pi / width * std::sin(u) * std::cos(v)};
    }
    std::array<double, 3> translation(const Place& at) const
    {
        const auto [slopeX, slopeY] = slopes(at);
        return {-at.z * slopeX, -at.z * slopeY, deflection_ * wave(at)};
    }
    Bending bending(const Place& at) const
    {
        const double normal = deflection_ * pi * pi * wave(at);
        const double cross = deflection_ * pi * pi / (length * width) *
                             std::cos(pi * at.x / length) * std::cos(pi * at.y / width);
        return {normal / (length * length), normal / (width * width), cross};
    }
    // At a height above the middle of the skin.
    Stress skinStress(const Place& at, double height) const
    {
        const Bending bend = bending(at);
        const double factor = young_ * height / (1 - poisson_ * poisson_);
        return {factor * (bend.along + poisson_ * bend.across),
                factor * (bend.across + poisson_ * bend.along),
                -young_ / (1 + poisson_) * height * bend.twist};
    }
    // What a quarter of an element gives to its corner.
    double cornerForce(const Place& at) const { return load_ * wave(at) * step() * step() / 4; }
    bool isOnShortEdge(const Place& at) const { return at.x == 0 || at.x == length; }
    bool isOnEdge(const Place& at) const
    {
        return at.z == 0 && (isOnShortEdge(at) || at.y == 0 || at.y == width);
    }
    // Upward force of the support on an edge node: shear of the plate times the mesh width.
    double reaction(const Place& at) const;

private:
    double wave(const Place& at) const
    {
        return std::sin(pi * at.x / length) * std::sin(pi * at.y / width);
    }

    double young_;
    double poisson_;
    double along_ = 0;  // bending stiffness per length
    double across_ = 0;
    double twist_ = 0;
    double crossRigidity_ = 0;
    double load_ = 0;
    double deflection_ = 0;  // in the middle
};

}  // namespace examples::solver
