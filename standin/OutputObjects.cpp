// The output set object and, for FEMAP before 2020.1, the output vector object of the stand-in.
#include "standin/Objects.h"
#include "standin/Server.h"

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
    return output.vector.loaded().*member;
}

Variant location(Output& output, Arguments&)
{
    return static_cast<int>(output.vector.loaded().location);
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

Variant activeSet(OutputSet& set, Arguments&)
{
    return set.server().host.activeID(EntityType::OutputSet);
}

// A set that is not there leaves all as it was; a property has no status to tell it by.
void activateSet(OutputSet& set, Arguments& arguments)
{
    set.server().host.activate(EntityType::OutputSet, arguments.number(0));
}

// clang-format off
constexpr Member<OutputSetObject> outputSetMembers[] = {
    {"Value",           serve<&OutputSet::value>},
    {"title",           serve<&OutputSet::title>},
    {"ID",              serve<&OutputSet::id>},
    {"Active",          activeSet, activateSet},
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
    : ObjectOf(shared, "feOutput"), setID(shared.defaultOutputSet()), vector(shared.host)
{}

std::span<const Member<OutputObject>> OutputObject::members()
{
    return outputMembers;
}

int OutputObject::get(int id)
{
    return static_cast<int>(vector.GetFromSet(setID, id));
}

int OutputObject::getFromSet(int set, int id)
{
    setID = set;
    return get(id);
}

double OutputObject::value(int entity)
{
    if (server().modes[Mode::MissingIsZero] && vector.loaded().valueAt(entity) == nullptr)
        return 0;
    return vector.Value(entity);
}

int OutputObject::getOutputListAtSet(Arguments& arguments)
{
    const neutral::OutputVector& loaded = vector.loaded();
    const std::vector<int> ids = server().idsIn(arguments.number(0), loaded.location);
    arguments.fillAny(2, valuesAt(loaded, ids, arguments.real(1)));
    return ids.empty() ? failed : ok;
}

int OutputObject::getScalarAtSet(Arguments& arguments)
{
    const neutral::OutputVector& loaded = vector.loaded();
    const std::vector<int> ids = server().idsIn(arguments.number(0), loaded.location);
    arguments.fillAny(1, valuesAt(loaded, ids, noValue));
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

int OutputSetObject::get(int wanted)
{
    const neutral::OutputSet* const found =
        server().host.openModel().outputSets.find(wanted == 0 ? id : wanted);
    if (found == nullptr)
        return failed;
    id = found->id;
    title = found->title;
    value = found->value;
    return ok;
}

int OutputSetObject::outputVectors(int set)
{
    embedded::HostSet* const target = server().findSet(set);
    if (target == nullptr)
        return failed;
    target->add(server().idsOf(EntityType::OutputVector, id));
    return ok;
}

}  // namespace standin
