#include "fake/NeutralText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace neutral;
using femap::neutral::Function;
using femap::neutral::Material;
using femap::neutral::Model;
using femap::neutral::Property;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace
{

const std::string beamLines =
    "0,0,0,0,\n10,\n1,2,3,4,5,6,7,8,\n9,10,\n7,\n"
    "0.5,0.25,0.,0.,1.,\n0.,0.125,\n";

Model readProperties(const std::string& records, const std::string& version = "9.3")
{
    return read(header(version) + block(402, records));
}

// The lines of a material as files up to 4.x have them: 30 lines behind the title.
std::string oldMaterial(int id, const std::string& title)
{
    std::string lines = std::to_string(id) + ",55,1,2,3,0,\n" + title + "\n";
    int value = 0;
    for (int line = 0; line < 30; ++line) {
        const int fields = line < 29 ? 2 : 60;
        for (int i = 0; i < fields; ++i)
            lines += std::to_string(++value) + ".,";
        lines += "\n";
    }
    return lines;
}

}  // namespace

TEST(NeutralFileProperties, APropertyHasAllFieldsOfItsLines)
{
    const Model model = readProperties("3,110,7,5,2,9,0,\nSpar  \n" + beamLines + "0,\n0,\n");

    const Property& property = *model.properties.find(3);
    EXPECT_EQ(property.title, "Spar");
    EXPECT_EQ(property.color, 110);
    EXPECT_EQ(property.matlID, 7);
    EXPECT_EQ(property.type, 5);
    EXPECT_EQ(property.layer, 2);
    EXPECT_EQ(property.refCS, 9);
    EXPECT_THAT(property.pval, ElementsAre(0.5, 0.25, 0, 0, 1, 0, 0.125));
}

TEST(NeutralFileProperties, ThereMayBeNoneOneOrTwoOutlinesWhateverTheVersion)
{
    const std::string outline = "2,\n0.,0.,1,\n1.,1.,0,\n";
    for (const std::string version : {"4.4", "8.2", "11."}) {
        const Model model =
            readProperties("1,110,1,5,1,0,\nNone\n" + beamLines + "2,110,1,5,1,0,\nOne\n" +
                               beamLines + outline + "3,110,1,5,1,0,\nTwo\n" + beamLines + "0,\n" +
                               outline + "4,110,1,5,1,0,\nLast\n" + beamLines,
                           version);

        EXPECT_THAT(model.properties.ids(), ElementsAre(1, 2, 3, 4));
        EXPECT_EQ(model.properties.find(4)->title, "Last");
    }
}

TEST(NeutralFileProperties, APropertyMayHaveNoValues)
{
    const Model model = readProperties(
        "1,110,0,29,1\n<NULL>\n0,\n0,\n0,\n0,\n0,\n2,110,0,29\nRigid\n0,\n0,\n1\n4.\n");

    EXPECT_THAT(model.properties.find(1)->pval, IsEmpty());
    EXPECT_THAT(model.properties.find(2)->pval, ElementsAre(4));
    EXPECT_EQ(model.properties.find(2)->layer, 1);
}

TEST(NeutralFileProperties, APropertyThatDoesNotFitIsRefusedWithItsLine)
{
    const auto errorFor = [](const std::string& lines) {
        return errorOf(header() + block(402, "1,110,1,17,1,0,\nPlate\n" + lines));
    };
    const auto refusal = [](int line, const std::string& problem) {
        return error(line, "block 402 (properties): " + problem);
    };

    EXPECT_EQ(errorFor("flags\n"), refusal(10, "field 1 is not a number"));
    EXPECT_EQ(errorFor("0,\n-3,\n"), refusal(11, "a count is less than 0"));
    EXPECT_EQ(errorFor("0,\n0,0,\n"), refusal(11, "the line holds more than fits"));
    EXPECT_EQ(errorFor("0,\n0,\n2,\n1.,2.,3.,\n"), refusal(13, "the line holds more than fits"));
    EXPECT_EQ(errorFor("0,\n0,\n2,\n1.,\n"),
              refusal(14, "the block ends in the middle of a record"));
    EXPECT_EQ(errorFor("0,\n0,\n2,\n1.,\n\n"), refusal(14, "field 1 is missing"));
    EXPECT_EQ(errorFor("0,\n0,\n2000000000,\n1.,2.,\n"),
              refusal(14, "the block ends in the middle of a record"));
    EXPECT_EQ(errorFor("0,\n0,\n0,\n2000000000,\n1.,2.,1,\n"),
              refusal(15, "the block ends in the middle of a record"));
    EXPECT_EQ(errorFor("0,\n0,\n0,\n-1,\n"), refusal(13, "a count is less than 0"));
}

TEST(NeutralFileProperties, AMaterialHasItsFieldsAndTwoHundredReals)
{
    const Model model = read(
        header() + block(601, material(4, "Steel S355", "210000.,210000.,210000.,0.,0.,0.,0.3,")));

    const Material& steel = *model.materials.find(4);
    EXPECT_EQ(steel.title, "Steel S355");
    EXPECT_EQ(steel.color, 104);
    EXPECT_EQ(steel.type, 1);
    EXPECT_EQ(steel.subtype, 2);
    EXPECT_EQ(steel.layer, 3);
    ASSERT_THAT(steel.mval, SizeIs(200));
    EXPECT_EQ(steel.mval[2], 210000);
    EXPECT_EQ(steel.mval[6], 0.3);
    EXPECT_EQ(steel.mval[199], 0);
}

