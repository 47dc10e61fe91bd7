#include "femap/ElementTypes.h"

#include <algorithm>
#include <iterator>

namespace femap
{

namespace
{

using enum ElementTypeWord::Order;

// clang-format off
constexpr ElementTypeWord typeWords[] = {
    {elementRod,                        "rod"},
    {elementBar,                        "bar"},
    {elementTube,                       "tube"},
    {elementLink,                       "link"},
    {elementBeam,                       "beam"},
    {elementSpring,                     "spring"},
    {elementDofSpring,                  "DOF spring"},
    {elementCurvedBeam,                 "curved beam"},
    {elementGap,                        "gap"},
    {elementPlotOnly,                   "plot only"},
    {elementShear,                      "shear panel"},
    {elementShearParabolic,             "shear panel", Parabolic},
    {elementMembrane,                   "membrane"},
    {elementMembraneParabolic,          "membrane", Parabolic},
    {elementBending,                    "bending"},
    {elementBendingParabolic,           "bending", Parabolic},
    {elementPlate,                      "plate"},
    {elementPlateParabolic,             "plate", Parabolic},
    {elementPlaneStrain,                "plane strain"},
    {elementPlaneStrainParabolic,       "plane strain", Parabolic},
    {elementLaminate,                   "laminate plate"},
    {elementLaminateParabolic,          "laminate plate", Parabolic},
    {elementAxisymmetric,               "axisymmetric"},
    {elementAxisymmetricParabolic,      "axisymmetric", Parabolic},
    {elementSolid,                      "solid"},
    {elementSolidParabolic,             "solid", Parabolic},
    {elementMass,                       "mass"},
    {elementMassMatrix,                 "mass matrix"},
    {elementRigid,                      "rigid"},
    {elementGeneralMatrix,              "general matrix"},
    {elementCurvedTube,                 "curved tube"},
    {elementPlotPlate,                  "plot plate"},
    {elementSlideLine,                  "slide line"},
    {elementContact,                    "contact"},
    {elementAxisymmetricShell,          "axisymmetric shell"},
    {elementAxisymmetricShellParabolic, "axisymmetric shell", Parabolic},
    {elementBeamParabolic,              "beam", Parabolic},
    {elementWeld,                       "weld"},
    {elementLaminateSolid,              "laminate solid"},
    {elementLaminateSolidParabolic,     "laminate solid", Parabolic},
    {elementSpringToGround,             "spring to ground"},
    {elementDofSpringToGround,          "spring to ground"},
    {elementCohesive,                   "cohesive"},
    {elementCohesiveParabolic,          "cohesive", Parabolic},
    {elementMatrix,                     "matrix"},
};
// clang-format on

}  // namespace

const ElementTypeWord* findElementTypeWord(int type)
{
    const auto* const found =
        std::ranges::find(typeWords, static_cast<ElementType>(type), &ElementTypeWord::type);
    return found == std::end(typeWords) ? nullptr : found;
}

}  // namespace femap
