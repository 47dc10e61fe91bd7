#include "examples/solver/Plate.h"

#include "examples/solver/ModelNumbers.h"

#include <algorithm>

namespace examples::solver
{

namespace
{

constexpr double stringers = 3;
constexpr double frames = 2;

}  // namespace

Plate::Plate(const femap::neutral::Model& model)
    : young_(ofMaterial(model, aluminium, youngsModulus)),
      poisson_(ofMaterial(model, aluminium, poissonsRatio))
{
    for (const femap::neutral::Node& node : model.nodes) {
        length = std::max(length, node.x);
        width = std::max(width, node.y);
    }
    if (length <= 0 || width <= 0)
        refuse("length or width");
    const double skin = rigidity(ofProperty(model, skinProperty, thickness));
    along_ = skin + young_ * ofProperty(model, beamProperty, inertia) / (width / (stringers + 1));
    across_ = skin + young_ * ofProperty(model, barProperty, inertia) / (length / frames);
    twist_ = 2 * skin;
    crossRigidity_ = poisson_ * skin;
    load_ = 16 * ofLoad(model, pressureDefinition, 0) / (pi * pi) +
            4 * ofLoad(model, lugForceDefinition, 2) / (length * width);
    const double stiffness = along_ / std::pow(length, 4) + twist_ / std::pow(length * width, 2) +
                             across_ / std::pow(width, 4);
    deflection_ = load_ / (std::pow(pi, 4) * stiffness);
}

double Plate::reaction(const Place& at) const
{
    const double rest = twist_ - crossRigidity_;
    const double shear = isOnShortEdge(at)
                             ? (along_ / (length * length) + rest / (width * width)) *
                                   std::sin(pi * at.y / width) / length
                             : (across_ / (width * width) + rest / (length * length)) *
                                   std::sin(pi * at.x / length) / width;
    return -deflection_ * std::pow(pi, 3) * shear * step();
}

}  // namespace examples::solver
