#include "femap/com/Apartment.h"
#include "femap/com/ComForm.h"
#include "femap/com/WrittenModel.h"
#include "standin/Generations.h"
#include "standin/StartedStandin.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace comtest
{

namespace
{

using Fields = std::vector<std::string>;

constexpr int few = 1000;
constexpr int many = 20000;
constexpr int entitiesForACall = 4000;  // at least, when there are many more of them
constexpr int timesFewer = 5;

const Fields nodeFields = {"x", "y", "z"};
const Fields elementFields = {"node1", "node2", "orientA", "topology"};
const Fields beamFields = {"End A Area", "I1",          "I2",          "I12",
                           "J",          "ShearAr, K1", "ShearAr, K2", "NS Mass/Len"};
const Fields materialFields = {"Ex",      "Ey",  "Gx", "Nuxy",    "Alphaxx",
                               "Alphayy", "Kxx", "Cp", "Density", "TensionLimit1"};

std::vector<int> everyOther(int first, int count)
{
    std::vector<int> ids;
    for (int i = 0; i < count; ++i)
        ids.push_back(first + 2 * i);
    return ids;
}

struct Calls
{
    int ofSelecting;
    int ofRefreshing;
};

using Select = std::function<void(ComForm&)>;

struct BulkCalls : testing::TestWithParam<const char*>
{
    // The calls that come in at the stand-in meanwhile.
    template <class Action>
    int callsOf(const Action& action)
    {
        const int before = standin->control().call("standinCallCount").number();
        action();
        return standin->control().call("standinCallCount").number() - before;
    }
    Calls callsOf(Reading reading, const Select& select)
    {
        ComForm f(reading);
        f.context.log.DeinitialiseLogger();
        f.dialog.UpdateCollection();
        const int ofSelecting = callsOf([&] { select(f); });
        return {ofSelecting, callsOf([&] { f.refreshAll(); })};
    }
    // What selects is made for a number of entities, which it passes so many times.
    void expectHardlyMoreForMany(const std::function<Select(int)>& make, int passes = 1)
    {
        const Calls forFew = callsOf(Reading::InBulk, make(few));
        const Calls forMany = callsOf(Reading::InBulk, make(many));

        const int more = passes * (many - few) / entitiesForACall;
        EXPECT_LE(forMany.ofSelecting, forFew.ofSelecting + more);
        EXPECT_LE(forMany.ofRefreshing, forFew.ofRefreshing + more);
        EXPECT_LT(forFew.ofSelecting + forFew.ofRefreshing, few / 2);
    }
    void open(const ModelSize& size)
    {
        standin.emplace(std::string(GetParam()) + " --model \"" +
                        writeModel(size, "bulk-calls.neu") + '"');
    }

    femap::com::Apartment apartment;
    std::optional<StartedStandin> standin;
};

INSTANTIATE_TEST_SUITE_P(OfBothGenerations, BulkCalls, bothGenerations, nameOfGeneration);

}  // namespace

TEST_P(BulkCalls, HardlyGrowWithTheNodes)
{
    open({.nodes = many});

    expectHardlyMoreForMany([](int count) {
        return [count](ComForm& f) { f.selectInputs("Nodes", everyOther(2, count), nodeFields); };
    });
}

TEST_P(BulkCalls, HardlyGrowWithTheElements)
{
    open({.nodes = 10, .elements = many});

    expectHardlyMoreForMany([](int count) {
        return [count](ComForm& f) {
            f.selectInputs("Elements", everyOther(2, count), elementFields);
        };
    });
}

TEST_P(BulkCalls, HardlyGrowWithTheValuesOfVectors)
{
    open({.nodes = many, .nodeVectors = 10});

    expectHardlyMoreForMany([](int count) {
        return [count](ComForm& f) { f.selectOutputs("Nodes", everyOther(2, count), 10); };
    });
}

TEST_P(BulkCalls, HardlyGrowWithTheValuesOfVectorsAtElementsOfEachType)
{
    open({.nodes = 10, .elements = many, .plateVectors = 10});

    // Once for the types there are, and once for each of them.
    constexpr int passes = 3;
    expectHardlyMoreForMany(
        [](int count) {
            return
                [count](ComForm& f) { f.selectOutputs("Elements", everyOther(2, count), 10, 2); };
        },
        passes);
}

TEST_P(BulkCalls, AreFiveTimesFewerForMaterials)
{
    open({.materials = 200});
    const auto select = [](ComForm& f) {
        f.selectInputs("Materials", everyOther(1, 100), materialFields);
    };

    const Calls plain = callsOf(Reading::OneByOne, select);
    const Calls bulk = callsOf(Reading::InBulk, select);

    EXPECT_LE(bulk.ofSelecting * timesFewer, plain.ofSelecting);
    EXPECT_LE(bulk.ofRefreshing * timesFewer, plain.ofRefreshing);
}

// Their types have to be asked for one by one, before any fields can be chosen. Older FEMAPs return
// the numbers of one property at a time.
TEST_P(BulkCalls, AreAsFewForPropertiesAsFemapLets)
{
    constexpr int count = 100;
    open({.properties = 2 * count});
    const auto select = [](ComForm& f) {
        f.selectInputs("Properties", everyOther(1, count), beamFields);
    };
    const bool isClassic = std::string_view(GetParam()) == "--classic";

    const Calls plain = callsOf(Reading::OneByOne, select);
    const Calls bulk = callsOf(Reading::InBulk, select);

    constexpr int besides = 40;
    EXPECT_LE(bulk.ofSelecting, (isClassic ? 4 : 2) * count + besides);
    EXPECT_LE(bulk.ofRefreshing, (isClassic ? 2 : 0) * count + besides);
    // One by one the IDs of the set are asked for only once, too.
    EXPECT_LE(bulk.ofSelecting * (isClassic ? 5 : 2 * timesFewer), 2 * plain.ofSelecting);
    EXPECT_LE(bulk.ofRefreshing * timesFewer, plain.ofRefreshing);
}

TEST_P(BulkCalls, ListTheVectorsInFewerCalls)
{
    constexpr int vectors = 50;
    open({.nodes = 1, .nodeVectors = vectors});
    const bool isClassic = std::string_view(GetParam()) == "--classic";
    ComForm plain(Reading::OneByOne);
    ComForm bulk(Reading::InBulk);

    const int plainCalls = callsOf([&] { plain.dialog.UpdateCollection(); });
    const int bulkCalls = callsOf([&] { bulk.dialog.UpdateCollection(); });

    // Newer FEMAPs convert their numbers one by one.
    EXPECT_LE(bulkCalls, (isClassic ? 0 : vectors) + 20);
    EXPECT_GE(plainCalls, 4 * vectors);
}

TEST_P(BulkCalls, AreNotMoreForAFewEntities)
{
    open({.nodes = 8, .elements = 8, .properties = 8, .materials = 8, .nodeVectors = 2});
    for (const int count : {1, 2, 3, 5, 8})
        for (const Select& select :
             {Select([&](ComForm& f) { f.selectInputs("Nodes", everyOther(2, count)); }),
              Select([&](ComForm& f) { f.selectInputs("Elements", everyOther(2, count)); }),
              Select([&](ComForm& f) { f.selectInputs("Materials", everyOther(1, count)); }),
              Select([&](ComForm& f) { f.selectInputs("Properties", everyOther(1, count)); }),
              Select([&](ComForm& f) { f.selectOutputs("Nodes", everyOther(2, count), 2); })}) {
            const Calls plain = callsOf(Reading::OneByOne, select);
            const Calls bulk = callsOf(Reading::InBulk, select);

            EXPECT_LE(bulk.ofSelecting, plain.ofSelecting) << count;
            EXPECT_LE(bulk.ofRefreshing, plain.ofRefreshing) << count;
        }
}

}  // namespace comtest
