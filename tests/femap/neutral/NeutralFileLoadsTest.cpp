#include "fake/NeutralText.h"
#include "femap/embedded/LoadMatchers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace neutral;
using femap::neutral::Load;
using femap::neutral::LoadSet;
using femap::neutral::Model;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace
{

const std::string emptyLists = listEnd + listEnd + listEnd + listEnd;
const std::string noFurtherList = "-1,0,-1,0.,-1,\n";
const std::string definitionEnd = "-1,0,0,\n";

LoadSet setOf(const std::string& records, const std::string& version = "9.3")
{
    const Model model = read(header(version) + block(507, records));
    EXPECT_THAT(model.loadSets, SizeIs(1));
    return *model.loadSets.begin();
}

}  // namespace

TEST(NeutralFileLoads, AMeshLoadHasAllFieldsOfItsLines)
{
    const LoadSet set = setOf(loadSetHead("4,", "Pressure case") +
                              meshLoad("19,42,11,2,0,3,1,8,", "6,0,0,", "1.,2.,3.,4.,5.,") +
                              emptyLists + noFurtherList + "8,13,42,\nDoor  \n" + definitionEnd);

    EXPECT_EQ(set.id, 4);
    EXPECT_EQ(set.title, "Pressure case");
    const Load& load = set.meshLoads.at(0);
    EXPECT_EQ(load.id, 1);
    EXPECT_EQ(load.entityID, 19);
    EXPECT_EQ(load.type, 42);
    EXPECT_EQ(load.color, 11);
    EXPECT_EQ(load.layer, 2);
    EXPECT_EQ(load.subtype, 3);
    EXPECT_TRUE(load.expanded);
    EXPECT_EQ(load.faceNumber, 6);
    EXPECT_EQ(load.definitionID, 8);
    EXPECT_THAT(load.load, ElementsAre(1, 2, 3, 4, 5));
    EXPECT_THAT(set.definitions, ElementsAre(isDefinition(8, "Door", 13, 42)));
}

TEST(NeutralFileLoads, OnlyLoadsOnElementsHaveAFace)
{
    const LoadSet set =
        setOf(loadSetHead("1,", "Mixed") + meshLoad("1,1,10,1,0,0,0,", "1,1,1,", "0.,0.,9.,") +
                  meshLoad("2,40,10,1,0,0,0,", "2,0,0,", "1.") +
                  meshLoad("3,41,10,1,0,0,0,", "3,0,0,", "1.") +
                  meshLoad("4,80,10,1,0,0,0,", "4,0,0,", "1.") +
                  meshLoad("5,81,10,1,0,0,0,", "5,0,0,", "1.") + emptyLists,
              "8.2");

    std::vector<int> faces;
    for (const Load& load : set.meshLoads)
        faces.push_back(load.faceNumber);
    EXPECT_THAT(faces, ElementsAre(0, 0, 3, 4, 0));
    EXPECT_THAT(set.meshLoads[0].load, ElementsAre(0, 0, 9, 0, 0));
    EXPECT_EQ(set.meshLoads[4].id, 5);
}

TEST(NeutralFileLoads, ALoadMayLackFieldsAtTheEnd)
{
    const LoadSet set =
        setOf(loadSetHead("1,", "Short") + meshLoad("1,2,", "0,", "7.") + emptyLists, "8.2");

    EXPECT_EQ(set.meshLoads[0].color, 10);
    EXPECT_EQ(set.meshLoads[0].layer, 1);
    EXPECT_EQ(set.meshLoads[0].load[0], 7);
}

TEST(NeutralFileLoads, GeometryLoadsHaveNineteenLinesWithTextsAmongThem)
{
    const LoadSet set =
        setOf(loadSetHead("1,", "Skin") + listEnd +
              geometryLoad("5,184,10,1,0,0,0,2,", "0.25,0.,0.,0.,0.,") +
              geometryLoad("6,184,10,1,0,0,0,2,", "0.5,0.,0.,0.,0.,") + listEnd + listEnd +
              listEnd + noFurtherList + "2,14,184,\nWind\n" + definitionEnd);

    ASSERT_THAT(set.geometryLoads, SizeIs(2));
    EXPECT_EQ(set.geometryLoads[1].id, 2);
    EXPECT_EQ(set.geometryLoads[1].entityID, 6);
    EXPECT_EQ(set.geometryLoads[1].type, 184);
    EXPECT_EQ(set.geometryLoads[1].load[0], 0.5);
    EXPECT_EQ(set.geometryLoads[1].definitionID, 2);
}

