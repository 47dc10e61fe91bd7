#include "selection/LoadDefinitionFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace selection
{

using femap::LoadDataType;
using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

TEST_F(LoadDefinitionInputs, AForceOnTheMeshGivesARowForEachComponent)
{
    define(12, "Edge Load [A]", LoadDataType::Mesh, 1);
    loads().meshLoads.push_back(
        {.id = 1, .entityID = 7, .type = 1, .definitionID = 12, .load = {0.5, -0.5, 0, 99}});

    pick({12});

    EXPECT_THAT(rows(), ElementsAre("EdgeLoadA_12_Fx\t .5\tLoadMesh\t 12\t0\t0",
                                    "EdgeLoadA_12_Fy\t-.5\tLoadMesh\t 12\t0\t0",
                                    "EdgeLoadA_12_Fz\t 0\tLoadMesh\t 12\t0\t0"));
    EXPECT_THAT(f.messages(), IsEmpty());
}

TEST_F(LoadDefinitionInputs, AForceOnGeometryGivesARowForEachComponent)
{
    define(4, "Hook", LoadDataType::Geometry, 81);
    loads().geometryLoads.push_back(
        {.id = 1, .entityID = 3, .type = 81, .definitionID = 4, .load = {1, 2, 3}});

    pick({4});

    EXPECT_THAT(rows(), ElementsAre("Hook_4_Fx\t 1\tLoadGeom\t 4\t0\t0",
                                    "Hook_4_Fy\t 2\tLoadGeom\t 4\t0\t0",
                                    "Hook_4_Fz\t 3\tLoadGeom\t 4\t0\t0"));
}

TEST_F(LoadDefinitionInputs, ElementTemperaturesGiveARowEach)
{
    define(5, "Hot", LoadDataType::ElementalTemperature, 43);
    loads().elementTemperatures.push_back({.entityID = 10, .temp = 20.25, .definitionID = 5});
    loads().elementTemperatures.push_back({.entityID = 11, .temp = -30, .definitionID = 5});

    pick({5});

    EXPECT_THAT(rows(), ElementsAre("Hot_5_Temperature\t 20.25\tLoadETemp\t 5\t0\t0",
                                    "Hot_5_Temperature\t-30\tLoadETemp\t 5\t0\t0"));
}

TEST_F(LoadDefinitionInputs, ShowTheirProgressWhenTheyTakeLong)
{
    define(5, "Hot", LoadDataType::ElementalTemperature, 43);
    for (int id = 1; id <= 600; ++id)
        loads().elementTemperatures.push_back({.entityID = id, .temp = 20, .definitionID = 5});
    f.system.monotonicSeconds = [this] { return f.seconds += 2; };

    pick({5});

    EXPECT_EQ(rows().size(), 600U);
    EXPECT_EQ(f.host.progressShown, 2);
    EXPECT_EQ(f.form.StatusLine.Caption, "");
}

TEST_F(LoadDefinitionInputs, NodalTemperaturesGiveARowEach)
{
    define(6, "Cold", LoadDataType::NodalTemperature, 9);
    loads().nodalTemperatures.push_back({.entityID = 1, .temp = 1e-5, .definitionID = 6});

    pick({6});

    EXPECT_THAT(rows(), ElementsAre("Cold_6_Temperature\t 1E-05\tLoadNTemp\t 6\t0\t0"));
}

TEST_F(LoadDefinitionInputs, PressureGivesOneRowForEachLoadUnderTheSameName)
{
    define(2, "Wind", LoadDataType::Mesh, 42);
    loads().meshLoads.push_back({.id = 1, .definitionID = 2, .load = {1.5}});
    loads().meshLoads.push_back({.id = 2, .definitionID = 2, .load = {2.5}});

    pick({2});

    EXPECT_THAT(rows(), ElementsAre("Wind_2_Pressure\t 1.5\tLoadMesh\t 2\t0\t0",
                                    "Wind_2_Pressure\t 2.5\tLoadMesh\t 2\t0\t0"));
}

TEST_F(LoadDefinitionInputs, RadiationGivesFourRowsForEachLoad)
{
    define(9, "Sun", LoadDataType::Mesh, 46);
    loads().meshLoads.push_back({.id = 1, .definitionID = 9, .load = {.1, .2, 300, .4, 5}});

    pick({9});

    EXPECT_THAT(rows(), ElementsAre("Sun_9_Emissivity\t .1\tLoadMesh\t 9\t0\t0",
                                    "Sun_9_Absorptivity\t .2\tLoadMesh\t 9\t0\t0",
                                    "Sun_9_Temperature\t 300\tLoadMesh\t 9\t0\t0",
                                    "Sun_9_ViewFactor\t .4\tLoadMesh\t 9\t0\t0"));
}

TEST_F(LoadDefinitionInputs, EachUnwantedCharacterLeavesTheName)
{
    define(1, " [a]./b-c_d] [", LoadDataType::Mesh, 42);
    define(2, "", LoadDataType::Mesh, 42);
    for (const int definition : {1, 2})
        loads().meshLoads.push_back({.id = definition, .definitionID = definition});

    pick({1, 2});

    EXPECT_THAT(f.names(f.form.InputsList), ElementsAre("ab-c_d_1_Pressure", "_2_Pressure"));
}

TEST_F(LoadDefinitionInputs, FemapAsksForTheDefinitionsOfTheActiveLoadSet)
{
    define(1, "Inactive", LoadDataType::Mesh, 42);
    femap::neutral::LoadSet& active = addLoadSet(4);
    active.definitions.push_back({8, "Active", 13, 42});
    active.meshLoads.push_back({.id = 1, .definitionID = 8});
    f.model().activeLoadSet = 4;

    pick({8});

    ASSERT_EQ(f.dialogs.asked.size(), 1U);
    EXPECT_EQ(f.dialogs.asked[0].type, femap::EntityType::LoadDefinition);
    EXPECT_EQ(f.dialogs.asked[0].title, "Select Load Definition ");
    EXPECT_FALSE(f.dialogs.asked[0].onlyOne);
    EXPECT_THAT(f.dialogs.asked[0].available, ElementsAre(8));
    EXPECT_THAT(f.names(f.form.InputsList), ElementsAre("Active_8_Pressure"));
    EXPECT_EQ(f.form.returnCode, -1);
}

TEST_F(LoadDefinitionInputs, EachStepForAMeshLoadIsLogged)
{
    define(12, "Edge [A]", LoadDataType::Mesh, 45);
    loads().meshLoads.push_back({.id = 3,
                                 .entityID = 70,
                                 .type = 45,
                                 .subtype = 2,
                                 .faceNumber = 4,
                                 .definitionID = 12,
                                 .load = {0.5, -20, 0, 1.25}});

    pick({12});

    EXPECT_THAT(
        f.log(),
        ElementsAre(
            "DEBUG: Before fetching load definition data",
            "DEBUG: Acquired femap lock before getting load definition data",
            "DEBUG: intialize feLoadDefinition", "DEBUG: intialize loadDefSet",
            "DEBUG: Before getting active loadset ID",
            "DEBUG: After getting active loadset ID. Active loadset id=1",
            "DEBUG: 1 Load definitions selected",
            "DEBUG: Load Defination: Title = Edge [A] SetId = 1 ID = 12 Load Type = 45 "
            "Data Type = 13",
            "DEBUG: At start of initialisePrefix", "DEBUG: Found convection",
            "DEBUG: Selected Load Type=45 firstPrefix=Coefficient secondPrefix=Temperature "
            "thirdPrefix= fourthPrefix=",
            "DEBUG: At end of initialisePrefix", "DEBUG: Start iterating over loadDef.NextLoad",
            "DEBUG: Found Surface load", "DEBUG: loadMesh_ID 3", "DEBUG: SetID = 1",
            "DEBUG: MeshID = 70", "DEBUG: LoadDefinitionId  = 12", "DEBUG: Type = 45",
            "DEBUG: SubType = 2", "DEBUG: Load_0 = 0.5", "DEBUG: Load_1 = -20", "DEBUG: Load_2 = 0",
            "DEBUG: Load_3 = 1.25", "DEBUG: FaceNumber = 4",
            "DEBUG: Before adding params to Input List",
            "DEBUG: Trying to alter the name Edge [A]_ 12_Coefficient",
            "DEBUG: Altered the name Edge [A]_ 12_Coefficient to EdgeA_12_Coefficient",
            "DEBUG: Added variable to Input list Variable Name=EdgeA_12_Coefficient value= .5 "
            "Entity type=LoadMesh ID=12",
            "DEBUG: Trying to alter the name Edge [A]_ 12_Temperature",
            "DEBUG: Altered the name Edge [A]_ 12_Temperature to EdgeA_12_Temperature",
            "DEBUG: Added variable to Input list Variable Name=EdgeA_12_Temperature value=-20 "
            "Entity type=LoadMesh ID=12",
            "DEBUG: Check for blank variable in Input List",
            "DEBUG: Blank row found in Input List and hence deleted",
            "DEBUG: Released femap lock before getting load definition data",
            "DEBUG: After fetching load definition data"));
}

TEST_F(LoadDefinitionInputs, AGeometryLoadIsLoggedWithItsGeometry)
{
    define(4, "Hook", LoadDataType::Geometry, 174);
    loads().geometryLoads.push_back(
        {.id = 1, .entityID = 33, .type = 174, .definitionID = 4, .load = {8}});

    pick({4});

    std::vector<std::string> log = f.log();
    log.erase(log.begin(), std::find(log.begin(), log.end(), "DEBUG: Found Geometry load"));
    EXPECT_THAT(log, ElementsAre("DEBUG: Found Geometry load", "DEBUG: GeomID = 33",
                                 "DEBUG: GeomType = 5", "DEBUG: Before adding params to Input List",
                                 "DEBUG: Trying to alter the name Hook_ 4_Flux",
                                 "DEBUG: Altered the name Hook_ 4_Flux to Hook_4_Flux",
                                 "DEBUG: Added variable to Input list Variable Name=Hook_4_Flux "
                                 "value= 8 Entity type=LoadGeom ID=4",
                                 "DEBUG: Check for blank variable in Input List",
                                 "DEBUG: Blank row found in Input List and hence deleted",
                                 "DEBUG: Released femap lock before getting load definition data",
                                 "DEBUG: After fetching load definition data"));
}

struct Temperature
{
    LoadDataType dataType;
    std::string found;
    std::string kind;
};

class TemperatureLoad : public LoadDefinitionInputs, public testing::WithParamInterface<Temperature>
{};

TEST_P(TemperatureLoad, IsLoggedWithItsEntityTemperatureAndPhase)
{
    define(5, "Hot", GetParam().dataType, 9);
    for (auto* const list : {&loads().elementTemperatures, &loads().nodalTemperatures})
        list->push_back({.entityID = 71, .temp = 0.25, .phase = 90, .definitionID = 5});

    pick({5});

    std::vector<std::string> log = f.log();
    log.erase(log.begin(),
              std::find(log.begin(), log.end(), "DEBUG: Start iterating over loadDef.NextLoad"));
    log.erase(std::find(log.begin(), log.end(), "DEBUG: Check for blank variable in Input List"),
              log.end());
    EXPECT_THAT(
        log, ElementsAre("DEBUG: Start iterating over loadDef.NextLoad",
                         "DEBUG: " + GetParam().found, "DEBUG: Load Id = 71", "DEBUG: Temp = 0.25",
                         "DEBUG: Phase = 90", "DEBUG: Trying to alter the name Hot_ 5_Temperature",
                         "DEBUG: Altered the name Hot_ 5_Temperature to Hot_5_Temperature",
                         "DEBUG: Added variable to Input list Variable Name=Hot_5_Temperature "
                         "value= .25 Entity type=" +
                             GetParam().kind + " ID=5"));
}

INSTANTIATE_TEST_SUITE_P(EachPlace, TemperatureLoad,
                         testing::Values(Temperature{LoadDataType::ElementalTemperature,
                                                     "Found Elemental Thermal load", "LoadETemp"},
                                         Temperature{LoadDataType::NodalTemperature,
                                                     "Found Nodal Thermal load", "LoadNTemp"}),
                         [](const auto& one) { return one.param.kind; });

TEST_F(LoadDefinitionInputs, DefinitionsFollowEachOtherByAscendingID)
{
    define(1, "First", LoadDataType::Mesh, 42);
    define(2, "Second", LoadDataType::NodalTemperature, 9);
    define(3, "Third", LoadDataType::Mesh, 10);
    loads().meshLoads.push_back({.id = 1, .definitionID = 3});
    loads().meshLoads.push_back({.id = 2, .definitionID = 1});
    loads().nodalTemperatures.push_back({.entityID = 1, .definitionID = 2});

    pick({3, 1, 2});

    EXPECT_THAT(f.names(f.form.InputsList),
                ElementsAre("First_1_Pressure", "Second_2_Temperature", "Third_3_Flux"));
    EXPECT_THAT(f.log(), Contains("DEBUG: 3 Load definitions selected"));
    EXPECT_TRUE(isUnlocked());
}

TEST_F(LoadDefinitionInputs, NamedRowsStayWhenOthersAreAdded)
{
    f.form.InputsList.setText(1, 0, "XAtNode1");
    define(2, "Wind", LoadDataType::Mesh, 42);
    loads().meshLoads.push_back({.id = 1, .definitionID = 2});

    pick({2});

    EXPECT_THAT(f.names(f.form.InputsList), ElementsAre("XAtNode1", "Wind_2_Pressure"));
    EXPECT_THAT(f.log(), AllOf(Contains("DEBUG: Check for blank variable in Input List"),
                               Not(Contains(HasSubstr("Blank row found")))));
}

}  // namespace selection
