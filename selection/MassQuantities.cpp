#include "selection/MassQuantities.h"

#include "system/RuntimeError.h"

#include <algorithm>
#include <iterator>
#include <string>

namespace selection
{

std::unique_ptr<femap::EntitySet> allElements(form::Context& context)
{
    std::unique_ptr<femap::EntitySet> elements = context.femap().feSet();
    if (elements->AddAll(femap::EntityType::Element) != femap::ReturnCode::Ok)
        throw sys::RuntimeError(sys::ErrorNumber::ObjectFailed,
                                "FEMAP could not put all elements into a set to measure them");
    return elements;
}

femap::MassProperties measure(form::Context& context, femap::EntitySet& elements)
{
    femap::MassProperties measured =
        context.femap().feMeasureMeshMassProp(elements.ID(), 0, false, false);
    if (measured.isNegative)
        context.form.status.tellHint(
            "FEMAP measured a negative mass or volume: the corners of a solid element are numbered "
            "the wrong way. Have FEMAP check the mesh");
    return measured;
}

const MassQuantity* findMassQuantity(std::string_view tag)
{
    const auto found = std::ranges::find(massQuantities, tag, &MassQuantity::tag);
    return found == std::end(massQuantities) ? nullptr : found;
}

double massValue(const MassQuantity& quantity, const femap::MassProperties& measured, int component)
{
    if (quantity.isScalar())
        return measured.*std::get<0>(quantity.member);
    const std::vector<double>& components = measured.*std::get<1>(quantity.member);
    if (component < 0 || static_cast<std::size_t>(component) >= components.size())
        throw sys::RuntimeError(sys::ErrorNumber::SubscriptOutOfRange,
                                "FEMAP measured no component " + std::to_string(component) +
                                    " of " + std::string(quantity.tag));
    return components[static_cast<std::size_t>(component)];
}

}  // namespace selection
