#include "femap/com/Apartment.h"
#include "femap/com/ComForm.h"
#include "femap/com/WrittenModel.h"
#include "standin/Generations.h"
#include "standin/StartedStandin.h"
#include "system/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <numeric>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace comtest
{

using femap::ConnectionLost;

namespace
{

using Lines = std::vector<std::string>;

std::vector<int> idsTo(int last)
{
    std::vector<int> ids(static_cast<std::size_t>(last));
    std::iota(ids.begin(), ids.end(), 1);
    return ids;
}

void readNodes(ComForm& f)
{
    f.selectInputs("Nodes", idsTo(60));
}
void readCoordinates(ComForm& f)
{
    f.selectInputs("Nodes", idsTo(60), {"z", "x"});
}
void readElements(ComForm& f)
{
    f.selectInputs("Elements", idsTo(60), {"node1", "topology", "orientA", "PlateOffset"});
}
void readProperties(ComForm& f)
{
    f.selectInputs("Properties", idsTo(24), {}, 2);
}
void readMaterials(ComForm& f)
{
    f.selectInputs("Materials", idsTo(24),
                   {"Ex", "Ey", "Nuxy", "Alphaxx", "Alphaxz", "Density", "RefTemp"});
}
void readOutputs(ComForm& f)
{
    f.dialog.UpdateCollection();
    f.selectOutputs("Nodes", idsTo(60), 4);
}

// A member that reads or prepares much at once, and what uses it.
struct BulkMember
{
    const char* generation;
    const char* member;
    void (*read)(ComForm&);
};

// clang-format off
const BulkMember bulkMembers[] = {
    {"--classic", "feNode.GetCoordArray",       readCoordinates},
    {"--classic", "feNode.GetAllArray",         readNodes},
    {"--classic", "feElem.GetAllArray",         readElements},
    {"--classic", "feProp.vpval",               readProperties},
    {"--classic", "feMatl.vmval",               readMaterials},
    {"--classic", "feOutput.GetOutputListAtSet", readOutputs},
    {"--classic", "feOutput.GetTitleList",      readOutputs},
    {"--modern",  "feNode.GetAllArray",         readNodes},
    {"--modern",  "feElem.GetAllArray",         readElements},
    {"--modern",  "feProp.GetValueArray",       readProperties},
    {"--modern",  "feMatl.GetValueArray",       readMaterials},
    {"--modern",  "feMatl.vmval",               readMaterials},
    {"--modern",  "feResults.DataNeeded",       readOutputs},
    {"--modern",  "feResults.VectorInfoV2",     readOutputs},
    {"--modern",  "feResults.AddColumnV2",      readOutputs},
    {"--modern",  "feResults.Populate",         readOutputs},
    {"--modern",  "feResults.GetColumn",        readOutputs},
    {"--modern",  "feResults.VectorTitlesV2",   readOutputs},
    {"--modern",  "feResults.ValueForNonExisting", readOutputs},
};
// clang-format on

std::ostream& operator<<(std::ostream& out, const BulkMember& member)
{
    return out << member.member;
}

const ModelSize smallModel = {
    .nodes = 30, .elements = 30, .properties = 24, .materials = 24, .nodeVectors = 4};

struct BulkFault : testing::TestWithParam<BulkMember>
{
    static Lines outcomeOf(Reading reading)
    {
        ComForm f(reading);
        GetParam().read(f);
        f.shuffleRows();
        f.refreshAll();
        return f.outcome();
    }

    femap::com::Apartment apartment;
    StartedStandin standin{std::string(GetParam().generation) + " --model \"" +
                           writeModel(smallModel, "bulk-faults.neu") + '"'};
};

INSTANTIATE_TEST_SUITE_P(OfEachMember, BulkFault, testing::ValuesIn(bulkMembers),
                         [](const auto& fault) {
                             std::string name = std::string(fault.param.generation).substr(2) +
                                                '_' + fault.param.member;
                             std::replace(name.begin(), name.end(), '.', '_');
                             return name;
                         });

struct DyingFemap : testing::TestWithParam<const char*>
{
    femap::com::Apartment apartment;
    std::string model = writeModel(smallModel, "bulk-dying.neu");

    // Reads from a stand-in that dies at a call. False when it lived on.
    bool diesAt(int call, const std::function<void(ComForm&)>& read)
    {
        StartedStandin standin(std::string(GetParam()) + " --model \"" + model + '"');
        ComForm f(Reading::InBulk);
        f.dialog.UpdateCollection();
        f.selectInputs("Nodes", idsTo(60), {"y"});
        const Lines rows = f.rows(f.form.InputsList);
        standin.control().call("standinDieAt", call);
        bool died = false;
        try {
            read(f);
        }
        catch (const ConnectionLost&) {
            died = true;
        }
        const Lines left = f.rows(f.form.InputsList);
        EXPECT_GE(left.size(), rows.size());
        for (const std::string& row : rows)
            EXPECT_THAT(left, testing::Contains(row));
        if (!died)
            standin.control().call("standinDieAt", 0);
        else
            EXPECT_TRUE(standin.ends());
        f.context.application.reset();
        return died;
    }
    int deathsOf(const std::function<void(ComForm&)>& read)
    {
        int deaths = 0;
        while (diesAt(deaths + 1, read))
            ++deaths;
        return deaths;
    }
};

INSTANTIATE_TEST_SUITE_P(OfBothGenerations, DyingFemap, bothGenerations, nameOfGeneration);

struct SetFault : testing::TestWithParam<const char*>
{};

INSTANTIATE_TEST_SUITE_P(OfEachSort, SetFault,
                         testing::Values("missing", "fails", "raises", "short"));

}  // namespace

TEST_P(BulkFault, LeavesTheRowsAndTheLogAsTheyAre)
{
    const Lines plain = outcomeOf(Reading::OneByOne);
    for (const char* const how : {"missing", "fails", "raises", "short", "wrong"}) {
        standin.control().call("standinFault", GetParam().member, how);

        const Lines bulk = outcomeOf(Reading::InBulk);

        EXPECT_GT(plain.size(), 100U) << how;
        EXPECT_EQ(bulk, plain) << how;
    }
}

TEST(StandinFault, IsAsTheTestWantsIt)
{
    const femap::com::Apartment apartment;
    StartedStandin standin("--modern --model \"" + writeModel(smallModel, "bulk-faults.neu") + '"');
    using femap::com::Variant;
    const auto coordinates = [] {
        auto node = runningFemap()->object("feNode");  // over a connection that knows no names yet
        LONG count = 0;
        Variant ids;
        Variant xyz;
        const int code = node.call("GetCoordArray", 0, &count, &ids, &xyz).number();
        return std::pair(code, xyz.reals());
    };
    const auto fault = [&](const char* how) {
        return standin.control().call("standinFault", "feNode.GetCoordArray", how).number();
    };
    const auto sound = coordinates();
    EXPECT_THAT(sound.second, testing::SizeIs(90));

    EXPECT_EQ(fault("nonsense"), 0);
    EXPECT_EQ(coordinates(), sound);
    EXPECT_EQ(fault("short"), -1);
    EXPECT_THAT(coordinates().second, testing::SizeIs(89));
    fault("wrong");
    EXPECT_EQ(coordinates().second.back(), sound.second.back() + 1);
    fault("fails");
    EXPECT_EQ(coordinates().first, 0);
    for (const char* const how : {"raises", "missing"}) {
        fault(how);
        EXPECT_THROW(coordinates(), sys::RuntimeError) << how;
    }
    fault("none");
    EXPECT_EQ(coordinates(), sound);
}

TEST(MaterialFault, IsThatOfThePlainWayForAMemberThatRaises)
{
    const femap::com::Apartment apartment;
    StartedStandin standin("--modern --model \"" + writeModel(smallModel, "bulk-faults.neu") + '"');
    standin.control().call("standinFault", "feMatl.Ey", "raises");
    ComForm plain(Reading::OneByOne);
    ComForm bulk(Reading::InBulk);

    readMaterials(plain);
    readMaterials(bulk);

    EXPECT_EQ(bulk.outcome(), plain.outcome());
    EXPECT_THAT(bulk.rows(bulk.form.InputsList), testing::Contains("EyAtMatl3\t\tMatl\t3\tEy\t"));
}

TEST_P(SetFault, LeavesTheIDsAsTheyAre)
{
    const femap::com::Apartment apartment;
    StartedStandin standin("--modern --model \"" + panelModel() + '"');
    const femap::com::ComConnector connector(nullptr);
    const auto femap = femap::com::ComConnector(nullptr).attach();
    const auto set = femap->feSet();
    set->AddAll(femap::EntityType::Property);
    const std::vector<int> expected = set->ids();
    standin.control().call("standinFault", "set.GetArray", GetParam());
    const auto other = femap::com::ComConnector(nullptr).attach();
    const auto otherSet = other->feSet();

    EXPECT_THAT(otherSet->ids(), testing::IsEmpty());
    otherSet->AddAll(femap::EntityType::Property);

    EXPECT_THAT(expected, testing::SizeIs(testing::Gt(2)));
    EXPECT_EQ(otherSet->ids(), expected);
    EXPECT_EQ(otherSet->ids(), expected);
}

TEST_P(DyingFemap, EndsTheReadingOfEntitiesAtAnyCall)
{
    const auto read = [](ComForm& f) { f.selectInputs("Nodes", idsTo(60), {"x", "defCSys"}); };

    EXPECT_GT(deathsOf(read), 12);
}

TEST_P(DyingFemap, EndsTheReadingOfResultsAtAnyCall)
{
    const auto read = [](ComForm& f) { f.selectOutputs("Nodes", idsTo(60), 1); };

    EXPECT_GT(deathsOf(read), 15);
}

TEST_P(DyingFemap, EndsARefreshAtAnyCall)
{
    const auto read = [](ComForm& f) { selection::RefreshInputs_Click(f.context); };

    EXPECT_GT(deathsOf(read), 8);
}

}  // namespace comtest