TEST(NeutralFileLoads, TemperaturesAreThoseOfNodesThenThoseOfElements)
{
    const LoadSet set =
        setOf(loadSetHead("1,", "Heat") + listEnd + listEnd +
              "11,10,1,20.5,-1.,0,0,3,\n12,10,1,30\n" + listEnd + "7,8,2,40.,0.5,0,1,4,\n" +
              listEnd + noFurtherList + "3,15,9,\nNodes\n4,16,43,\nElements\n" + definitionEnd);

    ASSERT_THAT(set.nodalTemperatures, SizeIs(2));
    EXPECT_EQ(set.nodalTemperatures[0].entityID, 11);
    EXPECT_EQ(set.nodalTemperatures[0].temp, 20.5);
    EXPECT_EQ(set.nodalTemperatures[0].phase, -1);
    EXPECT_EQ(set.nodalTemperatures[0].definitionID, 3);
    EXPECT_EQ(set.nodalTemperatures[0].color, 10);
    EXPECT_EQ(set.nodalTemperatures[0].layer, 1);
    EXPECT_FALSE(set.nodalTemperatures[0].expanded);
    EXPECT_EQ(set.nodalTemperatures[1].temp, 30);
    EXPECT_FALSE(set.nodalTemperatures[1].expanded);
    ASSERT_THAT(set.elementTemperatures, SizeIs(1));
    EXPECT_EQ(set.elementTemperatures[0].entityID, 7);
    EXPECT_EQ(set.elementTemperatures[0].phase, 0.5);
    EXPECT_EQ(set.elementTemperatures[0].definitionID, 4);
    EXPECT_EQ(set.elementTemperatures[0].color, 8);
    EXPECT_EQ(set.elementTemperatures[0].layer, 2);
    EXPECT_TRUE(set.elementTemperatures[0].expanded);
}

TEST(NeutralFileLoads, OlderFilesGetADefinitionForEachDataTypeAndLoadType)
{
    const std::string mesh = meshLoad("1,42,10,1,0,0,0,", "1,", "1.") +
                             meshLoad("2,1,10,1,0,0,0,", "1,", "1.") +
                             meshLoad("3,42,10,1,0,0,0,", "1,", "1.");
    const LoadSet set =
        setOf(loadSetHead("1,", "Case") + mesh + listEnd + geometryLoad("1,42,10,1,0,0,0,", "1.") +
                  listEnd + "1,10,1,20.,\n2,10,1,20.,\n" + listEnd + "1,10,1,20.,\n" + listEnd,
              "8.2");

    EXPECT_THAT(set.definitions,
                ElementsAre(isDefinition(1, "Case", 13, 42), isDefinition(2, "Case", 13, 1),
                            isDefinition(3, "Case", 14, 42), isDefinition(4, "Case", 15, 9),
                            isDefinition(5, "Case", 16, 43)));
    EXPECT_EQ(set.meshLoads[0].definitionID, 1);
    EXPECT_EQ(set.meshLoads[1].definitionID, 2);
    EXPECT_EQ(set.meshLoads[2].definitionID, 1);
    EXPECT_EQ(set.geometryLoads[0].definitionID, 3);
    EXPECT_EQ(set.nodalTemperatures[1].definitionID, 4);
    EXPECT_EQ(set.elementTemperatures[0].definitionID, 5);
}

TEST(NeutralFileLoads, DefinitionsOfEachLoadSetBeginAtOne)
{
    const std::string one = meshLoad("1,1,10,1,0,0,0,", "1,", "1.") + emptyLists;

    const Model model = read(header("8.2") + block(507, loadSetHead("1,", "First") + one +
                                                            loadSetHead("2,", "Second") + one));

    EXPECT_THAT(model.loadSets.find(1)->definitions, ElementsAre(isDefinition(1, "First", 13, 1)));
    EXPECT_THAT(model.loadSets.find(2)->definitions, ElementsAre(isDefinition(1, "Second", 13, 1)));
}

TEST(NeutralFileLoads, LoadsWithoutAnExistingDefinitionGetOneAfterTheExistingOnes)
{
    const LoadSet set = setOf(
        loadSetHead("1,0,0.,", "Case") + meshLoad("1,1,10,1,0,0,0,0,", "1,", "1.") +
            meshLoad("2,1,10,1,0,0,0,7,", "1,", "1.") + meshLoad("3,2,10,1,0,0,0,5,", "1,", "1.") +
            emptyLists + noFurtherList + "7,13,1,\nSeven\n3,13,1,\nThree\n" + definitionEnd,
        "11.");

    EXPECT_THAT(set.definitions,
                ElementsAre(isDefinition(3, "Three", 13, 1), isDefinition(7, "Seven", 13, 1),
                            isDefinition(8, "Case", 13, 1), isDefinition(9, "Case", 13, 2)));
    EXPECT_EQ(set.meshLoads[0].definitionID, 8);
    EXPECT_EQ(set.meshLoads[1].definitionID, 7);
    EXPECT_EQ(set.meshLoads[2].definitionID, 9);
}

