#include "fake/NeutralText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace neutral;
using femap::EntityType;
using femap::neutral::Model;
using femap::neutral::OutputSet;
using femap::neutral::OutputVector;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace
{

// A vector of set 1 with ID 1.
OutputVector vectorOf(const std::string& values, const std::string& extremes = "0.,0.,0.,",
                      int entityType = 7)
{
    const Model model =
        read(header() + block(451, vectorHead(1, 1, "T", extremes, entityType) + values));
    return *model.outputSets.find(1)->vectors.find(1);
}

std::string errorOfValues(const std::string& values)
{
    return errorOf(header() + block(451, vectorHead(1, 1, "T") + values));
}

std::string refusal(int line, const std::string& problem)
{
    return error(line, "block 451 (output vectors): " + problem);
}

std::vector<std::string> titlesOf(const std::string& version, const std::string& sets)
{
    std::vector<std::string> titles;
    for (const OutputSet& set : read(header(version) + block(450, sets)).outputSets)
        titles.push_back(set.title);
    return titles;
}

}  // namespace

TEST(NeutralFileOutput, AnOutputSetHasItsTitleAndValue)
{
    const Model model =
        read(header() + block(450, "3,\nMode 3  \n0,2,\n12.5,\n2,\nfirst note\nsecond note\n"));

    const OutputSet& set = *model.outputSets.find(3);
    EXPECT_EQ(set.title, "Mode 3");
    EXPECT_EQ(set.value, 12.5);
    EXPECT_TRUE(set.vectors.empty());
}

TEST(NeutralFileOutput, AnOutputSetMayHaveNoNotes)
{
    EXPECT_THAT(titlesOf("8.2", "1,\nA\n0,1,\n0.,\n0,\n2,\nB\n0,1,\n0.,\n0,\n"),
                ElementsAre("A", "B"));
}

TEST(NeutralFileOutput, NewFilesHaveOneOrFourLinesBehindTheNotes)
{
    const auto set = [](int id, const std::string& title, const std::string& extra) {
        return std::to_string(id) + ",\n" + title + "\n36,1,0,0,\n0.,\n1,\n<NULL>\n" + extra;
    };
    const std::string four = "0,\n1,\nStudy\n0,0,\n";

    EXPECT_THAT(titlesOf("11.", set(1, "A", "0,0,\n") + set(2, "B", "0,0,\n")),
                ElementsAre("A", "B"));
    EXPECT_THAT(titlesOf("11.", set(1, "A", four) + set(2, "B", four)), ElementsAre("A", "B"));
    EXPECT_THAT(titlesOf("11.", set(1, "A", "") + set(2, "B", "")), ElementsAre("A", "B"));
    EXPECT_THAT(titlesOf("9.3", set(1, "A", four) + set(2, "B", four)), ElementsAre("A", "B"));
}

TEST(NeutralFileOutput, AnOutputSetThatDoesNotFitIsRefusedWithItsLine)
{
    const auto errorFor = [](const std::string& records) {
        return errorOf(header() + block(450, records));
    };
    const auto refusalOfSet = [](int line, const std::string& problem) {
        return error(line, "block 450 (output sets): " + problem);
    };
    const std::string cut = "the block ends in the middle of a record";

    EXPECT_EQ(errorFor("1,\nA\n"), refusalOfSet(10, cut));
    EXPECT_EQ(errorFor("1,\nA\n0,1,\nlate,\n0,\n"), refusalOfSet(11, "field 1 is not a number"));
    EXPECT_EQ(errorFor("1,\nA\n0,1,\n0.,\n-2,\n"), refusalOfSet(12, "a count is less than 0"));
    EXPECT_EQ(errorFor("1,\nA\n0,1,\n0.,\n2000000000,\nnote\n"), refusalOfSet(14, cut));
    EXPECT_EQ(errorFor("0,\nA\n0,1,\n0.,\n0,\n"),
              refusalOfSet(8, "the ID 0 is not greater than 0"));
}