TEST(NeutralFileProperties, FunctionsBehindAMaterialAreNotFunctionsOfTheModel)
{
    const std::string attached =
        "9,2,\nE over temperature\n1,20.,210000.,\n2,300.,190000.,\n-1,0.,0.,\n";

    const Model model = read(header() + block(601, material(1, "Hot", "1.,", 2) + attached +
                                                       attached + material(2, "Cold", "2.,")));

    EXPECT_THAT(model.materials.ids(), ElementsAre(1, 2));
    EXPECT_EQ(model.materials.find(2)->title, "Cold");
    EXPECT_TRUE(model.functions.empty());
}

TEST(NeutralFileProperties, AMaterialMayHaveOtherCountsOfValuesAndTables)
{
    const std::string few =
        "1,-601,55,0,0,1,0,\nFew\n0,\n1,\n5,\n3,\n1.,2.,3.,\n2,\n0,0,\n60,\n" + std::string("0\n") +
        "0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,"
        "0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0\n";

    const Model model =
        read(header("7.") + block(601, few) + block(601, "2,-601,55,0\nNone\n0\n0\n0\n"));

    EXPECT_THAT(model.materials.find(1)->mval, SizeIs(200));
    EXPECT_EQ(model.materials.find(1)->mval[2], 3);
    EXPECT_THAT(model.materials.find(2)->mval, SizeIs(200));
    EXPECT_EQ(model.materials.find(2)->layer, 1);
}

TEST(NeutralFileProperties, AMaterialThatDoesNotFitIsRefusedWithItsLine)
{
    const auto refusal = [](int line, const std::string& problem) {
        return error(line, "block 601 (materials): " + problem);
    };

    EXPECT_EQ(errorOf(header() + block(601, "1,55,0,0,1,0,\nOld\n")),
              refusal(8, "field 2 is not -601"));
    EXPECT_EQ(errorOf(header() + block(601, "1,-601,55,0,0,1,1,\nM\n0,\n0,\n0,\n5,2,\nF\n1,2.,\n")),
              refusal(15, "field 3 is missing"));
    EXPECT_EQ(
        errorOf(header() + block(601, "1,-601,55,0,0,1,1,\nM\n0,\n0,\n0,\n5,2,\nF\n1,2.,3.\n")),
        refusal(16, "the block ends in the middle of a record"));
    EXPECT_EQ(errorOf(header() + block(601, "1,-601,55,0,0,1,0,\nM\n0,\n0,\n0,\n5,2,\nF\n-1,\n")),
              refusal(13, "field 2 is not -601"));
}

TEST(NeutralFileProperties, AMaterialOfOldFilesHasThirtyTwoLinesAndTheSameOrder)
{
    const Model model = read(header("4.4") + block(401, oldMaterial(1, "Steel")) +
                             block(401, oldMaterial(5, "Glass")));

    EXPECT_THAT(model.materials.ids(), ElementsAre(1, 5));
    const Material& glass = *model.materials.find(5);
    EXPECT_EQ(glass.title, "Glass");
    EXPECT_EQ(glass.color, 55);
    EXPECT_EQ(glass.type, 1);
    EXPECT_EQ(glass.mval[0], 1);
    EXPECT_EQ(glass.mval[49], 50);
    EXPECT_EQ(glass.mval[57], 58);
    EXPECT_EQ(glass.mval[58], 0);
    EXPECT_EQ(errorOf(header("4.4") + block(401, "1,55,0,0,1,0,\nCut\n1.,\n")),
              error(11, "block 401 (materials): the block ends in the middle of a record"));
}

TEST(NeutralFileProperties, AFunctionHasItsPoints)
{
    const Model model = read(
        header() + block(420, "3,2,\nStiffness\n1,20.,1.,\n2,100.,0.5\n-1,0.,0.,\n4,\nNone\n-1\n"));

    const Function& stiffness = *model.functions.find(3);
    EXPECT_EQ(stiffness.title, "Stiffness");
    EXPECT_EQ(stiffness.type, 2);
    EXPECT_THAT(stiffness.x, ElementsAre(20, 100));
    EXPECT_THAT(stiffness.y, ElementsAre(1, 0.5));
    EXPECT_THAT(model.functions.find(4)->x, IsEmpty());
}

TEST(NeutralFileProperties, AFunctionThatDoesNotFitIsRefusedWithItsLine)
{
    const auto refusal = [](int line, const std::string& problem) {
        return error(line, "block 420 (functions): " + problem);
    };

    EXPECT_EQ(errorOf(header() + block(420, "3,2,\nF\n1,20.,\n-1,\n")),
              refusal(10, "field 3 is missing"));
    EXPECT_EQ(errorOf(header() + block(420, "3,2,\nF\n1,20.,1.,\n")),
              refusal(11, "the block ends in the middle of a record"));
    EXPECT_EQ(errorOf(header() + block(420, "3,2,\n")),
              refusal(9, "the block ends in the middle of a record"));
}