TEST(NeutralFileLoads, AnEmptySetHasNoDefinitions)
{
    EXPECT_THAT(
        setOf(loadSetHead("1,", "None") + emptyLists + noFurtherList + definitionEnd).definitions,
        IsEmpty());
    EXPECT_THAT(setOf(loadSetHead("1,", "None") + emptyLists, "8.2").definitions, IsEmpty());
}

TEST(NeutralFileLoads, AFileThatIsOlderThanItSaysIsReadToo)
{
    const std::string one = meshLoad("1,1,10,1,0,0,0,", "1,", "1.") + emptyLists;

    const Model model = read(header("10.0") + block(507, loadSetHead("1,", "First") + one +
                                                             loadSetHead("2,", "Second") + one));

    EXPECT_THAT(model.loadSets.ids(), ElementsAre(1, 2));
    EXPECT_THAT(model.loadSets.find(2)->definitions, ElementsAre(isDefinition(1, "Second", 13, 1)));
}

TEST(NeutralFileLoads, AFileThatIsNewerThanItSaysIsReadToo)
{
    const std::string rest = emptyLists + noFurtherList + "1,13,1,\nForce\n" + definitionEnd;
    const std::string load = meshLoad("1,1,10,1,0,0,0,1,", "1,", "1.");

    const Model model =
        read(header("8.2") + block(507, loadSetHead("1,", "First") + load + rest +
                                            loadSetHead("2,", "Second") + load + rest));

    EXPECT_THAT(model.loadSets.find(1)->definitions, ElementsAre(isDefinition(1, "Force", 13, 1)));
    EXPECT_THAT(model.loadSets.find(2)->definitions, ElementsAre(isDefinition(1, "Force", 13, 1)));
}

TEST(NeutralFileLoads, TheFurtherListOfNewFilesIsSkippedAndDefinitionsMayBeMissing)
{
    const std::string further = "3,1,2,0.5,4,\n4,1,2,0.5,4,\n" + noFurtherList;

    EXPECT_THAT(
        setOf(loadSetHead("1,", "A") + emptyLists + further + "2,13,1,\nTwo\n" + definitionEnd)
            .definitions,
        ElementsAre(isDefinition(2, "Two", 13, 1)));
    EXPECT_THAT(setOf(loadSetHead("1,", "A") + emptyLists + further).definitions, IsEmpty());
}

TEST(NeutralFileLoads, ALoadSetThatDoesNotFitIsRefusedWithItsLine)
{
    const std::string head = loadSetHead("1,", "Case");  // lines 8 to 28
    const auto errorFor = [&](const std::string& records) {
        return errorOf(header() + block(507, head + records));
    };
    const auto refusal = [](int line, const std::string& problem) {
        return error(line, "block 507 (loads): " + problem);
    };
    const std::string cut = "the block ends in the middle of a record";

    EXPECT_EQ(errorFor(""), refusal(29, cut));
    EXPECT_EQ(errorFor(listEnd), refusal(30, cut));
    EXPECT_EQ(errorFor(meshLoad("1,1,", "1,", "1.")), refusal(36, cut));
    EXPECT_EQ(errorFor(meshLoad("0,1,", "1,", "1.")),
              refusal(29, "the ID 0 is not greater than 0"));
    EXPECT_EQ(errorFor(meshLoad("1,", "1,", "1.")), refusal(29, "field 2 is missing"));
    EXPECT_EQ(errorFor(meshLoad("1,1,", "face", "1.")),
              refusal(30, "field 1 is not a whole number"));
    EXPECT_EQ(errorFor(meshLoad("1,1,", "1,", "")), refusal(31, "field 1 is missing"));
    EXPECT_EQ(errorFor(listEnd + listEnd + "3,10,1,hot,\n"),
              refusal(31, "field 4 is not a number"));
    EXPECT_EQ(errorFor(emptyLists + noFurtherList + "1,13,\nX\n"),
              refusal(34, "field 3 is missing"));
    EXPECT_EQ(errorFor(emptyLists + noFurtherList + "1,13,1,\nX\n"), refusal(36, cut));
    EXPECT_EQ(errorOf(header() + block(507, "1,\nCase\nno options\n")),
              refusal(10, "field 1 is not a number"));
    EXPECT_EQ(errorFor(meshLoad("1,1,10,1,0,0,0,0,", "1,", "1.") + emptyLists + noFurtherList +
                       "2147483647,13,1,\nLast\n" + definitionEnd),
              refusal(8, "no ID is left for the load definition of some loads"));
}
