#include "selection/FreshValues.h"

#include "selection/EntityReading.h"
#include "selection/MassQuantities.h"

namespace selection
{

using form::ParameterRow;

namespace
{

int numberIn(const ParameterRow& row, int column)
{
    return wholeNumberIn(std::string(row.cell(column)));
}

}  // namespace

femap::Entity& FreshEntities::operator[](const std::string& kind)
{
    std::unique_ptr<femap::Entity>& entity = made_[kind];
    if (entity == nullptr) {
        entity = context_.femap().entity(kind);
        const KindReading& reading = plan_[kind];
        entity->prefetch(reading.ids, reading.members);
    }
    return *entity;
}

std::string freshValue(femap::Entity& loaded, const ParameterRow& row)
{
    const std::string member(row.cell(form::inputColumn::member));
    const bool isPlain = row.cell(form::inputColumn::index).empty();
    return femap::toText(isPlain ? loaded.member(member)
                                 : loaded.member(member, numberIn(row, form::inputColumn::index)));
}

std::string freshValue(femap::OutputVector& loaded, const ParameterRow& row)
{
    const std::string_view kind = row.cell(form::outputColumn::kind);
    if (outputReading(kind) == form::Refreshed::FromVector)
        return femap::toText(loaded.Value(numberIn(row, form::outputColumn::first)));
    return femap::toText(loaded.member(std::string(kind)));
}

std::string freshValue(const femap::MassProperties& measured, const ParameterRow& row)
{
    const std::string tag(row.cell(form::outputColumn::first));
    const MassQuantity* const quantity = findMassQuantity(tag);
    if (quantity == nullptr)
        throw sys::RuntimeError(sys::ErrorNumber::InvalidCall,
                                "There is no mass quantity \"" + tag + "\"");
    const int component = quantity->isScalar() ? 0 : numberIn(row, form::outputColumn::second);
    return femap::toText(massValue(*quantity, measured, component));
}

}  // namespace selection
