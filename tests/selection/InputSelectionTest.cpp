#include "selection/SelectionFixture.h"
#include "system/RuntimeError.h"

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

struct KindCase
{
    const char* choice;
    EntityType type;
    const char* title;
    const char* heading;
    const char* field;
    const char* row;
};

class EntityKinds : public testing::TestWithParam<KindCase>
{};

TEST_P(EntityKinds, ArePickedInFemapAndGetTheirFields)
{
    const KindCase& kind = GetParam();
    SelectionFixture f;
    f.addNodes({5});
    f.addElements({{5, femap::elementBeam}});
    f.addProperties({{5, femap::elementBeam}});
    femap::neutral::Material material;
    material.id = 5;
    f.model().materials.put(material);

    f.selectInput(kind.choice, {5}, {kind.field});

    EXPECT_THAT(f.dialogs.asked, ElementsAre(AllOf(testing::Field(&Asked::type, kind.type),
                                                   testing::Field(&Asked::title, kind.title),
                                                   testing::Field(&Asked::onlyOne, false))));
    EXPECT_THAT(f.headings(), ElementsAre(kind.heading));
    EXPECT_THAT(f.rows(f.form.InputsList), ElementsAre(kind.row));
    EXPECT_EQ(f.form.returnCode, -1);
}

INSTANTIATE_TEST_SUITE_P(
    EveryKind, EntityKinds,
    testing::Values(KindCase{"Nodes", EntityType::Node, "Select Nodes to Control",
                             "Node Properties", "x", "xAtNode5\t5.5\tNode\t5\tx\t"},
                    KindCase{"Elements", EntityType::Element, "Select Elements to Control",
                             "Element Properties", "node2", "node2AtElem5\t0\tElem\t5\tnode\t1"},
                    KindCase{"Properties", EntityType::Property, "Select Properties to Control",
                             "Beam Properties", "I12", "I12AtProp5\t0.3\tProp\t5\tpval\t3"},
                    KindCase{"Materials", EntityType::Material, "Select Materials to Control",
                             "Material Properties", "Ex", "ExAtMatl5\t0\tMatl\t5\tEx\t"}));

struct PropertyTypeCase
{
    int type;
    const char* heading;
};

class PropertyTypes : public testing::TestWithParam<PropertyTypeCase>
{};

TEST_P(PropertyTypes, HaveTheirFieldList)
{
    SelectionFixture f;
    f.addProperties({{1, GetParam().type}});
    f.pick({1});

    f.selectInput("Properties");

    EXPECT_THAT(f.headings(), ElementsAre(GetParam().heading));
}

INSTANTIATE_TEST_SUITE_P(EveryType, PropertyTypes,
                         testing::Values(PropertyTypeCase{11, "Undefined Property"},
                                         PropertyTypeCase{12, "Undefined Property"},
                                         PropertyTypeCase{2, "Bar Properties"},
                                         PropertyTypeCase{5, "Beam Properties"},
                                         PropertyTypeCase{17, "Plate Properties"},
                                         PropertyTypeCase{18, "Plate Properties"},
                                         PropertyTypeCase{1, "Rod Properties"},
                                         PropertyTypeCase{25, "Undefined Property"},
                                         PropertyTypeCase{0, "Undefined Property"}),
                         [](const auto& each) { return "Type" + std::to_string(each.param.type); });

class InputSelection : public testing::Test
{
protected:
    SelectionFixture f;
};

TEST_F(InputSelection, OffersAShearPanelOnlyTheCommonFields)
{
    f.addProperties({{1, femap::elementShear}});
    f.pick({1});

    f.selectInput("Properties");

    EXPECT_THAT(f.list.shown[0].items, ElementsAre("Color", "layer", "type", "matlID", "refCS"));
}

TEST_F(InputSelection, AsksOncePerTypeOfProperty)
{
    f.addProperties({{1, femap::elementBeam},
                     {2, femap::elementPlate},
                     {3, femap::elementBeam},
                     {4, femap::elementPlate},
                     {5, femap::elementBeam}});
    f.pick({1, 2, 3, 4, 5});
    f.list.choose({"J"});
    f.list.choose({"Thickness"});

    f.selectInput("Properties");

    EXPECT_THAT(f.headings(), ElementsAre("Beam Properties", "Plate Properties"));
    EXPECT_THAT(f.names(f.form.InputsList), ElementsAre("JAtProp1", "JAtProp3", "JAtProp5",
                                                        "ThicknessAtProp2", "ThicknessAtProp4"));
}

TEST_F(InputSelection, AsksInTheOrderInWhichTheTypesAppear)
{
    f.addProperties(
        {{1, femap::elementPlateParabolic}, {2, femap::elementRod}, {3, femap::elementPlate}});
    f.pick({1, 2, 3});

    f.selectInput("Properties");

    EXPECT_THAT(f.headings(),
                ElementsAre("Plate Properties", "Rod Properties", "Plate Properties"));
}

