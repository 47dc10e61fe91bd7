// What the loop changes in FEMAP: the same over COM as in the model host, plainly and in bulk, and
// what is said where FEMAP refuses it.
#include "femap/com/Apartment.h"
#include "femap/com/BusyFilter.h"
#include "femap/embedded/Host.h"
#include "standin/ChangesTranscript.h"
#include "standin/Generations.h"
#include "standin/QueuedSelections.h"
#include "standin/StartedStandin.h"
#include "system/Files.h"
#include "system/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <tuple>

namespace comtest
{

using femap::ModelChanges;
using femap::ModelValues;
using femap::SolverBrand;
using femap::com::ComConnector;
using femap::com::Reading;
using femap::com::RetryPolicy;
using testing::HasSubstr;

namespace
{

std::unique_ptr<femap::Application> attachedFor(Reading reading)
{
    return ComConnector(nullptr, std::make_shared<RetryPolicy>(), reading).attach();
}

struct ChangedBothWays : testing::TestWithParam<std::tuple<const char*, Reading>>
{
    femap::com::Apartment apartment;
    StartedStandin standin{std::string(std::get<0>(GetParam())) + " --model \"" + panelModel() +
                           '"'};
    std::unique_ptr<femap::Application> com = attachedFor(std::get<1>(GetParam()));
};

INSTANTIATE_TEST_SUITE_P(EachGeneration, ChangedBothWays,
                         testing::Combine(bothGenerations,
                                          testing::Values(Reading::InBulk, Reading::OneByOne)),
                         [](const auto& way) {
                             return std::string(std::get<0>(way.param)).substr(2) +
                                    (std::get<1>(way.param) == Reading::InBulk ? "_in_bulk"
                                                                               : "_one_by_one");
                         });

// A change that FEMAP refuses, and what is said of it.
struct Refusal
{
    const char* name;
    const char* member;
    const char* how;
    void (*change)(ModelChanges&);
    const char* said;
};

void putThickness(ModelChanges& changes)
{
    changes.put({{{"Prop", 2, {"pval", 0}, 5.5}}, {}, {}});
}
void putModulus(ModelChanges& changes)
{
    changes.put({{{"Matl", 1, {"Ex"}, 7e10}}, {}, {}});
}
void putForce(ModelChanges& changes)
{
    changes.put({{}, {{1, 1, 0, {"load", 2}, -510.5}}, {}});
}
void putPoints(ModelChanges& changes)
{
    changes.put({{}, {}, {{1, {{0, 1}, {2, 3}}}}});
}
void writeNowhere(ModelChanges& changes)
{
    changes.feFileWriteNastran(SolverBrand::NxNastran, "panel.dat");
}
void readResults(ModelChanges& changes)
{
    changes.feFileReadNastranResults(SolverBrand::NeNastran, "panel.op2");
}
void deleteFirst(ModelChanges& changes)
{
    changes.deleteOutputSets({1});
}
void activateSecond(ModelChanges& changes)
{
    changes.activateOutputSet(2);
}

// clang-format off
const Refusal refusals[] = {
    {"Load",             "feProp.Get",  "fails",   putThickness,
     "Loading Prop 2: FEMAP refuses it (FEMAP's code 0)"},
    {"Value",            "feProp.pval", "refused", putThickness,
     "Putting pval(0) of Prop 2: FEMAP's feProp.pval failed: was told to raise here"},
    {"UnknownMember",    "feMatl.Ex",   "missing", putModulus,
     "Putting Ex of Matl 1: FEMAP's feMatl has no member Ex"},
    {"Store",            "feMatl.Put",  "fails",   putModulus,
     "Storing Matl 1: FEMAP refuses it (FEMAP's code 0)"},
    {"RaisingStore",     "feMatl.Put",  "raises",  putModulus,
     "Storing Matl 1: FEMAP's feMatl.Put failed: was told to raise here"},
    {"Definition",       "feLoadDefinition.Get",      "fails",   putForce,
     "Loading load definition 1: FEMAP refuses it (FEMAP's code 0)"},
    {"NoLoads",          "feLoadDefinition.NextLoad", "fails",   putForce,
     "load 1 of load definition 1 is not there"},
    {"Force",            "load.load",   "refused", putForce,
     "Putting load(2) of load 1 of load definition 1: FEMAP's mesh load.load failed: was told to "
     "raise here"},
    {"StoreOfALoad",     "load.Put",    "fails",   putForce,
     "Storing load 1 of load definition 1: FEMAP refuses it (FEMAP's code 0)"},
    {"LoadOfAFunction",  "feFunction.Get",             "fails", putPoints,
     "Loading function 1: FEMAP refuses it (FEMAP's code 0)"},
    {"Points",           "feFunction.PutFunctionList", "fails", putPoints,
     "Putting the points of function 1: FEMAP refuses it (FEMAP's code 0)"},
    {"StoreOfAFunction", "feFunction.Put",             "fails", putPoints,
     "Storing function 1: FEMAP refuses it (FEMAP's code 0)"},
    {"Deck",             "application.feFileWriteNastran",       "fails",  writeNowhere,
     "Writing the deck panel.dat: FEMAP refuses it (FEMAP's code 0)"},
    {"RaisingDeck",      "application.feFileWriteNastran",       "raises", writeNowhere,
     "Writing the deck panel.dat: FEMAP's application.feFileWriteNastran failed: was told to raise "
     "here"},
    {"Results",          "application.feFileReadNastranResults", "fails",  readResults,
     "Reading the results panel.op2: FEMAP refuses it (FEMAP's code 0)"},
    {"Deletion",         "application.feDelete", "fails",   deleteFirst,
     "Deleting output sets: FEMAP refuses it (FEMAP's code 0)"},
    {"SetToDelete",      "set.AddArray",         "fails",   deleteFirst,
     "Deleting output sets: A set cannot be filled (FEMAP's code 0)"},
    {"Activation",       "application.Info_ActiveID", "refused", activateSecond,
     "Making output set 2 active: FEMAP's application.Info_ActiveID failed: was told to raise "
     "here"},
    {"SilentActivation", "application.Info_ActiveID", "ignored", activateSecond,
     "Making output set 2 active: output set 1 stays active"},
    {"Switches",         "application.DialogAutoSkip", "refused",
     [](ModelChanges& changes) { changes.setDialogSwitches({1, 1}); },
     "FEMAP's application.DialogAutoSkip failed: was told to raise here"},
};
// clang-format on

std::ostream& operator<<(std::ostream& out, const Refusal& refusal)
{
    return out << refusal.name;
}

struct ChangedPanel : testing::Test
{
    void fault(const std::string& member, const char* how)
    {
        EXPECT_EQ(standin.control().call("standinFault", member, how).number(), -1) << how;
    }

