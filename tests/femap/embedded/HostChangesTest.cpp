// The host as the loop changes it: values by the place where they live, decks and results.
#include "fake/TemporaryFolder.h"
#include "femap/embedded/MemberFixture.h"
#include "femap/embedded/PutLoadFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

using femap::DialogSwitches;
using femap::EntityType;
using femap::EntityValue;
using femap::LoadValue;
using femap::ModelChanges;
using femap::SolverBrand;
using femap::Value;
using testing::ElementsAre;

namespace
{

struct ChangedEntities : MemberFixture
{
    void put(std::vector<EntityValue> values) { changes->put({std::move(values), {}, {}}); }
    std::string complaint(const EntityValue& value)
    {
        return complaintOf([&] { put({value}); });
    }

    std::unique_ptr<ModelChanges> changes = application->changes();
};

struct ChangedLoads : PutLoadFixture
{
    void put(std::vector<LoadValue> values) { changes->put({{}, std::move(values), {}}); }
    std::string complaint(const LoadValue& value)
    {
        return complaintOf([&] { put({value}); });
    }

    std::unique_ptr<ModelChanges> changes = application->changes();
};

struct Exchanged : HostFixture
{
    Exchanged()
    {
        model().outputSets.put({.id = 4, .title = "Old"});
        std::ofstream(folder.path("run.op2")) << "x";
        std::ofstream(folder.path("run.results.neu"))
            << "   -1\n   100\n<NULL>\n8.2,\n   -1\n   -1\n   450\n"
               "1,\nLimit\n0,1,\n0.,\n1,\nnotes\n2,\nUltimate\n0,1,\n1.5,\n1,\nnotes\n   -1\n";
    }

    fake::TemporaryFolder folder;
    std::unique_ptr<ModelChanges> changes = application->changes();
};

constexpr SolverBrand solver = SolverBrand::NxNastran;

}  // namespace

TEST(HostChanges, PutMembersOfEveryKindOfEntity)
{
    ChangedEntities f;

    f.put({{"Node", 7, {"x"}, -0.125},
           {"Node", 7, {"permBC", 3}, true},
           {"Elem", 9, {"orient", 2}, 0.5},
           {"Elem", 8, {"propID"}, whole(5)},
           {"Prop", 12, {"pval", 9}, std::string("1.5")},
           {"Matl", 3, {"Ex"}, 7e10},
           {"Matl", 3, {"mval", 1}, 6e10}});

    EXPECT_EQ(f.model().nodes.find(7)->x, -0.125);
    EXPECT_EQ(f.model().nodes.find(7)->y, 2.5);
    EXPECT_TRUE(f.model().nodes.find(7)->permBC[3]);
    EXPECT_EQ(f.model().elements.find(9)->orient[2], 0.5);
    EXPECT_EQ(f.model().elements.find(8)->propID, 5);
    EXPECT_EQ(f.model().properties.find(12)->pval[9], 1.5);
    EXPECT_EQ(f.model().properties.find(12)->pval[1], 0.5);
    EXPECT_EQ(f.loaded("Matl", 3)->member("Ex"), Value(7e10));
    EXPECT_EQ(f.loaded("Matl", 3)->member("Ey"), Value(6e10));
    EXPECT_TRUE(f.host.isModified);
}

TEST(HostChanges, SayWhichValueIsRefusedAndKeepWhatWasStoredBefore)
{
    ChangedEntities f;

    EXPECT_EQ(f.complaint({"Node", 70, {"x"}, 1.0}),
              "Loading Node 70: FEMAP refuses it (FEMAP's code 0)");
    EXPECT_EQ(f.complaint({"Elem", 8, {"propID"}, 1.5}),
              "Putting propID of Elem 8: \"1.5\" is no whole number");
    EXPECT_EQ(f.complaint({"Prop", 12, {"pval", 500}, 1.0}),
              "Putting pval(500) of Prop 12: pval of feProp has no place 500");
    EXPECT_EQ(f.complaint({"Spring", 3, {"ID"}, 1.0}), "FEMAP has no object feSpring");
    EXPECT_FALSE(f.host.isModified);
    EXPECT_EQ(complaintOf([&] {
                  f.put({{"Node", 7, {"x"}, 8.0},
                         {"Prop", 12, {"pval", 0}, 9.0},
                         {"Prop", 12, {"w"}, 10.0},
                         {"Prop", 12, {"pval", 1}, 11.0}});
              }),
              "Putting w of Prop 12: feProp has no member w");

    EXPECT_EQ(f.model().nodes.find(7)->x, 8);
    EXPECT_THAT(f.model().properties.find(12)->pval, ElementsAre(0.125, 0.5));
}

