#include "fake/NeutralText.h"
#include "femap/NumberText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace neutral;
using femap::neutral::Model;
using femap::neutral::Node;
using femap::neutral::OutputSet;
using femap::neutral::Table;
using testing::ElementsAre;

namespace
{

std::string node(int id, double x)
{
    return std::to_string(id) + ",0,0,1,46,0,0,0,0,0,0," + femap::numberText(x) + ",0.,0.,\n";
}

std::vector<double> placesOf(const Model& model)
{
    std::vector<double> places;
    for (const Node& row : model.nodes)
        places.push_back(row.x);
    return places;
}

}  // namespace

TEST(NeutralFileMerge, AnEntityReplacesTheOneWithItsID)
{
    Model model = read(header() + block(403, node(2, 2) + node(4, 4)));

    readInto(model, header() + block(403, node(5, 50) + node(1, 10) + node(4, 40)));

    EXPECT_THAT(model.nodes.ids(), ElementsAre(1, 2, 4, 5));
    EXPECT_THAT(placesOf(model), ElementsAre(10, 2, 40, 50));
}

TEST(NeutralFileMerge, AFileWithoutAKindOfEntityLeavesTheOthersOfThatKind)
{
    Model model = read(completeFile());
    model.activeOutputSet = 1;

    readInto(model, header() + block(403, node(9, 9)));

    EXPECT_EQ(model.nodes.size(), 5U);
    EXPECT_EQ(model.elements.size(), 1U);
    EXPECT_EQ(model.loadSets.size(), 1U);
    EXPECT_EQ(model.activeOutputSet, 1);
}

TEST(NeutralFileMerge, MeshOfOneFileAndResultsOfAnotherMakeOneModel)
{
    Model model = read(header("8.2") + block(403, node(1, 1)));

    readInto(model, header("11.") + block(450, "1,\nRun\n0,1,\n0.,\n0,\n0,0,\n") +
                        block(451, vectorHead(1, 1, "T") + "1,2.,\n-1,\n"));

    EXPECT_THAT(model.nodes.ids(), ElementsAre(1));
    EXPECT_EQ(model.outputSets.find(1)->title, "Run");
    EXPECT_THAT(model.outputSets.find(1)->vectors.ids(), ElementsAre(1));
}

TEST(NeutralFileMerge, AKnownOutputSetTakesTheNewTitleAndKeepsItsOtherVectors)
{
    Model model = read(header() + block(450, "1,\nOld\n0,1,\n1.,\n0,\n") +
                       block(451, vectorHead(1, 3, "Kept") + "1,2.,\n-1,\n" +
                                      vectorHead(1, 5, "Replaced") + "1,2.,\n-1,\n"));

    readInto(model, header() + block(450, "1,\nNew\n0,1,\n4.,\n0,\n") +
                        block(451, vectorHead(1, 5, "Newer") + "1,2.,\n-1,\n" +
                                       vectorHead(1, 1, "Added") + "1,2.,\n-1,\n"));

    const OutputSet& set = *model.outputSets.find(1);
    EXPECT_EQ(set.title, "New");
    EXPECT_EQ(set.value, 4);
    EXPECT_THAT(set.vectors.ids(), ElementsAre(1, 3, 5));
    EXPECT_EQ(set.vectors.find(3)->title, "Kept");
    EXPECT_EQ(set.vectors.find(5)->title, "Newer");
}

TEST(NeutralFileMerge, OutputSetsOfSeveralFilesStandSideBySide)
{
    Model model = read(header() + block(450, "2,\nTwo\n0,1,\n1.,\n0,\n"));

    readInto(model, header() + block(450, "3,\nThree\n0,1,\n1.,\n0,\n1,\nOne\n0,1,\n1.,\n0,\n"));

    EXPECT_THAT(model.outputSets.ids(), ElementsAre(1, 2, 3));
}

TEST(Table, MergingManyRowsKeepsTheOrderAndPrefersTheNewOnes)
{
    Table<Node> table;
    table.put({.id = 2, .x = 2});
    table.put({.id = 6, .x = 6});

    table.merge({{.id = 9, .x = 1}, {.id = 4, .x = 1}, {.id = 9, .x = 3}, {.id = 2, .x = 7}});
    table.merge({});

    EXPECT_THAT(table.ids(), ElementsAre(2, 4, 6, 9));
    EXPECT_EQ(table.find(2)->x, 7);
    EXPECT_EQ(table.find(9)->x, 3);
}
