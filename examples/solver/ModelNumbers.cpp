#include "examples/solver/ModelNumbers.h"

#include <vector>

namespace examples::solver
{

void refuse(const std::string& what)
{
    throw sys::RuntimeError(sys::ErrorNumber::FileError,
                            "This is not the panel of the examples: it has no " + what);
}

namespace
{

double valueAt(const std::vector<double>& values, std::size_t place)
{
    if (place >= values.size())
        refuse("value at place " + std::to_string(place));
    return values[place];
}

}  // namespace

double ofProperty(const femap::neutral::Model& model, int id, std::size_t place)
{
    return valueAt(entityOf(model.properties, id, "property").pval, place);
}

double ofMaterial(const femap::neutral::Model& model, int id, std::size_t place)
{
    return valueAt(entityOf(model.materials, id, "material").mval, place);
}

double ofLoad(const femap::neutral::Model& model, int definition, std::size_t component)
{
    for (const femap::neutral::LoadSet& set : model.loadSets)
        for (const auto* const list : {&set.meshLoads, &set.geometryLoads})
            for (const femap::neutral::Load& load : *list)
                if (load.definitionID == definition)
                    return load.load.at(component);
    refuse("load definition " + std::to_string(definition));
}

}  // namespace examples::solver
