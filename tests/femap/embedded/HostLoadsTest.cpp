#include "femap/embedded/MemberFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using femap::ReturnCode;
using femap::Value;
using sys::ErrorNumber;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

struct LoadFixture : HostFixture
{
    LoadFixture()
    {
        femap::neutral::LoadSet set;
        set.id = 2;
        set.meshLoads = {{.id = 1, .entityID = 11, .type = 1, .definitionID = 1},
                         {.id = 2, .entityID = 12, .type = 42, .definitionID = 2},
                         {.id = 3,
                          .entityID = 13,
                          .type = 1,
                          .subtype = 4,
                          .layer = 6,
                          .color = 7,
                          .expanded = true,
                          .faceNumber = 5,
                          .definitionID = 1,
                          .load = {0.5, 1.5, 2.5, 3.5, 4.5}}};
        set.geometryLoads = {
            {.id = 1,
             .entityID = 21,
             .type = 161,
             .subtype = 3,
             .faceNumber = 2,
             .definitionID = 3,
             .load = {9}},
            {.id = 2, .entityID = 22, .type = 121, .definitionID = 3},
            {.id = 3, .entityID = 23, .type = 81, .definitionID = 3},
            {.id = 4, .entityID = 24, .type = 1, .definitionID = 3},
            {.id = 5, .entityID = 25, .type = 182, .definitionID = 7, .load = {0.5, 0.25, 300, 1}}};
        set.nodalTemperatures = {{.entityID = 31,
                                  .layer = 6,
                                  .color = 7,
                                  .expanded = true,
                                  .temp = 20.5,
                                  .phase = 45,
                                  .definitionID = 4},
                                 {.entityID = 32, .definitionID = 9}};
        set.elementTemperatures = {{.entityID = 41, .temp = -3, .definitionID = 5}};
        set.definitions = {{.id = 1, .title = "Force\ton Node", .dataType = 13, .loadType = 1},
                           {.id = 2, .title = "Pressure", .dataType = 13, .loadType = 42},
                           {.id = 3, .title = "Geometry", .dataType = 14, .loadType = 161},
                           {.id = 4, .title = "Nodal", .dataType = 15, .loadType = 9},
                           {.id = 5, .title = "Elemental", .dataType = 16, .loadType = 43},
                           {.id = 6, .title = "Constraint", .dataType = 18, .loadType = 0},
                           {.id = 7, .title = "Radiation", .dataType = 14, .loadType = 182}};
        model().loadSets.put(std::move(set));
    }

    /// The named member of each load of a definition.
    std::vector<Value> membersOf(int id, const std::string& name)
    {
        definition->Get(2, id);
        std::vector<Value> result;
        while (const auto load = definition->NextLoad())
            result.push_back(load->member(name));
        return result;
    }

    std::unique_ptr<femap::LoadDefinition> definition = application->feLoadDefinition();
};

}  // namespace

TEST(HostLoadDefinition, HasDefaultDataBeforeAnythingIsLoaded)
{
    LoadFixture f;

    EXPECT_EQ(f.definition->ID(), 0);
    EXPECT_EQ(f.definition->setID(), 0);
    EXPECT_EQ(f.definition->title(), "");
    EXPECT_EQ(f.definition->NextLoad(), nullptr);
}

TEST(HostLoadDefinition, LoadsADefinitionOfALoadSet)
{
    LoadFixture f;

    EXPECT_EQ(f.definition->Get(2, 1), ReturnCode::Ok);
    EXPECT_EQ(f.definition->ID(), 1);
    EXPECT_EQ(f.definition->setID(), 2);
    EXPECT_EQ(f.definition->title(), "Force on Node");
    EXPECT_EQ(f.definition->loadType(), 1);
    EXPECT_EQ(f.definition->dataType(), 13);
}

TEST(HostLoadDefinition, AMissingDefinitionOrLoadSetLeavesTheOneBefore)
{
    LoadFixture f;
    f.definition->Get(2, 1);

    EXPECT_EQ(f.definition->Get(2, 77), ReturnCode::Fail);
    EXPECT_EQ(f.definition->Get(1, 1), ReturnCode::Fail);
    EXPECT_EQ(f.definition->ID(), 1);
}

TEST(HostLoadDefinition, WalksJustItsOwnLoadsInTheirOrder)
{
    LoadFixture f;

    EXPECT_THAT(f.membersOf(1, "meshID"), ElementsAre(whole(11), whole(13)));
    EXPECT_THAT(f.membersOf(2, "meshID"), ElementsAre(whole(12)));
    EXPECT_THAT(f.membersOf(4, "ID"), ElementsAre(whole(31)));
    EXPECT_THAT(f.membersOf(5, "ID"), ElementsAre(whole(41)));
    EXPECT_THAT(f.membersOf(6, "ID"), IsEmpty());
}

TEST(HostLoadDefinition, StartsTheWalkAgainWhenItIsReset)
{
    LoadFixture f;
    f.definition->Get(2, 2);
    f.definition->NextLoad();
    EXPECT_EQ(f.definition->NextLoad(), nullptr);
    EXPECT_EQ(f.definition->NextLoad(), nullptr);

    f.definition->ResetNextLoad();

    EXPECT_NE(f.definition->NextLoad(), nullptr);
}

