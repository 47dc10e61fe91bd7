// The quantities of FEMAP's mass measurement and the rows of the output grid that show them.
#pragma once

#include "femap/Objects.h"
#include "form/Context.h"

#include <memory>
#include <span>
#include <string_view>
#include <variant>
#include <vector>

namespace selection
{

struct MassQuantity
{
    std::string_view offered;  // by the property list dialog
    std::string_view tag;      // in the row, to find the quantity again
    std::string_view name;     // of the row, or what the names of its rows begin with

    // The member of FEMAP's measurement.
    std::variant<double femap::MassProperties::*, std::vector<double> femap::MassProperties::*>
        member;

    std::span<const std::string_view> suffixes;  // of the names, one per row

    bool isScalar() const { return member.index() == 0; }
};

namespace massTable
{
using M = femap::MassProperties;
inline constexpr std::string_view oneRow[] = {""};
inline constexpr std::string_view axes[] = {"x", "y", "z"};
inline constexpr std::string_view numbers[] = {"1", "2", "3", "4", "5", "6"};

// clang-format off
inline constexpr MassQuantity quantities[] = {
    {"Length",            "Length",            "TotalLength",       &M::length,            oneRow},
    {"Area",              "Area",              "TotalArea",         &M::area,              oneRow},
    {"Volume",            "Vol",               "TotalVolume",       &M::volume,            oneRow},
    {"MassStructural",    "MassStructural",    "StructuralMass",    &M::structuralMass,    oneRow},
    {"MassNonStructural", "MassNonStructural", "NonStructuralMass", &M::nonStructuralMass, oneRow},
    {"MassTotal",         "MassTotal",         "TotalMass",         &M::totalMass,         oneRow},
    {"StructuralCG",      "StructuralCG",      "StructuralCG",      &M::structuralCG,      axes},
    {"NonStructuralCG",   "NonStructuralCG",   "NonStructuralCG",   &M::nonStructuralCG,   axes},
    {"TotalCG",           "TotalCG",           "TotalCG",           &M::totalCG,           axes},
    {"Inertia",           "Inertia",           "Inertia",           &M::inertia,           numbers},
    {"InertiaCG",         "InertiaCG",         "InertiaCG",         &M::inertiaCG,         numbers},
};
// clang-format on
}  // namespace massTable

/// In the order in which the property list dialog offers them.
inline constexpr auto& massQuantities = massTable::quantities;

/// A set of all elements. Raises RuntimeError when FEMAP does not fill it.
std::unique_ptr<femap::EntitySet> allElements(form::Context& context);
/// Measures them, and tells when FEMAP remarks on the mesh.
femap::MassProperties measure(form::Context& context, femap::EntitySet& elements);

/// Null when there is no such quantity.
const MassQuantity* findMassQuantity(std::string_view tag);

/// The scalar, or the component counted from 0. Raises RuntimeError when FEMAP measured no such
/// component.
double massValue(const MassQuantity& quantity, const femap::MassProperties& measured,
                 int component);

}  // namespace selection
