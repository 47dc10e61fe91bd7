// The quantities of FEMAP's mass measurement and the rows of the output grid that show them.
#pragma once

#include "femap/Objects.h"

#include <span>
#include <string_view>
#include <vector>

namespace selection
{

struct MassQuantity
{
    std::string_view tag;   // in the row, to find the quantity again
    std::string_view name;  // of the row, or what the names of its rows begin with

    // The member of FEMAP's measurement; one of the two is set.
    double femap::MassProperties::*scalar;
    std::vector<double> femap::MassProperties::*components;

    std::span<const std::string_view> suffixes;  // of the names, one per row

    bool isScalar() const { return scalar != nullptr; }
};

/// In the order in which the property list dialog offers them.
std::span<const MassQuantity> massQuantities();

/// Null when there is no such quantity.
const MassQuantity* findMassQuantity(std::string_view tag);

/// The scalar, or the component counted from 0. Raises RuntimeError when FEMAP measured no such
/// component.
double massValue(const MassQuantity& quantity, const femap::MassProperties& measured,
                 int component);

}  // namespace selection
