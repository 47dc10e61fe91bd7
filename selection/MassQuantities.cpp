#include "selection/MassQuantities.h"

#include "system/RuntimeError.h"

#include <algorithm>
#include <iterator>
#include <string>

namespace selection
{

namespace
{

using M = femap::MassProperties;

constexpr std::string_view oneRow[] = {""};
constexpr std::string_view axes[] = {"x", "y", "z"};
constexpr std::string_view numbers[] = {"1", "2", "3", "4", "5", "6"};

// clang-format off
constexpr MassQuantity quantities[] = {
    {"Length",            "TotalLength",       &M::length,            nullptr,             oneRow},
    {"Area",              "TotalArea",         &M::area,              nullptr,             oneRow},
    {"Vol",               "TotalVolume",       &M::volume,            nullptr,             oneRow},
    {"MassStructural",    "StructuralMass",    &M::structuralMass,    nullptr,             oneRow},
    {"MassNonStructural", "NonStructuralMass", &M::nonStructuralMass, nullptr,             oneRow},
    {"MassTotal",         "TotalMass",         &M::totalMass,         nullptr,             oneRow},
    {"StructuralCG",      "StructuralCG",      nullptr,               &M::structuralCG,    axes},
    {"NonStructuralCG",   "NonStructuralCG",   nullptr,               &M::nonStructuralCG, axes},
    {"TotalCG",           "TotalCG",           nullptr,               &M::totalCG,         axes},
    {"Inertia",           "Inertia",           nullptr,               &M::inertia,         numbers},
    {"InertiaCG",         "InertiaCG",         nullptr,               &M::inertiaCG,       numbers},
};
// clang-format on

}  // namespace

std::span<const MassQuantity> massQuantities()
{
    return quantities;
}

const MassQuantity* findMassQuantity(std::string_view tag)
{
    const auto found = std::ranges::find(quantities, tag, &MassQuantity::tag);
    return found == std::end(quantities) ? nullptr : found;
}

double massValue(const MassQuantity& quantity, const femap::MassProperties& measured, int component)
{
    if (quantity.isScalar())
        return measured.*quantity.scalar;
    const std::vector<double>& components = measured.*quantity.components;
    if (component < 0 || static_cast<std::size_t>(component) >= components.size())
        throw sys::RuntimeError(sys::ErrorNumber::SubscriptOutOfRange,
                                "FEMAP measured no component " + std::to_string(component) +
                                    " of " + std::string(quantity.tag));
    return components[static_cast<std::size_t>(component)];
}

}  // namespace selection
