#include "selection/ElementTypes.h"

#include "femap/Constants.h"

#include <algorithm>
#include <iterator>

namespace selection
{

namespace
{

struct TypeWord
{
    int type;
    std::string_view word;
};

// clang-format off
constexpr TypeWord typeWords[] = {
    {femap::elementRod,                   "rod"},
    {femap::elementBar,                   "bar"},
    {femap::elementTube,                  "tube"},
    {femap::elementLink,                  "link"},
    {femap::elementBeam,                  "beam"},
    {femap::elementCurvedBeam,            "curved beam"},
    {femap::elementShear,                 "shear panel"},
    {femap::elementShearParabolic,        "parabolic shear panel"},
    {femap::elementMembrane,              "membrane"},
    {femap::elementMembraneParabolic,     "parabolic membrane"},
    {femap::elementBending,               "bending"},
    {femap::elementBendingParabolic,      "parabolic bending"},
    {femap::elementPlate,                 "plate"},
    {femap::elementPlateParabolic,        "parabolic plate"},
    {femap::elementPlaneStrain,           "plane strain"},
    {femap::elementPlaneStrainParabolic,  "parabolic plane strain"},
    {femap::elementLaminate,              "laminate"},
    {femap::elementLaminateParabolic,     "parabolic laminate"},
    {femap::elementAxisymmetric,          "axisymmetric"},
    {femap::elementAxisymmetricParabolic, "parabolic axisymmetric"},
    {femap::elementSolid,                 "solid"},
    {femap::elementSolidParabolic,        "parabolic solid"},
    {femap::elementMass,                  "mass"},
    {femap::elementRigid,                 "rigid"},
    {femap::elementCurvedTube,            "curved tube"},
};
// clang-format on

}  // namespace

std::string ofType(int type, std::string_view things)
{
    const auto found = std::ranges::find(typeWords, type, &TypeWord::type);
    const std::string text(things);
    return found == std::end(typeWords) ? text + " of type " + std::to_string(type)
                                        : std::string(found->word) + " " + text;
}

}  // namespace selection
