#include "femap/embedded/ElementKinds.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace femap::embedded
{

namespace
{

struct ElementKind
{
    int type;
    Weighing weighing;
    std::string_view name;
};

// Sections of tubes and the like, whole turns of axisymmetric elements and matrices are not
// weighed, for no page tells how FEMAP keeps or counts them; nor are arcs, which are longer than
// they look.
constexpr ElementKind kinds[] = {
    {1, Weighing::ByExtent, "rod"},
    {2, Weighing::ByExtent, "bar"},
    {3, Weighing::NotKnown, "tube"},
    {4, Weighing::NotKnown, "link"},
    {5, Weighing::ByExtent, "beam"},
    {6, Weighing::Massless, "spring"},
    {7, Weighing::Massless, "DOF spring"},
    {8, Weighing::NotKnown, "curved beam"},
    {9, Weighing::Massless, "gap"},
    {10, Weighing::Massless, "plot only"},
    {11, Weighing::ByExtent, "shear"},
    {12, Weighing::ByExtent, "shear"},
    {13, Weighing::ByExtent, "membrane"},
    {14, Weighing::ByExtent, "membrane"},
    {15, Weighing::ByExtent, "bending"},
    {16, Weighing::ByExtent, "bending"},
    {17, Weighing::ByExtent, "plate"},
    {18, Weighing::ByExtent, "plate"},
    {19, Weighing::ByExtent, "plane strain"},
    {20, Weighing::ByExtent, "plane strain"},
    {21, Weighing::ByPlies, "laminate plate"},
    {22, Weighing::ByPlies, "laminate plate"},
    {23, Weighing::NotKnown, "axisymmetric"},
    {24, Weighing::NotKnown, "axisymmetric"},
    {25, Weighing::ByExtent, "solid"},
    {26, Weighing::ByExtent, "solid"},
    {27, Weighing::ByValues, "mass"},
    {28, Weighing::NotAtAll, "mass matrix"},
    {29, Weighing::Massless, "rigid"},
    {30, Weighing::NotAtAll, "general matrix"},
    {31, Weighing::NotKnown, "curved tube"},
    {32, Weighing::Massless, "plot plate"},
    {33, Weighing::Massless, "slide line"},
    {34, Weighing::Massless, "contact"},
    {35, Weighing::NotKnown, "axisymmetric shell"},
    {36, Weighing::NotKnown, "axisymmetric shell"},
    {37, Weighing::ByExtent, "parabolic beam"},
    {38, Weighing::NotAtAll, "weld"},
    {39, Weighing::NotKnown, "laminate solid"},
    {40, Weighing::NotKnown, "laminate solid"},
    {41, Weighing::Massless, "spring to ground"},
    {42, Weighing::Massless, "spring to ground"},
    {43, Weighing::NotAtAll, "cohesive"},
    {44, Weighing::NotAtAll, "cohesive"},
    {45, Weighing::NotAtAll, "matrix"},
};

const ElementKind* kindOf(int elementType)
{
    const auto* const kind = std::ranges::find(kinds, elementType, &ElementKind::type);
    return kind == std::end(kinds) ? nullptr : kind;
}

}  // namespace

Weighing weighingOf(int elementType)
{
    const ElementKind* const kind = kindOf(elementType);
    return kind == nullptr ? Weighing::NotKnown : kind->weighing;
}

std::string nameOfElementType(int elementType)
{
    const ElementKind* const kind = kindOf(elementType);
    return kind == nullptr ? "type " + std::to_string(elementType) : std::string(kind->name);
}

}  // namespace femap::embedded