TEST(HostLoadDefinition, AWalkEndsWhenTheModelIsReplaced)
{
    LoadFixture f;
    f.definition->Get(2, 1);
    const auto load = f.definition->NextLoad();

    f.host.model.emplace();

    EXPECT_EQ(f.definition->NextLoad(), nullptr);
    EXPECT_EQ(load->member("meshID"), whole(11));
}

TEST(HostLoad, OnTheMeshServesItsMembers)
{
    LoadFixture f;
    f.definition->Get(2, 1);
    f.definition->NextLoad();
    const auto load = f.definition->NextLoad();

    EXPECT_EQ(load->member("ID"), whole(3));
    EXPECT_EQ(load->member("SetID"), whole(2));
    EXPECT_EQ(load->member("meshID"), whole(13));
    EXPECT_EQ(load->member("LoadDefinitionID"), whole(1));
    EXPECT_EQ(load->member("type"), whole(1));
    EXPECT_EQ(load->member("subtype"), whole(4));
    EXPECT_EQ(load->member("FaceNumber"), whole(5));
    EXPECT_EQ(load->member("layer"), whole(6));
    EXPECT_EQ(load->member("color"), whole(7));
    EXPECT_EQ(load->member("expanded"), Value(true));
    EXPECT_EQ(load->member("load", 0), Value(0.5));
    EXPECT_EQ(load->member("load", 4), Value(4.5));
}

TEST(HostLoad, OnGeometryServesItsMembers)
{
    LoadFixture f;
    f.definition->Get(2, 3);
    const auto load = f.definition->NextLoad();

    EXPECT_EQ(load->member("ID"), whole(1));
    EXPECT_EQ(load->member("setID"), whole(2));
    EXPECT_EQ(load->member("geomID"), whole(21));
    EXPECT_EQ(load->member("LoadDefinitionID"), whole(3));
    EXPECT_EQ(load->member("type"), whole(161));
    EXPECT_EQ(load->member("subtype"), whole(3));
    EXPECT_EQ(load->member("FaceNumber"), whole(2));
    EXPECT_EQ(load->member("load", 0), Value(9.0));
}

TEST(HostLoad, TheLoadTypeTellsTheKindOfGeometry)
{
    LoadFixture f;

    EXPECT_THAT(f.membersOf(3, "geomTYPE"), ElementsAre(whole(5), whole(4), whole(3), whole(0)));
}

TEST(HostLoad, ATemperatureServesItsMembers)
{
    LoadFixture f;
    f.definition->Get(2, 4);
    const auto load = f.definition->NextLoad();

    EXPECT_EQ(load->member("ID"), whole(31));
    EXPECT_EQ(load->member("setID"), whole(2));
    EXPECT_EQ(load->member("LoadDefinitionID"), whole(4));
    EXPECT_EQ(load->member("temp"), Value(20.5));
    EXPECT_EQ(load->member("phase"), Value(45.0));
    EXPECT_EQ(load->member("layer"), whole(6));
    EXPECT_EQ(load->member("color"), whole(7));
    EXPECT_EQ(load->member("expanded"), Value(true));
}

TEST(HostLoad, HasTheTemperatureThatIsAmongItsValues)
{
    LoadFixture f;

    EXPECT_THAT(f.membersOf(7, "temp"), ElementsAre(Value(300.0)));
    EXPECT_THAT(f.membersOf(1, "temp"), ElementsAre(Value(0.0), Value(0.0)));
    EXPECT_THAT(f.membersOf(7, "phase"), ElementsAre(Value(0.0)));
    EXPECT_THAT(f.membersOf(1, "phase"), ElementsAre(Value(0.0), Value(0.0)));
}

TEST(HostLoad, OnlyATemperatureOfAnElementHasAGradient)
{
    LoadFixture f;

    EXPECT_THAT(f.membersOf(5, "gradient"), ElementsAre(Value(0.0)));
    EXPECT_EQ(complaintOf([&] { f.membersOf(4, "gradient"); }),
              "feLoadNTemp has no member gradient");
}

TEST(HostLoad, RefusesMembersOfOtherKindsOfLoads)
{
    LoadFixture f;
    f.definition->Get(2, 1);
    const auto mesh = f.definition->NextLoad();
    f.definition->Get(2, 4);
    const auto temperature = f.definition->NextLoad();

    const auto error = errorOf([&] { mesh->member("geomID"); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), ErrorNumber::NoSuchMember);
    EXPECT_EQ(error->description(), "feLoadMesh has no member geomID");
    EXPECT_EQ(complaintOf([&] { temperature->member("load", 0); }),
              "feLoadNTemp has no member load");
    EXPECT_EQ(complaintOf([&] { mesh->member("load", 5); }), "load of feLoadMesh has no place 5");
    EXPECT_EQ(complaintOf([&] { mesh->member("load"); }), "load of feLoadMesh needs an index");
}