TEST(NeutralFileOutput, AVectorHasItsFieldsAndSingleValues)
{
    const Model model =
        read(header() + block(451, vectorHead(2, 60031, "Max Stress", "-1.,9.,9.,", 8) +
                                       "4,1.5,\n7,  2\n-1,0.,\n"));

    const OutputVector& vector = *model.outputSets.find(2)->vectors.find(60031);
    EXPECT_EQ(vector.title, "Max Stress");
    EXPECT_EQ(vector.location, EntityType::Element);
    EXPECT_EQ(vector.minval, -1);
    EXPECT_EQ(vector.maxval, 9);
    EXPECT_THAT(vector.ids, ElementsAre(4, 7));
    EXPECT_THAT(vector.values, ElementsAre(1.5, 2));
}

TEST(NeutralFileOutput, ARunOfValuesGoesOnOverSeveralLines)
{
    const OutputVector vector = vectorOf(
        "11,22,1.,2.,3.,4.,5.,6.,7.,8.,\n9.,10.,11.,12.,\n30,31,3.,\n4.,\n40,40,-5.,\n50,6.\n-1,0.,"
        "\n");

    EXPECT_THAT(vector.ids,
                ElementsAre(11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 30, 31, 40, 50));
    EXPECT_THAT(vector.values, ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 3, 4, -5, 6));
    EXPECT_EQ(vector.location, EntityType::Node);
}

TEST(NeutralFileOutput, ALineOfARunMayBeginWithMinusOne)
{
    EXPECT_THAT(vectorOf("1,3,5.,\n-1.,-1.5,\n-1,0.,\n").values, ElementsAre(5, -1, -1.5));
}

TEST(NeutralFileOutput, ValuesInAnyOrderComeOutAscendingAndTheLastOfAnIDStays)
{
    const OutputVector vector = vectorOf("9,1.,\n3,5,1.,2.,3.,\n4,7.,\n-1,\n");

    EXPECT_THAT(vector.ids, ElementsAre(3, 4, 5, 9));
    EXPECT_THAT(vector.values, ElementsAre(1, 7, 3, 1));
}

TEST(NeutralFileOutput, RunsInAnyOrderComeOutAscending)
{
    const OutputVector vector = vectorOf("5,6,1.,2.,\n3,4,3.,4.,\n-1,\n");

    EXPECT_THAT(vector.ids, ElementsAre(3, 4, 5, 6));
    EXPECT_THAT(vector.values, ElementsAre(3, 4, 1, 2));
}

TEST(NeutralFileOutput, ARunMayEndAtTheLargestID)
{
    const OutputVector vector = vectorOf("2147483646,2147483647,1.,2.,\n-1,\n");

    EXPECT_THAT(vector.ids, ElementsAre(2147483646, 2147483647));
    EXPECT_THAT(vector.values, ElementsAre(1, 2));
}

TEST(NeutralFileOutput, AVectorWithoutValuesIsKept)
{
    const OutputVector vector = vectorOf("-1,0.,\n", "9.9900002E+30,-9.9900002E+30,0.,");

    EXPECT_THAT(vector.ids, IsEmpty());
    EXPECT_EQ(vector.minval, 0);
    EXPECT_EQ(vector.maxval, 0);
}

TEST(NeutralFileOutput, ExtremesAreComputedWhenTheyAreReversedOrBothZero)
{
    const std::string values = "1,2.,\n2,-3.,\n3,1.,\n-1,0.,\n";

    for (const std::string extremes : {"0.,0.,0.,", "0,0,0,", "9.99E+30,-9.99E+30,9.99E+30,"}) {
        EXPECT_EQ(vectorOf(values, extremes).minval, -3) << extremes;
        EXPECT_EQ(vectorOf(values, extremes).maxval, 2) << extremes;
    }
    EXPECT_EQ(vectorOf(values, "0.,7.,7.,").minval, 0);
    EXPECT_EQ(vectorOf(values, "0.,7.,7.,").maxval, 7);
    EXPECT_EQ(vectorOf(values, "-4.,0.,4.,").minval, -4);
    EXPECT_EQ(vectorOf(values, "5.,5.,5.").maxval, 5);
}

TEST(NeutralFileOutput, NewVectorsHaveOneMoreLine)
{
    const std::string lines =
        "1,5,1,\nNew\n0.,0.,0.,\n0,0,\n0,0,\n0,\n0,0,1,7,\n1,1,1,\n1,2.,\n-1,0.,\n";

    const Model model = read(header("11.") + block(1051, lines));

    EXPECT_THAT(model.outputSets.find(1)->vectors.find(5)->ids, ElementsAre(1));
    EXPECT_EQ(errorOf(header() + block(451, lines)), refusal(13, "field 2 is missing"));
}