TEST(HostChanges, PutNumbersOfLoadsOfEveryKind)
{
    ChangedLoads f;
    f.set().meshLoads.push_back({.id = 2, .entityID = 12, .type = 1, .definitionID = 1});
    f.set().meshLoads.push_back({.id = 3, .entityID = 13, .type = 1, .definitionID = 1});

    f.put({{2, 1, 0, {"load", 1}, 8.5},
           {2, 1, 0, {"phase"}, 45.0},
           {2, 1, 2, {"load", 0}, std::string("7")},
           {2, 2, 0, {"load", 0}, 13.5},
           {2, 5, 0, {"temp"}, 75.0},
           {2, 4, 0, {"temp"}, whole(-4)},
           {2, 4, 0, {"gradient"}, 0.5}});

    EXPECT_THAT(f.set().meshLoads[0].load, ElementsAre(5, 8.5, 0, 0, 0));
    EXPECT_EQ(f.set().meshLoads[0].phase, 45);
    EXPECT_THAT(f.set().meshLoads[1].load, ElementsAre(0, 0, 0, 0, 0));
    EXPECT_THAT(f.set().meshLoads[2].load, ElementsAre(7, 0, 0, 0, 0));
    EXPECT_EQ(f.set().geometryLoads[0].load[0], 13.5);
    EXPECT_EQ(f.set().nodalTemperatures[0].temp, 20.5);
    EXPECT_EQ(f.set().nodalTemperatures[1].temp, 75);
    EXPECT_EQ(f.set().elementTemperatures[0].temp, -4);
    EXPECT_EQ(f.set().elementTemperatures[0].gradient, 0.5);
}

TEST(HostChanges, SayWhichLoadIsRefused)
{
    ChangedLoads f;

    EXPECT_EQ(f.complaint({3, 1, 0, {"load", 0}, 1.0}),
              "Loading load definition 1: FEMAP refuses it (FEMAP's code 0)");
    EXPECT_EQ(f.complaint({2, 9, 0, {"load", 0}, 1.0}),
              "Loading load definition 9: FEMAP refuses it (FEMAP's code 0)");
    EXPECT_EQ(f.complaint({2, 1, 1, {"load", 0}, 1.0}), "load 2 of load definition 1 is not there");
    EXPECT_EQ(f.complaint({2, 1, 0, {"load", 7}, 1.0}),
              "Putting load(7) of load 1 of load definition 1: load of feLoadMesh has no place 7");
    EXPECT_EQ(f.complaint({2, 1, 0, {"setID"}, whole(77)}),
              "Storing load 1 of load definition 1: FEMAP refuses it (FEMAP's code 0)");

    EXPECT_FALSE(f.host.isModified);
}

TEST(HostChanges, PutThePointsOfFunctions)
{
    ChangedLoads f;
    f.model().functions.put({.id = 3, .title = "Time", .x = {0, 1}, .y = {5, 6}});
    const auto complaint = [&](const femap::FunctionValue& value) {
        return complaintOf([&] { f.changes->put({{}, {}, {value}}); });
    };

    EXPECT_EQ(complaint({3, {{0, 1, 2}, {7, 8, 9}}}), "");
    EXPECT_EQ(complaint({3, {{1}, {}}}),
              "Putting the points of function 3: FEMAP refuses it (FEMAP's code 0)");
    EXPECT_EQ(complaint({4, {{1}, {2}}}), "Loading function 4: FEMAP refuses it (FEMAP's code 0)");

    EXPECT_THAT(f.model().functions.find(3)->x, ElementsAre(0, 1, 2));
    EXPECT_THAT(f.model().functions.find(3)->y, ElementsAre(7, 8, 9));
    EXPECT_EQ(f.model().functions.find(3)->title, "Time");
}

TEST(HostChanges, KeepTheSwitchesOfDialogs)
{
    HostFixture f;
    const std::unique_ptr<ModelChanges> changes = f.application->changes();

    EXPECT_EQ(changes->dialogSwitches(), DialogSwitches());
    changes->setDialogSwitches({1, 2});

    EXPECT_EQ(changes->dialogSwitches(), (DialogSwitches{1, 2}));
}

TEST(HostChanges, WriteDecksAndNameTheOneThatCannotBeWritten)
{
    Exchanged f;

    f.changes->feFileWriteNastran(solver, f.folder.path("model.dat"));

    EXPECT_TRUE(f.folder.listing().contains("model.dat"));
    const std::string beyond = f.folder.path("none") + "/model.dat";
    EXPECT_EQ(complaintOf([&] { f.changes->feFileWriteNastran(solver, beyond); }),
              "Writing the deck " + beyond + ": FEMAP refuses it (FEMAP's code 17)");
}

TEST(HostChanges, ReadResultsActivateAndDeleteThem)
{
    Exchanged f;
    const auto sets = [&] { return f.host.idsOf(EntityType::OutputSet); };
    const auto active = [&] { return f.application->Info_ActiveID(EntityType::OutputSet); };

    f.changes->feFileReadNastranResults(solver, f.folder.path("run.op2"));
    EXPECT_THAT(sets(), ElementsAre(4, 5, 6));
    f.changes->activateOutputSet(6);
    EXPECT_EQ(active(), 6);
    f.changes->activateOutputSet(5);
    EXPECT_EQ(active(), 5);
    f.changes->deleteOutputSets({});
    EXPECT_THAT(sets(), ElementsAre(4, 5, 6));
    f.changes->deleteOutputSets({5, 6});

    EXPECT_THAT(sets(), ElementsAre(4));
}

TEST(HostChanges, NameTheResultsAndSetsThatAreNotThere)
{
    Exchanged f;
    const std::string none = f.folder.path("none.op2");

    EXPECT_EQ(complaintOf([&] { f.changes->feFileReadNastranResults(solver, none); }),
              "Reading the results " + none + ": FEMAP refuses it (FEMAP's code 15)");
    EXPECT_EQ(complaintOf([&] { f.changes->deleteOutputSets({9}); }),
              "Deleting output sets: FEMAP refuses it (FEMAP's code 4)");
    EXPECT_EQ(complaintOf([&] { f.changes->activateOutputSet(9); }),
              "Making output set 9 active: FEMAP refuses it (FEMAP's code 0)");
}
