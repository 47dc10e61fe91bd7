#include "femap/embedded/ModelDifference.h"

#include "femap/embedded/HostLoads.h"
#include "femap/embedded/MemberTables.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace femap::embedded
{

namespace
{

Value asValue(int number)
{
    return std::int64_t{number};
}
template <class Plain>
Value asValue(const Plain& plain)
{
    return plain;
}

using Take = std::function<void(const MemberName& member, const Value& value)>;

template <class Plain>
void compare(const std::string& name, const Plain& before, const Plain& now, const Take& take)
{
    if (before != now)
        take({name}, asValue(now));
}
void compare(const std::string&, const std::string&, const std::string&, const Take&) {}

template <class Numbers>
void compareEach(const std::string& name, const Numbers& before, const Numbers& now,
                 const Take& take)
{
    for (std::size_t i = 0; i < std::min(before.size(), now.size()); ++i)
        if (before[i] != now[i])
            take({name, static_cast<int>(i)}, asValue(now[i]));
}
template <class Number, std::size_t size>
void compare(const std::string& name, const std::array<Number, size>& before,
             const std::array<Number, size>& now, const Take& take)
{
    compareEach(name, before, now, take);
}
void compare(const std::string& name, const std::vector<double>& before,
             const std::vector<double>& now, const Take& take)
{
    compareEach(name, before, now, take);
}

// Hands on the members in which the data differ, titles and IDs apart.
template <class Data>
void forEachDifference(const Data& before, const Data& now, const Take& take)
{
    for (const Member<Data>& member : membersOf(Kind<Data>())) {
        const bool isRead = member.element < 0 && member.name != "ID" &&
                            (member.appliesTo == nullptr || member.appliesTo(now));
        if (isRead)
            std::visit(
                [&](const auto& pointer) {
                    compare(std::string(member.name), before.*pointer, now.*pointer, take);
                },
                member.pointer);
    }
}

template <class Data>
void addEntities(ModelValues& values, const std::string& word, const neutral::Table<Data>& before,
                 const neutral::Table<Data>& now)
{
    for (const Data& entity : now)
        if (const Data* const old = before.find(entity.id))
            forEachDifference(*old, entity, [&](const MemberName& member, const Value& value) {
                values.entities.push_back({word, entity.id, member, value});
            });
}

// Both lists have the same loads in the same order, or the rest is not looked at.
template <class Load, class Shown>
void addLoads(std::vector<LoadValue>& values, int setID, const std::vector<Load>& before,
              const std::vector<Load>& now, Shown (*shown)(const Load&, int))
{
    std::map<int, std::size_t> loads;  // of a definition, so far
    for (std::size_t i = 0; i < std::min(before.size(), now.size()); ++i) {
        const int definition = now[i].definitionID;
        const std::size_t load = loads[definition]++;
        forEachDifference(shown(before[i], setID), shown(now[i], setID),
                          [&](const MemberName& member, const Value& value) {
                              values.push_back({setID, definition, load, member, value});
                          });
    }
}

}  // namespace

ModelValues differences(const neutral::Model& before, const neutral::Model& now)
{
    ModelValues values;
    addEntities(values, "Node", before.nodes, now.nodes);
    addEntities(values, "Elem", before.elements, now.elements);
    addEntities(values, "Prop", before.properties, now.properties);
    addEntities(values, "Matl", before.materials, now.materials);
    for (const neutral::LoadSet& set : now.loadSets) {
        const neutral::LoadSet* const old = before.loadSets.find(set.id);
        if (old == nullptr)
            continue;
        addLoads(values.loads, set.id, old->meshLoads, set.meshLoads, meshLoad);
        addLoads(values.loads, set.id, old->geometryLoads, set.geometryLoads, geometryLoad);
        addLoads(values.loads, set.id, old->nodalTemperatures, set.nodalTemperatures,
                 nodalTemperature);
        addLoads(values.loads, set.id, old->elementTemperatures, set.elementTemperatures,
                 elementalTemperature);
    }
    // Those of one definition beside each other.
    std::ranges::stable_sort(values.loads, [](const LoadValue& one, const LoadValue& other) {
        return std::pair(one.loadSet, one.definition) < std::pair(other.loadSet, other.definition);
    });
    for (const neutral::Function& function : now.functions) {
        const neutral::Function* const old = before.functions.find(function.id);
        if (old != nullptr && (old->x != function.x || old->y != function.y))
            values.functions.push_back({function.id, {function.x, function.y}});
    }
    return values;
}

}  // namespace femap::embedded