    femap::com::Apartment apartment;
    StartedStandin standin{"--modern --model \"" + panelModel() + '"'};
    std::unique_ptr<femap::Application> com = attachedFor(Reading::InBulk);
    std::unique_ptr<ModelChanges> changes = com->changes();
};

// A member that puts much at once, or prepares that.
struct BulkStep
{
    const char* generation;
    const char* member;
};

struct FaultyBulk : testing::TestWithParam<BulkStep>
{};

INSTANTIATE_TEST_SUITE_P(OfEachMember, FaultyBulk,
                         testing::Values(BulkStep{"--classic", "feNode.PutCoordArray"},
                                         BulkStep{"--classic", "feNode.GetCoordArray"},
                                         BulkStep{"--modern", "feNode.PutCoordArray"},
                                         BulkStep{"--modern", "feProp.PutValueArray"},
                                         BulkStep{"--modern", "feMatl.PutValueArray"},
                                         BulkStep{"--modern", "feMatl.vmval"}),
                         [](const auto& step) {
                             std::string name = std::string(step.param.generation).substr(2) + '_' +
                                                step.param.member;
                             std::ranges::replace(name, '.', '_');
                             return name;
                         });

struct DyingAtAChange : testing::TestWithParam<const char*>
{};

INSTANTIATE_TEST_SUITE_P(OfEachMember, DyingAtAChange,
                         testing::Values("feNode.PutCoordArray", "feProp.PutValueArray",
                                         "feElem.orient", "feElem.Put", "load.load", "load.Put",
                                         "feFunction.PutFunctionList", "feFunction.Put"),
                         [](const auto& member) {
                             std::string name = member.param;
                             std::ranges::replace(name, '.', '_');
                             return name;
                         });

// Everything that can be put, at once.
ModelValues allOf(femap::Application& femap)
{
    return {newValues(), newLoads(femap, 1), newPoints(femap)};
}

}  // namespace

TEST_P(ChangedBothWays, AreTheModelTheFilesAndTheRefusalsOfTheModelHost)
{
    const SolverFolder folder;
    const auto deck = [&] { return sys::DiskFiles().read(folder.path("panel.dat")); };
    standin::QueuedSelections picks;
    femap::embedded::Host host(picks);
    host.openNeutralFile(panelModel());

    const std::string text = ofChanges(*com, folder);
    const std::string written = deck();

    EXPECT_EQ(text, ofChanges(*host.attach(), folder));
    EXPECT_EQ(written, deck());
    EXPECT_THAT(text, HasSubstr("\npval(7) of Prop 1 = 2.5\n"));
    EXPECT_THAT(text, HasSubstr("\nProp 1 is refused: Putting pval(500) of Prop 1\n"));
}

TEST_P(ChangedBothWays, AreSavedWithTheModel)
{
    EXPECT_FALSE(com->feFileIsModified());

    com->changes()->put(allOf(*com));

    EXPECT_TRUE(com->feFileIsModified());
}

TEST_F(ChangedPanel, SaysWhatFemapRefuses)
{
    for (const Refusal& refusal : refusals) {
        fault(refusal.member, refusal.how);
        const auto fresh = attachedFor(Reading::InBulk);  // over a connection that knows no names
        try {
            refusal.change(*fresh->changes());
            ADD_FAILURE() << refusal << " did not raise";
        }
        catch (const sys::RuntimeError& error) {
            EXPECT_EQ(error.description(), refusal.said) << refusal;
        }
        fault(refusal.member, "none");
    }
    EXPECT_FALSE(com->feFileIsModified());
}

TEST_F(ChangedPanel, KeepsWhatWasStoredBeforeARefusal)
{
    const ModelValues all = allOf(*com);
    fault("load.Put", "fails");

    EXPECT_THROW(changes->put(all), sys::RuntimeError);

    EXPECT_EQ(linesOf(presentValues(*com, {all.entities, {}, {}})),
              linesOf(presentValues(*com, {newValues(), {}, {}})));
    const auto element = com->entity("Elem");
    element->Get(1);
    EXPECT_EQ(element->member("orient", 0), femap::Value(30.5));
    EXPECT_NE(linesOf(presentValues(*com, {{}, all.loads, {}})), linesOf({{}, all.loads, {}}));
}

TEST_P(FaultyBulk, IsDonePlainlyForTheRestOfTheConnection)
{
    const femap::com::Apartment apartment;
    const BulkStep& step = GetParam();
    StartedStandin standin(std::string(step.generation) + " --model \"" + panelModel() + '"');
    const auto com = attachedFor(Reading::InBulk);
    const ModelValues values = {newValues(), {}, {}};
    const ModelValues before = presentValues(*com, values);
    com->changes()->put(values);
    const std::vector<std::string> sound = linesOf(presentValues(*com, values));
    EXPECT_NE(sound, linesOf(before));
    for (const char* const how : {"missing", "fails", "raises", "ignored", "short", "wrong"}) {
        com->changes()->put(before);
        standin.control().call("standinFault", step.member, how);
        const auto fresh = attachedFor(Reading::InBulk);

        fresh->changes()->put(values);
        EXPECT_EQ(linesOf(presentValues(*com, values)), sound) << how;
        fresh->changes()->put(before);

        EXPECT_EQ(linesOf(presentValues(*com, values)), linesOf(before)) << how;
        standin.control().call("standinFault", step.member, "none");
    }
}

TEST_P(DyingAtAChange, IsNoticedThere)
{
    const femap::com::Apartment apartment;
    StartedStandin standin("--modern --model \"" + panelModel() + '"');
    const auto com = attachedFor(Reading::InBulk);
    const ModelValues all = allOf(*com);
    standin.control().call("standinFault", GetParam(), "dies");

    EXPECT_THROW(com->changes()->put(all), femap::ConnectionLost);

    EXPECT_TRUE(standin.ends());
    EXPECT_THROW(com->changes()->put(all), femap::ConnectionLost);
}

TEST_F(ChangedPanel, TakesItsTimeAndIsDoneNevertheless)
{
    standin.control().call("standinStallAt", 0, 1);
    fault("feProp.Put", "stalls");
    const DWORD begin = GetTickCount();

    putThickness(*changes);

    EXPECT_GE(GetTickCount() - begin, 950U);
    const auto property = com->entity("Prop");
    property->Get(2);
    EXPECT_EQ(property->member("pval", 0), femap::Value(5.5));
}

TEST_F(ChangedPanel, EndsAChangeThatNobodyWaitsForAnyMore)
{
    const auto policy = std::make_shared<RetryPolicy>();
    femap::com::BusyFilter filter{*policy};
    const auto impatient = ComConnector(nullptr, policy).attach();
    impatient->ModelName();
    standin.control().call("standinStallAt", 0, 2);
    fault("feProp.Put", "stalls");
    policy->isToEnd = [] { return true; };

    EXPECT_THROW(putThickness(*impatient->changes()), femap::WaitEnded);
}

}  // namespace comtest