TEST(NeutralFileOutput, VectorIDsAreUniquePerSetOnly)
{
    const std::string values = "1,2.,\n-1,0.,\n";

    const Model model =
        read(header() + block(451, vectorHead(2, 1, "B") + values) +
             block(450, "1,\nFirst\n0,1,\n0.,\n0,\n2,\nSecond\n0,1,\n0.,\n0,\n") +
             block(451, vectorHead(1, 2, "A2") + values + vectorHead(1, 1, "A1") + values));

    EXPECT_THAT(model.outputSets.ids(), ElementsAre(1, 2));
    EXPECT_EQ(model.outputSets.find(2)->title, "Second");
    EXPECT_EQ(model.outputSets.find(2)->vectors.find(1)->title, "B");
    EXPECT_THAT(model.outputSets.find(1)->vectors.ids(), ElementsAre(1, 2));
    EXPECT_EQ(model.outputSets.find(1)->vectors.find(1)->title, "A1");
}

TEST(NeutralFileOutput, VectorsOfASetThatNoBlockDescribesMakeTheSet)
{
    const Model model = read(header() + block(451, vectorHead(6, 1, "T") + "1,2.,\n-1,0.,\n" +
                                                       vectorHead(4, 1, "T") + "1,2.,\n-1,0.,\n"));

    EXPECT_THAT(model.outputSets.ids(), ElementsAre(4, 6));
    EXPECT_THAT(model.outputSets.find(4)->title, IsEmpty());
}

TEST(NeutralFileOutput, AVectorThatDoesNotFitIsRefusedWithItsLine)
{
    const std::string cut = "the block ends in the middle of a record";

    EXPECT_EQ(errorOfValues(""), refusal(15, cut));
    EXPECT_EQ(errorOfValues("1,2.,\n"), refusal(16, cut));
    EXPECT_EQ(errorOfValues("1,\n-1,\n"), refusal(15, "field 2 is missing"));
    EXPECT_EQ(errorOfValues("1.5,2.,\n-1,\n"), refusal(15, "field 1 is not a whole number"));
    EXPECT_EQ(errorOfValues("1,high,\n-1,\n"), refusal(15, "field 2 is not a number"));
    EXPECT_EQ(errorOfValues("1,2.5,3.,\n-1,\n"), refusal(15, "field 2 is not a whole number"));
    EXPECT_EQ(errorOfValues("0,2.5,\n-1,\n"), refusal(15, "the ID 0 is not greater than 0"));
    EXPECT_EQ(errorOfValues("5,3,1.,\n-1,\n"), refusal(15, "the last ID is less than the first"));
    EXPECT_EQ(errorOfValues("5,6,1.,2.,3.,\n-1,\n"), refusal(15, "the line holds more than fits"));
    EXPECT_EQ(errorOfValues("5,7,1.,2.,\nx,\n-1,\n"), refusal(16, "field 1 is not a number"));
    EXPECT_EQ(errorOfValues("1,2000000000,1.,2.,\n3.,4.,\n"), refusal(17, cut));
    EXPECT_EQ(errorOf(header() + block(451, vectorHead(1, 1, "T", "0.,", 7))),
              refusal(10, "field 2 is missing"));
    EXPECT_EQ(errorOf(header() + block(451, vectorHead(1, 1, "T", "0.,0.,", 9))),
              refusal(13, "the entity type is neither 7 (nodes) nor 8 (elements)"));
    EXPECT_EQ(errorOf(header() + block(451, vectorHead(1, 0, "T"))),
              refusal(8, "the ID 0 is not greater than 0"));
}

TEST(NeutralFileOutput, ManyVectorsInDescendingOrderTakeNoLongerThanInAscendingOrder)
{
    constexpr int count = 30'000;
    std::string vectors;
    for (int id = count; id > 0; --id)
        vectors += vectorHead(1 + id % 2, id, "T") + "-1,\n";

    const Model model = read(header() + block(451, vectors));

    EXPECT_THAT(model.outputSets.find(1)->vectors, SizeIs(count / 2));
    EXPECT_EQ(model.outputSets.find(1)->vectors.begin()->id, 2);
}