TEST_F(InputSelection, LogsEveryStepOfAPropertySelection)
{
    f.addProperties({{1, femap::elementRod}, {2, 99}});
    f.pick({1, 2});
    f.list.choose({"Ctors"});

    const Texts log = f.logOf([&] { f.selectInput("Properties"); });

    EXPECT_THAT(
        log, ElementsAre("DEBUG: Before click of Select for input parameter",
                         "DEBUG: input selection is Properties", "DEBUG: Got entity of id = 1",
                         "DEBUG: Got entity of id = 2",
                         "DEBUG: Called the Form Property List for entity type=Prop",
                         "DEBUG: Before updating input list", "DEBUG: Aquired FEMAP lock",
                         "DEBUG: called entity feProp", "DEBUG: Start iterating over ID",
                         "DEBUG: Got entity of id = 1",
                         "DEBUG: Iterating over property for each property names",
                         "DEBUG: Checking for duplicate entry in Input List",
                         "DEBUG: Added variable to Input list Variable Name=CtorsAtProp1 value=0.5 "
                         "EntityType=Prop ID=1",
                         "DEBUG: Released FEMAP lock", "DEBUG: After updating input list",
                         "DEBUG: Called the Form Property List for entity type=Prop",
                         "DEBUG: Before updating input list", "DEBUG: Aquired FEMAP lock",
                         "DEBUG: called entity feProp", "DEBUG: Start iterating over ID",
                         "DEBUG: Got entity of id = 2",
                         "DEBUG: Iterating over property for each property names",
                         "DEBUG: Released FEMAP lock", "DEBUG: After updating input list",
                         "DEBUG: After click of Select for input parameter"));
}

TEST_F(InputSelection, DoesNothingWhenTheEngineerPicksNothing)
{
    f.addNodes({1});
    f.dialogs.answers.push_back({femap::ReturnCode::Cancel, {}});

    const Texts log = f.logOf([&] { f.selectInput("Nodes"); });

    EXPECT_THAT(log, ElementsAre("DEBUG: Before click of Select for input parameter",
                                 "DEBUG: input selection is Nodes",
                                 "DEBUG: After click of Select for input parameter"));
    EXPECT_EQ(f.form.returnCode, 2);
    EXPECT_THAT(f.list.shown, IsEmpty());
    EXPECT_THAT(f.messages(), IsEmpty());
}

TEST_F(InputSelection, AddsNoRowsWhenThePropertyListIsCancelled)
{
    f.addNodes({1});
    f.pick({1});
    f.list.cancel();

    const Texts log = f.logOf([&] { f.selectInput("Nodes"); });

    EXPECT_THAT(log, Contains("DEBUG: After updating input list"));
    EXPECT_THAT(f.names(f.form.InputsList), ElementsAre(""));
}

class UnsupportedKinds : public testing::TestWithParam<const char*>
{};

TEST_P(UnsupportedKinds, AreToldToTheEngineer)
{
    SelectionFixture f;
    const std::string message = GetParam() + std::string(" type not currently supported");

    const Texts log = f.logOf([&] { f.selectInput(GetParam()); });

    EXPECT_THAT(
        log, ElementsAre("DEBUG: Before click of Select for input parameter",
                         "DEBUG: input selection is " + std::string(GetParam()),
                         "DEBUG: " + message, "DEBUG: After click of Select for input parameter"));
    EXPECT_THAT(f.messages(), ElementsAre(message));
    EXPECT_EQ(f.femap.messages[0].colour, femap::MessageColour::Error);
    EXPECT_THAT(f.dialogs.asked, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Texts, UnsupportedKinds, testing::Values("Curves", "nodes", "Nodes ", ""));

TEST_F(InputSelection, HandsFunctionsToTheirOwnProcedure)
{
    const Texts log = f.logOf([&] { f.selectInput("Functions"); });

    EXPECT_THAT(log, Contains("DEBUG: End of fetching function data"));
    EXPECT_EQ(log.back(), "DEBUG: After click of Select for input parameter");
    EXPECT_THAT(f.dialogs.asked, ElementsAre(testing::Field(&Asked::type, EntityType::Function)));
    EXPECT_THAT(f.list.shown, IsEmpty());
}

TEST_F(InputSelection, HandsLoadDefinitionsToTheirOwnProcedure)
{
    const Texts log = f.logOf([&] { f.selectInput("LoadDefinition"); });

    EXPECT_THAT(log, Contains("DEBUG: After fetching load definition data"));
    EXPECT_EQ(log.back(), "DEBUG: After click of Select for input parameter");
    EXPECT_THAT(f.dialogs.asked, Not(Contains(testing::Field(&Asked::type, EntityType::Node))));
    EXPECT_THAT(f.list.shown, IsEmpty());
}

TEST_F(InputSelection, EndsWhenTheListOfAnyOtherKindFails)
{
    f.addNodes({1});
    f.connector.failAtFirst("attach");
    f.pick({1});

    EXPECT_THROW(f.selectInput("Nodes"), sys::RuntimeError);

    EXPECT_THAT(f.list.shown, IsEmpty());
    EXPECT_THAT(f.log(), Not(Contains(HasSubstr("After click"))));
}

}  // namespace
}  // namespace selection
