#include "selection/SelectionFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace selection
{
namespace
{

using femap::EntityType;
using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using Asked = fake::QueuedDialogs::Asked;

class OutputSelection : public testing::Test
{
protected:
    SelectionFixture f;

    // Three nodes and vectors of several kinds.
    void SetUp() override
    {
        f.addNodes({1, 2, 3});
        f.addVector(1, "Total Translation", {1, 2, 3}, {0.5, 1.5, 2.5});
        f.addVector(7020, "Plate Stress", {10, 11, 12, 13}, {1, 2, 3, 4});
        f.addVector(60010, "Solid Stress", {10, 11, 12, 13}, {5, 6, 7, 8});
        f.dialog.UpdateCollection();
    }
};

TEST_F(OutputSelection, LogsEveryStepForNodes)
{
    f.pick({2});
    f.list.choose({"1 - Total Translation"});

    const Texts log = f.logOf([&] { f.selectOutput("Nodes"); });

    EXPECT_THAT(log,
                ElementsAre("DEBUG: Position at At start of OutputsButton_Click",
                            "DEBUG: output selection is Nodes",
                            "DEBUG: No Error found Before updating output list",
                            "DEBUG: Acquired Femap lock", "DEBUG:  Output title is  And Id is 0",
                            "DEBUG: Got entity of id = 1", "DEBUG: Got entity of id = 2",
                            "DEBUG: Before checking for duplicate entry in Output List",
                            "DEBUG: After checking for duplicate entry in Output List",
                            "DEBUG: Added variable to Output list Variable "
                            "Name=TotalTrans1AtNode2 value=1.5",
                            "DEBUG: Released FEMAP lock", "DEBUG: After updating output list",
                            "DEBUG: Called update output list for Node",
                            "DEBUG: Position at At end of OutputsButton_Click"));
    EXPECT_THAT(f.dialogs.asked,
                ElementsAre(AllOf(testing::Field(&Asked::type, EntityType::Node),
                                  testing::Field(&Asked::title, "Select Nodes to Analyze"),
                                  testing::Field(&Asked::onlyOne, false))));
    EXPECT_THAT(f.headings(), ElementsAre("Node Output Properties"));
    EXPECT_EQ(f.form.returnCode, -1);
}

TEST_F(OutputSelection, ReportsExtremesOfNodesWithoutPicking)
{
    f.list.choose({"1 - Total Translation"});

    const Texts log = f.logOf([&] { f.selectOutput("Nodes Min/Max"); });

    EXPECT_THAT(f.dialogs.asked, IsEmpty());
    EXPECT_THAT(f.headings(), ElementsAre("Node Output Properties"));
    EXPECT_THAT(f.names(f.form.OutputsList),
                ElementsAre("TotalTranslatiMaxAtNode1", "TotalTranslatiMinAtNode1"));
    EXPECT_THAT(log, Contains("DEBUG: Called update output list for Node"));
    EXPECT_EQ(log.back(), "DEBUG: Position at At end of OutputsButton_Click");
}

TEST_F(OutputSelection, ReportsExtremesOfElementsWithoutPicking)
{
    f.list.choose({"7020 - Plate Stress"});

    const Texts log = f.logOf([&] { f.selectOutput("Elements Min/Max"); });

    EXPECT_THAT(f.dialogs.asked, IsEmpty());
    EXPECT_THAT(f.headings(), ElementsAre("All Element Output Properties"));
    EXPECT_THAT(f.names(f.form.OutputsList),
                ElementsAre("PlateStressMaxAtElem7020", "PlateStressMinAtElem7020"));
    EXPECT_THAT(log, Contains("DEBUG: Called update output list for entity type=Elem"));
    EXPECT_EQ(log.back(), "DEBUG: Position at At end of OutputsButton_Click");
}

TEST_F(OutputSelection, AsksOncePerTypeOfElement)
{
    f.addElements({{10, femap::elementSolid},
                   {11, femap::elementPlate},
                   {12, femap::elementSolid},
                   {13, femap::elementPlate}});
    f.pick({10, 11, 12, 13});
    f.list.choose({"60010 - Solid Stress"});
    f.list.choose({"7020 - Plate Stress"});

    const Texts log = f.logOf([&] { f.selectOutput("Elements"); });

    EXPECT_THAT(f.dialogs.asked,
                ElementsAre(AllOf(testing::Field(&Asked::type, EntityType::Element),
                                  testing::Field(&Asked::title, "Select Elements to Analyze"))));
    EXPECT_THAT(f.headings(),
                ElementsAre("Solid Element Output Properties", "Plate Element Output Properties"));
    EXPECT_THAT(f.names(f.form.OutputsList),
                ElementsAre("SolidStres60010AtElem10", "SolidStres60010AtElem12",
                            "PlateStres7020AtElem11", "PlateStres7020AtElem13"));
    EXPECT_THAT(log, Not(Contains(HasSubstr("Called update output list"))));
    EXPECT_EQ(log.back(), "DEBUG: Position at At end of OutputsButton_Click");
}

TEST_F(OutputSelection, AsksForEachTypeEvenOfOneCategory)
{
    f.addElements({{10, femap::elementPlate}, {11, femap::elementPlateParabolic}});
    f.pick({10, 11});

    f.selectOutput("Elements");

    EXPECT_THAT(f.headings(),
                ElementsAre("Plate Element Output Properties", "Plate Element Output Properties"));
}

struct CategoryCase
{
    int type;
    const char* heading;
};

class ElementCategories : public testing::TestWithParam<CategoryCase>
{};

TEST_P(ElementCategories, HaveTheirOutputList)
{
    SelectionFixture f;
    f.addElements({{10, GetParam().type}});
    f.addVector(1, "V");
    f.pick({10});

    f.selectOutput("Elements");

    EXPECT_THAT(f.headings(), ElementsAre(GetParam().heading));
}

INSTANTIATE_TEST_SUITE_P(EveryType, ElementCategories,
                         testing::Values(CategoryCase{11, "Shear Panel Output Properties"},
                                         CategoryCase{12, "Shear Panel Output Properties"},
                                         CategoryCase{21, "Laminate Element Output Properties"},
                                         CategoryCase{22, "Laminate Element Output Properties"},
                                         CategoryCase{2, "Line Element Output Properties"},
                                         CategoryCase{5, "Line Element Output Properties"},
                                         CategoryCase{17, "Plate Element Output Properties"},
                                         CategoryCase{18, "Plate Element Output Properties"},
                                         CategoryCase{1, "Line Element Output Properties"},
                                         CategoryCase{26, "Solid Element Output Properties"},
                                         CategoryCase{25, "Solid Element Output Properties"},
                                         CategoryCase{27, "Undefined Output Property"},
                                         CategoryCase{0, "Undefined Output Property"}),
                         [](const auto& each) { return "Type" + std::to_string(each.param.type); });

class WithoutResults : public testing::TestWithParam<const char*>
{};

TEST_P(WithoutResults, TellTheEngineerAndDoNothing)
{
    SelectionFixture f;
    f.addNodes({1});
    const std::string message = "Cannot select outputs without results loaded";

    const Texts log = f.logOf([&] { f.selectOutput(GetParam()); });

    EXPECT_THAT(log, ElementsAre("DEBUG: Position at At start of OutputsButton_Click",
                                 "ERROR: " + message));
    EXPECT_THAT(f.messages(), ElementsAre(message));
    EXPECT_EQ(f.femap.messages[0].colour, femap::MessageColour::Error);
    EXPECT_THAT(f.dialogs.asked, IsEmpty());
    EXPECT_THAT(f.list.shown, IsEmpty());
    EXPECT_THAT(f.names(f.form.OutputsList), ElementsAre(""));
}

INSTANTIATE_TEST_SUITE_P(EveryChoice, WithoutResults,
                         testing::Values("Nodes", "Nodes Min/Max", "Elements", "Elements Min/Max",
                                         "Mass Properties", "Anything"));

TEST_F(OutputSelection, LogsEveryStepForMassPropertiesWithoutAClosingLine)
{
    f.list.choose({"Length", "TotalCG"});

    const Texts log = f.logOf([&] { f.selectOutput("Mass Properties"); });

    EXPECT_THAT(f.headings(), ElementsAre("Total Mesh Properties"));
    EXPECT_THAT(f.names(f.form.OutputsList),
                ElementsAre("TotalLength", "TotalCGx", "TotalCGy", "TotalCGz"));
    EXPECT_THAT(
        log, ElementsAre(
                 "DEBUG: Position at At start of OutputsButton_Click",
                 "DEBUG: output selection is Mass Properties",
                 "DEBUG: No Error found Before updating output list", "DEBUG: Acquired Femap lock",
                 "DEBUG: Found MeshMass entity type", "DEBUG: Called elemSet.AddAll(8)",
                 "DEBUG: Called feMeasureMeshMassProp to compute total mass values",
                 "DEBUG: Added variable to Output list Variable Name=TotalLength  value=0",
                 "DEBUG: Added variable to Output list Variable Name=TotalCG  value: x=0 y=0 "
                 "z=0",
                 "DEBUG: Released FEMAP lock", "DEBUG: After updating output list"));
}

TEST_F(OutputSelection, LeavesAtOnceForAnUnknownText)
{
    const Texts log = f.logOf([&] { f.selectOutput("nodes"); });

    EXPECT_THAT(log, ElementsAre("DEBUG: Position at At start of OutputsButton_Click",
                                 "DEBUG: output selection is nodes"));
    EXPECT_THAT(f.messages(), IsEmpty());
}

class CancelledPick : public testing::TestWithParam<const char*>
{};

TEST_P(CancelledPick, ShowsNoListAndAddsNothing)
{
    SelectionFixture f;
    f.addNodes({1});
    f.addElements({{1, femap::elementPlate}});
    f.addVector(1, "V");
    f.dialogs.answers.push_back({femap::ReturnCode::Cancel, {}});

    const Texts log = f.logOf([&] { f.selectOutput(GetParam()); });

    EXPECT_THAT(log, ElementsAre("DEBUG: Position at At start of OutputsButton_Click",
                                 "DEBUG: output selection is " + std::string(GetParam()),
                                 "DEBUG: Position at At end of OutputsButton_Click"));
    EXPECT_EQ(f.form.returnCode, 2);
    EXPECT_THAT(f.list.shown, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(WithEntities, CancelledPick, testing::Values("Nodes", "Elements"));

TEST_F(OutputSelection, ReplacesANodeAndVectorThatAreChosenTwice)
{
    for (int i = 0; i < 2; ++i) {
        f.pick({1, 2});
        f.list.choose({"1 - Total Translation"});
        f.selectOutput("Nodes");
    }

    EXPECT_THAT(f.names(f.form.OutputsList),
                ElementsAre("TotalTrans1AtNode1", "TotalTrans1AtNode2"));
}

TEST_F(OutputSelection, AddsNoRowsWhenTheListIsCancelled)
{
    f.pick({1});
    f.list.cancel();

    const Texts log = f.logOf([&] { f.selectOutput("Nodes"); });

    EXPECT_THAT(log, Contains("DEBUG: After updating output list"));
    EXPECT_THAT(f.names(f.form.OutputsList), ElementsAre(""));
}

}  // namespace
}  // namespace selection
