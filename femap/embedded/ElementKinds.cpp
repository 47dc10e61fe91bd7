#include "femap/embedded/ElementKinds.h"

#include "femap/ElementTypes.h"

#include <algorithm>
#include <iterator>

namespace femap::embedded
{

namespace
{

struct ElementKind
{
    ElementType type;
    Weighing weighing;
};

// Sections of tubes and the like, whole turns of axisymmetric elements and matrices are not
// weighed, for no page tells how FEMAP keeps or counts them; nor are arcs, which are longer than
// they look.
// clang-format off
constexpr ElementKind kinds[] = {
    {elementRod,                        Weighing::ByExtent},
    {elementBar,                        Weighing::ByExtent},
    {elementTube,                       Weighing::NotKnown},
    {elementLink,                       Weighing::NotKnown},
    {elementBeam,                       Weighing::ByExtent},
    {elementSpring,                     Weighing::Massless},
    {elementDofSpring,                  Weighing::Massless},
    {elementCurvedBeam,                 Weighing::NotKnown},
    {elementGap,                        Weighing::Massless},
    {elementPlotOnly,                   Weighing::Massless},
    {elementShear,                      Weighing::ByExtent},
    {elementShearParabolic,             Weighing::ByExtent},
    {elementMembrane,                   Weighing::ByExtent},
    {elementMembraneParabolic,          Weighing::ByExtent},
    {elementBending,                    Weighing::ByExtent},
    {elementBendingParabolic,           Weighing::ByExtent},
    {elementPlate,                      Weighing::ByExtent},
    {elementPlateParabolic,             Weighing::ByExtent},
    {elementPlaneStrain,                Weighing::ByExtent},
    {elementPlaneStrainParabolic,       Weighing::ByExtent},
    {elementLaminate,                   Weighing::ByPlies},
    {elementLaminateParabolic,          Weighing::ByPlies},
    {elementAxisymmetric,               Weighing::NotKnown},
    {elementAxisymmetricParabolic,      Weighing::NotKnown},
    {elementSolid,                      Weighing::ByExtent},
    {elementSolidParabolic,             Weighing::ByExtent},
    {elementMass,                       Weighing::ByValues},
    {elementMassMatrix,                 Weighing::NotAtAll},
    {elementRigid,                      Weighing::Massless},
    {elementGeneralMatrix,              Weighing::NotAtAll},
    {elementCurvedTube,                 Weighing::NotKnown},
    {elementPlotPlate,                  Weighing::Massless},
    {elementSlideLine,                  Weighing::Massless},
    {elementContact,                    Weighing::Massless},
    {elementAxisymmetricShell,          Weighing::NotKnown},
    {elementAxisymmetricShellParabolic, Weighing::NotKnown},
    {elementBeamParabolic,              Weighing::ByExtent},
    {elementWeld,                       Weighing::NotAtAll},
    {elementLaminateSolid,              Weighing::NotKnown},
    {elementLaminateSolidParabolic,     Weighing::NotKnown},
    {elementSpringToGround,             Weighing::Massless},
    {elementDofSpringToGround,          Weighing::Massless},
    {elementCohesive,                   Weighing::NotAtAll},
    {elementCohesiveParabolic,          Weighing::NotAtAll},
    {elementMatrix,                     Weighing::NotAtAll},
};
// clang-format on

}  // namespace

Weighing weighingOf(int elementType)
{
    const auto* const kind =
        std::ranges::find(kinds, static_cast<ElementType>(elementType), &ElementKind::type);
    return kind == std::end(kinds) ? Weighing::NotKnown : kind->weighing;
}

std::string nameOfElementType(int elementType)
{
    const ElementTypeWord* const word = findElementTypeWord(elementType);
    return word == nullptr ? "type " + std::to_string(elementType) : std::string(word->word);
}

}  // namespace femap::embedded
