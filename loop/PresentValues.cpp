#include "loop/PresentValues.h"

#include "femap/ValueRuns.h"
#include "system/RuntimeError.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <set>
#include <type_traits>
#include <vector>

namespace loop
{

using femap::EntityValue;
using femap::FunctionValue;
using femap::LoadValue;
using femap::ModelValues;
using femap::Value;
using sys::ErrorNumber;
using sys::RuntimeError;

namespace
{

void demandOk(femap::ReturnCode code, const std::string& what)
{
    if (code != femap::ReturnCode::Ok)
        throw RuntimeError(ErrorNumber::ObjectFailed, "FEMAP does not load " + what);
}

/// One object for each kind of entity, told what will be read.
class Entities
{
public:
    Entities(femap::Application& femap, const std::vector<EntityValue>& places)
    {
        std::map<std::string, std::pair<std::set<int>, std::vector<femap::MemberName>>> plan;
        for (const EntityValue& place : places) {
            auto& [ids, members] = plan[place.word];
            ids.insert(place.id);
            if (std::ranges::find(members, place.member) == members.end())
                members.push_back(place.member);
        }
        for (const auto& [word, reading] : plan) {
            made_[word] = femap.entity(word);
            made_[word]->prefetch({reading.first.begin(), reading.first.end()}, reading.second);
        }
    }

    femap::Entity& operator[](const std::string& word) { return *made_.at(word); }

private:
    std::map<std::string, std::unique_ptr<femap::Entity>> made_;
};

std::vector<EntityValue> presentEntities(femap::Application& femap,
                                         const std::vector<EntityValue>& places)
{
    std::vector<EntityValue> present;
    Entities entities(femap, places);
    femap::forEachRun(std::span(places), [&](std::span<const EntityValue> run) {
        femap::Entity& entity = entities[run.front().word];
        demandOk(entity.Get(run.front().id), femap::ownerOf(run.front()));
        for (const EntityValue& place : run) {
            present.push_back(place);
            present.back().value = read(entity, place.member);
        }
    });
    return present;
}

void readLoads(femap::LoadDefinition& definition, std::span<const LoadValue> places,
               std::vector<LoadValue>& present)
{
    const LoadValue& first = places.front();
    demandOk(definition.Get(first.loadSet, first.definition), femap::ownerOf(first));
    definition.ResetNextLoad();
    std::unique_ptr<femap::MemberObject> load;
    std::size_t loads = 0;  // that were given out
    for (const LoadValue& place : places) {
        for (; loads <= place.load; ++loads)
            load = definition.NextLoad();
        if (load == nullptr)
            throw RuntimeError(ErrorNumber::ObjectFailed, "FEMAP has no " + femap::loadOf(place));
        present.push_back(place);
        present.back().value = read(*load, place.member);
    }
}

std::vector<LoadValue> presentLoads(femap::Application& femap, const std::vector<LoadValue>& places)
{
    std::vector<LoadValue> present;
    if (places.empty())
        return present;
    const std::unique_ptr<femap::LoadDefinition> definition = femap.feLoadDefinition();
    femap::forEachRun(std::span(places), [&](std::span<const LoadValue> run) {
        readLoads(*definition, run, present);
    });
    return present;
}

std::vector<FunctionValue> presentFunctions(femap::Application& femap,
                                            const std::vector<FunctionValue>& places)
{
    std::vector<FunctionValue> present = places;
    if (places.empty())
        return present;
    const std::unique_ptr<femap::Function> function = femap.feFunction();
    for (FunctionValue& value : present) {
        demandOk(function->Get(value.id), femap::ownerOf(value));
        value.points = function->GetFunctionList();
    }
    return present;
}

double numberIn(const Value& value)
{
    return std::visit(
        [](const auto& number) {
            if constexpr (std::is_arithmetic_v<std::decay_t<decltype(number)>>)
                return static_cast<double>(number);
            else
                return std::nan("");
        },
        value);
}

bool isSameReal(double one, double other)
{
    constexpr double singlePrecision = 1E-6;
    constexpr double smallestSingle = 1E-37;
    return std::abs(one - other) <=
           std::max(singlePrecision * std::max(std::abs(one), std::abs(other)), smallestSingle);
}

bool isSame(const Value& wanted, const Value& present)
{
    const bool isWhole = std::holds_alternative<std::int64_t>(wanted);
    return isWhole ? numberIn(wanted) == numberIn(present)
                   : isSameReal(numberIn(wanted), numberIn(present));
}

std::string difference(const femap::MemberName& member, const std::string& owner,
                       const Value& wanted, const Value& present)
{
    return femap::nameOf(member) + " of " + owner + " is " + femap::toText(present) +
           " and should be " + femap::toText(wanted);
}

}  // namespace

Value read(femap::MemberObject& object, const femap::MemberName& member)
{
    return member.index ? object.member(member.name, *member.index) : object.member(member.name);
}

ModelValues presentValues(femap::Application& femap, const ModelValues& places)
{
    return {presentEntities(femap, places.entities), presentLoads(femap, places.loads),
            presentFunctions(femap, places.functions)};
}

std::string firstDifference(const ModelValues& wanted, const ModelValues& present)
{
    for (std::size_t i = 0; i < wanted.entities.size(); ++i) {
        const EntityValue& one = wanted.entities[i];
        if (!isSame(one.value, present.entities[i].value))
            return difference(one.member, femap::ownerOf(one), one.value,
                              present.entities[i].value);
    }
    for (std::size_t i = 0; i < wanted.loads.size(); ++i) {
        const LoadValue& one = wanted.loads[i];
        if (!isSame(one.value, present.loads[i].value))
            return difference(one.member, femap::loadOf(one), one.value, present.loads[i].value);
    }
    for (std::size_t i = 0; i < wanted.functions.size(); ++i) {
        const FunctionValue& one = wanted.functions[i];
        const femap::FunctionPoints& points = present.functions[i].points;
        if (!std::ranges::equal(one.points.x, points.x, isSameReal) ||
            !std::ranges::equal(one.points.y, points.y, isSameReal))
            return femap::ownerOf(one) + " has other points than it should";
    }
    return {};
}

}  // namespace loop
