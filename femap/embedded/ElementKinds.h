// The kinds of elements that FEMAP knows, and how the model host weighs each.
#pragma once

#include <string>

namespace femap::embedded
{

enum class Weighing
{
    ByExtent,  // density by length and section, area and thickness, or volume
    ByPlies,   // density and thickness of the plies
    ByValues,  // a mass element: the values of its property
    Massless,  // has no mass, whatever its property holds
    NotKnown,  // its mass is not known, but its length, area or volume counts
    NotAtAll,  // neither is known
};

/// NotKnown for a type that FEMAP does not have.
Weighing weighingOf(int elementType);
/// "type 99" for one that FEMAP does not have.
std::string nameOfElementType(int elementType);

}  // namespace femap::embedded
