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

// clang-format off
constexpr Member<OutputObject> outputMembers[] = {
    {"location",           location},
    {"maxval",             ofVector<&OutputVector::maxval>},
    {"minval",             ofVector<&OutputVector::minval>},
    {"title",              ofVector<&OutputVector::title>},
    {"ID",                 ofVector<&OutputVector::id>},
    {"setID",              serve<&Output::setID>, putSetID},
    {"Value",              serve<&Output::value>},
    {"Get",                serve<&Output::get>},
    {"GetOutputListAtSet", serve<&Output::getOutputListAtSet>},
    {"GetScalarAtNodeSet", serve<&Output::getScalarAtSet>},
    {"GetScalarAtElemSet", serve<&Output::getScalarAtSet>},
    {"GetFromSet",         serve<&Output::getFromSet>},
    {"GetTitleList",       serve<&Output::getTitleList>},
};
// clang-format on
static_assert(areDeclared(outputMembers, OutputObject::declarations));

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
    {"Value",           setValue},
    {"title",           setTitle},
    {"ID",              setNumber},
    {"Active",          activeSet},
    {"Get",             serve<&OutputSet::get>},
    {"OutputVectors",   serve<&OutputSet::outputVectors>},
    {"OutputVectorsV2", serve<&OutputSet::outputVectors>},
};
// clang-format on
static_assert(areDeclared(outputSetMembers, OutputSetObject::declarations));

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

OutputObject::OutputObject(Server& shared)
    : ObjectOf(shared, "feOutput"), setID(shared.defaultOutputSet())
{}

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
    if (value == nullptr && server().modes[Mode::MissingIsZero])
        return 0;
    if (value == nullptr)
        throw sys::RuntimeError(sys::ErrorNumber::ObjectFailed,
                                femap::noValueText(vector.id, entity));
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
    const auto [ids, titles] =
        titlesIn(set->vectors, arguments.number(0), arguments.number(1), server().modes);
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
    embedded::HostSet* const target = server().findSet(set);
    if (target == nullptr)
        return failed;
    target->add(server().idsOf(EntityType::OutputVector, loaded.id));
    return ok;
}

}  // namespace standin
