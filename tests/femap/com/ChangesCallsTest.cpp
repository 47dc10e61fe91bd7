// How many calls one point of a study takes: reading what is there, putting other values, and
// reading results.
#include "femap/com/Apartment.h"
#include "femap/com/ComApplication.h"
#include "femap/com/WrittenModel.h"
#include "standin/StartedStandin.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace comtest
{

using femap::EntityValue;
using femap::MemberName;
using femap::ModelValues;
using femap::Value;

namespace
{

constexpr int mostCalls = 130;
constexpr int vectors = 4;
constexpr int valuesOfVector = 25;

// Forty places of properties, forty coordinates and twenty numbers of materials: few to an entity,
// or many.
std::vector<EntityValue> placesOn(int entities)
{
    constexpr const char* coordinates[] = {"x", "z"};
    constexpr const char* numbers[] = {"Ex", "Nuxy", "Density", "Alphaxx", "Gx"};
    std::vector<EntityValue> values;
    for (int i = 0; i < 40; ++i)
        values.push_back({"Prop", 1 + i % entities, {"pval", i / entities}, {}});
    for (int i = 0; i < 40; ++i)
        values.push_back({"Node", 2 + 2 * (i / 2), {coordinates[i % 2]}, {}});
    for (int i = 0; i < 20; ++i)
        values.push_back({"Matl", 1 + i % (entities / 2), {numbers[i / (entities / 2)]}, {}});
    return values;
}

// Announced by kind, as whoever refreshes rows does.
void readAll(femap::Application& femap, std::vector<EntityValue>& values)
{
    for (const char* const word : {"Prop", "Node", "Matl"}) {
        std::set<int> ids;
        std::vector<MemberName> members;
        for (const EntityValue& each : values)
            if (each.word == word) {
                ids.insert(each.id);
                if (std::ranges::find(members, each.member) == members.end())
                    members.push_back(each.member);
            }
        const auto entity = femap.entity(word);
        entity->prefetch({ids.begin(), ids.end()}, members);
        for (EntityValue& each : values) {
            if (each.word != word)
                continue;
            EXPECT_EQ(entity->Get(each.id), femap::ReturnCode::Ok);
            each.value = each.member.index ? entity->member(each.member.name, *each.member.index)
                                           : entity->member(each.member.name);
        }
    }
}

std::vector<double> resultsOf(femap::Application& femap)
{
    std::vector<femap::VectorReading> plan;
    for (int id = 1; id <= vectors; ++id) {
        plan.push_back({id});
        for (int i = 1; static_cast<int>(plan.back().entityIDs.size()) < valuesOfVector; ++i)
            if (i % 7 != 0)
                plan.back().entityIDs.push_back(2 * i);
    }
    const auto vector = femap.feOutput();
    vector->prefetch(plan);
    std::vector<double> values;
    for (const femap::VectorReading& each : plan) {
        EXPECT_EQ(vector->Get(each.vectorID), femap::ReturnCode::Ok);
        for (const int id : each.entityIDs)
            values.push_back(vector->Value(id));
    }
    return values;
}

struct CallsOfAPoint : testing::TestWithParam<int>
{
    int calls() { return standin.control().call("standinCallCount").number(); }

    femap::com::Apartment apartment;
    StartedStandin standin{"--modern --model \"" +
                           writeModel({.nodes = 60,
                                       .elements = 10,
                                       .properties = 40,
                                       .materials = 40,
                                       .nodeVectors = vectors,
                                       .plateVectors = 0},
                                      "calls-of-a-point.neu") +
                           '"'};
};

INSTANTIATE_TEST_SUITE_P(OnEntities, CallsOfAPoint, testing::Values(8, 40));

}  // namespace

TEST_P(CallsOfAPoint, AreFewInAModernFemap)
{
    const auto femap = femap::com::ComConnector(nullptr).attach();
    ModelValues values = {placesOn(GetParam()), {}, {}};
    const int atStart = calls();

    readAll(*femap, values.entities);
    const int read = calls();
    for (EntityValue& each : values.entities)
        each.value = std::get<double>(each.value) + 0.5;
    femap->changes()->put(values);
    const int put = calls();
    const std::vector<double> outputs = resultsOf(*femap);
    const int all = calls();

    EXPECT_LE(all - atStart, mostCalls) << read - atStart << " to read, " << put - read
                                        << " to put, " << all - put << " for results";
    RecordProperty("calls", all - atStart);
    EXPECT_THAT(outputs, testing::SizeIs(vectors * valuesOfVector));
    ModelValues present = values;
    readAll(*femap, present.entities);
    for (std::size_t i = 0; i < values.entities.size(); ++i)
        EXPECT_EQ(present.entities[i].value, values.entities[i].value) << i;
}

}  // namespace comtest
