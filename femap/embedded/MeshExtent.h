// What an element of the mesh measures, and where that lies. Parabolic elements are measured by
// their corners.
#pragma once

#include "femap/embedded/Point.h"
#include "femap/neutral/Model.h"

#include <cstddef>
#include <optional>

namespace femap::embedded
{

enum class Measure
{
    Length,
    Area,
    Volume,
};

struct Extent
{
    Measure measure{};
    std::size_t corners = 0;
    double amount = 0;  // the length, area or volume
    Point centre{};
    Point normal{};  // of planar elements, with the length 1
};

/// Nothing for an element without a known shape, or when one of its nodes is missing.
std::optional<Extent> extentOf(const neutral::Model& model, const neutral::Element& element);

}  // namespace femap::embedded
