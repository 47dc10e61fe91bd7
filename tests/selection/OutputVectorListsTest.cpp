#include "selection/SelectionFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace selection
{
namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

// One vector of every range.
void addVectorsOfAllRanges(SelectionFixture& f)
{
    f.addVector(1, "Total Translation");
    f.addVector(3012, "Beam Force");
    f.addVector(7020, "Plate Stress");
    f.addVector(60010, "Solid Stress");
    f.addVector(80001, "Further");
    f.addVector(90001, "Patran");
    f.addVector(100031, "Corner Stress");
    f.addVector(300000, "User");
}

struct ListCase
{
    const char* category;
    const char* caption;
    Texts items;
};

const Texts plateVectors = {"7020 - Plate Stress"};
const Texts elementVectors = {"3012 - Beam Force", "7020 - Plate Stress", "60010 - Solid Stress",
                              "80001 - Further"};
const ListCase categoryCases[] = {
    {"Node", "Node Output Properties", {"1 - Total Translation"}},
    {"LineElement", "Line Element Output Properties", {"3012 - Beam Force"}},
    {"PlateElement", "Plate Element Output Properties", plateVectors},
    {"LaminateElement", "Laminate Element Output Properties", plateVectors},
    {"ShearPanel", "Shear Panel Output Properties", plateVectors},
    {"SolidElement", "Solid Element Output Properties", {"60010 - Solid Stress"}},
    {"AllElements", "All Element Output Properties", elementVectors},
    {"PATRAN", "PATRAN Element Output Properties", {"90001 - Patran"}},
    {"Corner", "Plate Corner Output Properties", {"100031 - Corner Stress"}},
    {"", "Undefined Output Property", elementVectors},
    {"Gap", "Undefined Output Property", elementVectors},
};

class OutputLists : public testing::TestWithParam<ListCase>
{};

TEST_P(OutputLists, ShowTheVectorsOfTheirCategory)
{
    SelectionFixture f;
    addVectorsOfAllRanges(f);
    f.dialog.UpdateCollection();

    f.dialog.GetPropertyList("Output", GetParam().category);

    EXPECT_EQ(f.dialog.Label2, GetParam().caption);
    EXPECT_EQ(itemsOf(f.dialog), GetParam().items);
}

INSTANTIATE_TEST_SUITE_P(EveryCategory, OutputLists, testing::ValuesIn(categoryCases));

TEST(OutputLists, AreEmptyBeforeTheVectorsWereRead)
{
    SelectionFixture f;
    addVectorsOfAllRanges(f);

    f.dialog.GetPropertyList("Output", "AllElements");

    EXPECT_THAT(itemsOf(f.dialog), IsEmpty());
}

TEST(OutputLists, HandBackTheIdsFollowedByABlank)
{
    SelectionFixture f;
    addVectorsOfAllRanges(f);
    f.dialog.UpdateCollection();
    f.dialog.GetPropertyList("Output", "AllElements");
    f.list.choose({"60010 - Solid Stress", "3012 - Beam Force"});

    f.dialog.Show();

    EXPECT_THAT(f.dialog.chosenEntries(), ElementsAre("3012 ", "60010 "));
    EXPECT_THAT(f.dialog.selectedFields, IsEmpty());
    EXPECT_THAT(f.dialog.fieldMembers, IsEmpty());
}

TEST(OutputLists, FollowTheModelWhenTheyAreReadAgain)
{
    SelectionFixture f;
    f.addVector(1, "Old");
    f.dialog.UpdateCollection();
    f.model().outputSets = {};
    f.addVector(2, "New");

    f.dialog.UpdateCollection();

    f.dialog.GetPropertyList("Output", "Node");
    EXPECT_THAT(itemsOf(f.dialog), ElementsAre("2 - New"));
}

TEST(OutputLists, GroupByTheOldNumberAndShowTheOneThatFemapGives)
{
    SelectionFixture f;
    for (const int id : {1, 2, 3, 4, 7500})
        f.addVector(id, "Vector");
    // A FEMAP that renumbered its vectors, gives one no old number and cannot load another.
    for (const int id : {1, 2, 7500})
        f.connector.answers["Output.classicID " + std::to_string(id)] = 8000 - id;
    f.connector.answers["Output.classicID 4"] = 0;
    f.connector.answers["Output.Get 3"] = femap::ReturnCode::Fail;

    f.dialog.UpdateCollection();

    f.dialog.GetPropertyList("Output", "PlateElement");
    EXPECT_THAT(itemsOf(f.dialog), ElementsAre("1 - Vector", "2 - Vector"));
    f.dialog.GetPropertyList("Output", "Node");
    EXPECT_THAT(itemsOf(f.dialog), ElementsAre("7500 - Vector"));
}

}  // namespace
}  // namespace selection
