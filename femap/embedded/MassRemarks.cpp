#include "femap/embedded/MassRemarks.h"

#include "femap/embedded/ElementKinds.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace femap::embedded
{

namespace
{

struct RemarkText
{
    MassRemark kind;
    std::string_view text;
};

constexpr RemarkText remark(MassRemark kind, std::string_view text)
{
    return {kind, text};
}

constexpr RemarkText remarkTexts[] = {
    remark(MassRemark::UnknownKind,
           "Elements that the model host cannot weigh are missing in the masses"),
    remark(MassRemark::NoShape,
           "Elements without their nodes or a known shape are missing in the masses"),
    remark(MassRemark::NoProperty, "Elements without a property are missing in the masses"),
    remark(MassRemark::NoMaterial,
           "Elements without a material are missing in the structural mass"),
    remark(
        MassRemark::NoLayup,
        "Laminates without a layup or a material of its plies are missing in the structural mass"),
    remark(MassRemark::NoDensity,
           "Elements whose density, section or thickness is 0 have no structural mass"),
    remark(MassRemark::BottomSurface,
           "Value 0 of laminates is taken as their bottom surface, which no page confirms; "
           "compare the centre of gravity"),
    remark(MassRemark::Lumped,
           "Mass elements count as structural mass here; FEMAP may count them as non-structural"),
    remark(MassRemark::LumpedByDirection,
           "Mass elements with other values in y and z than in x count with that in x"),
    remark(
        MassRemark::LumpedOffset,
        "Values 8 to 10 of mass elements are taken as offset, which no page confirms; compare the "
        "centre of gravity"),
    remark(MassRemark::LumpedElsewhere,
           "Mass elements with a coordinate system of their own count without offset and inertia"),
};

std::string textOf(MassRemark kind)
{
    return std::string(std::ranges::find(remarkTexts, kind, &RemarkText::kind)->text);
}

}  // namespace

std::vector<std::string> MassRemarks::texts(std::size_t measured) const
{
    std::vector<std::string> result;
    for (const auto& [kind, types] : counts_) {
        std::size_t count = 0;
        std::map<std::string, std::size_t> names;  // a kind may have a linear and a parabolic type
        for (const auto& [type, ofType] : types) {
            count += ofType;
            names[nameOfElementType(type)] += ofType;
        }
        std::string kinds;
        for (const auto& [name, ofName] : names)
            kinds += (kinds.empty() ? "" : ", ") + name + ' ' + std::to_string(ofName);
        result.push_back(textOf(kind) + ": " + std::to_string(count) + " of " +
                         std::to_string(measured) + " (" + kinds + ")");
    }
    return result;
}

}  // namespace femap::embedded
