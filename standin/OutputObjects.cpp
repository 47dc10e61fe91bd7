// The output set object and, for FEMAP before 2020.1, the output vector object of the stand-in.
#include "standin/Objects.h"
#include "standin/Server.h"
#include "system/RuntimeError.h"

#include <algorithm>
#include <optional>

namespace standin
{

namespace
{

constexpr double noValue = 0;

using enum Type;

using Output = OutputObject;

// A plain value of the loaded vector.
template <auto member>
Variant ofVector(Output& output, Arguments&)
{
    return output.vector.*member;
}

Variant location(Output& output, Arguments&)
{
    return static_cast<int>(output.vector.location);
}

void putSetID(Output& output, Arguments& arguments)
{
    output.setID = arguments.number(0);
}

using neutral::OutputVector;

constexpr Types titlesArguments = {I4, I4, OutI4, OutAny, OutAny};

// clang-format off
constexpr Member<OutputObject> outputMembers[] = {
    {{"location",           property, {},                10002}, location},
    {{"maxval",             property, {},                10006}, ofVector<&OutputVector::maxval>},
    {{"minval",             property, {},                10007}, ofVector<&OutputVector::minval>},
    {{"title",              property, {},                10011}, ofVector<&OutputVector::title>},
    {{"ID",                 property, {},                10014}, ofVector<&OutputVector::id>},
    {{"setID",              property, {},                10015}, serve<&Output::setID>, putSetID},
    {{"Value",              property, {I4},              18001}, serve<&Output::value>},
    {{"Get",                method,   {I4},              20000}, serve<&Output::get>},
    {{"GetOutputListAtSet", method,   {I4, Any, OutAny}, 20021},
        serve<&Output::getOutputListAtSet>},
    {{"GetScalarAtNodeSet", method,   {I4, OutAny},      20022}, serve<&Output::getScalarAtSet>},
    {{"GetScalarAtElemSet", method,   {I4, OutAny},      20024}, serve<&Output::getScalarAtSet>},
    {{"GetFromSet",         method,   {I4, I4},          20026}, serve<&Output::getFromSet>},
    {{"GetTitleList",       method,   titlesArguments,   29021}, serve<&Output::getTitleList>},
};
// clang-format on
static_assert(hasOneOfEach(outputMembers));

using OutputSet = OutputSetObject;

Variant setNumber(OutputSet& set, Arguments&)
{
    return set.loaded.id;
}
Variant setTitle(OutputSet& set, Arguments&)
{
    return set.loaded.title;
}
Variant setValue(OutputSet& set, Arguments&)
{
    return set.loaded.value;
}
Variant activeSet(OutputSet& set, Arguments&)
{
    return set.server().host.activeID(EntityType::OutputSet);
}

// clang-format off
constexpr Member<OutputSetObject> outputSetMembers[] = {
    {{"Value",           property, {},   10000}, setValue},
    {{"title",           property, {},   10003}, setTitle},
    {{"ID",              property, {},   17000}, setNumber},
    {{"Active",          property, {},   17002}, activeSet},
    {{"Get",             method,   {I4}, 29004}, serve<&OutputSet::get>},
    {{"OutputVectors",   method,   {I4}, 20010, Generation::Classic},
        serve<&OutputSet::outputVectors>},
    {{"OutputVectorsV2", method,   {I4}, 20110, Generation::Modern},
        serve<&OutputSet::outputVectors>},
};
// clang-format on
static_assert(hasOneOfEach(outputSetMembers));

}  // namespace

std::vector<double> valuesAt(const neutral::OutputVector& vector, const std::vector<int>& ids,
                             double otherwise)
{
    std::vector<double> values;
    values.reserve(ids.size());
    for (const int id : ids) {
        const double* const value = vector.valueAt(id);
        values.push_back(value == nullptr ? otherwise : *value);
    }
    return values;
}

std::span<const Member<OutputObject>> OutputObject::members()
{
    return outputMembers;
}

int OutputObject::get(int id)
{
    const neutral::OutputSet* const set = server().host.openModel().outputSets.find(setID);
    const neutral::OutputVector* const found =
        set == nullptr ? nullptr : set->vectors.find(id == 0 ? vector.id : id);
    if (found == nullptr)
        return failed;
    vector = *found;
    return ok;
}

int OutputObject::getFromSet(int set, int id)
{
    setID = set;
    return get(id);
}

double OutputObject::value(int entity)
{
    const double* const value = vector.valueAt(entity);
    if (value == nullptr)
        throw sys::RuntimeError(sys::ErrorNumber::ObjectFailed,
                                "Output vector " + std::to_string(vector.id) +
                                    " has no value at the entity " + std::to_string(entity));
    return *value;
}

int OutputObject::getOutputListAtSet(Arguments& arguments)
{
    const std::vector<int> ids = server().idsIn(arguments.number(0), vector.location);
    arguments.fillAny(2, valuesAt(vector, ids, arguments.real(1)));
    return ids.empty() ? failed : ok;
}

int OutputObject::getScalarAtSet(Arguments& arguments)
{
    const std::vector<int> ids = server().idsIn(arguments.number(0), vector.location);
    arguments.fillAny(1, valuesAt(vector, ids, noValue));
    return ids.empty() ? failed : ok;
}

// Of the vectors in the output set; 0, 0: all.
int OutputObject::getTitleList(Arguments& arguments)
{
    const neutral::OutputSet* const set = server().host.openModel().outputSets.find(setID);
    if (set == nullptr)
        return failed;
    const auto [ids, titles] = titlesIn(set->vectors, arguments.number(0), arguments.number(1));
    arguments.fill(2, static_cast<int>(ids.size()));
    arguments.fillAny(3, ids);
    arguments.fillAny(4, titles);
    return ids.empty() ? failed : ok;
}

std::span<const Member<OutputSetObject>> OutputSetObject::members()
{
    return outputSetMembers;
}

int OutputSetObject::get(int id)
{
    const neutral::OutputSet* const found =
        server().host.openModel().outputSets.find(id == 0 ? loaded.id : id);
    if (found == nullptr)
        return failed;
    loaded = *found;
    return ok;
}

int OutputSetObject::outputVectors(int set)
{
    const auto target = server().sets.find(set);
    if (target == server().sets.end())
        return failed;
    const std::vector<int> ids = loaded.vectors.ids();
    target->second->insert(ids.begin(), ids.end());
    return ok;
}

}  // namespace standin
