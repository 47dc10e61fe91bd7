#include "selection/InputList.h"
#include "selection/SelectionFixture.h"
#include "system/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace selection
{
namespace
{

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

struct NameCase
{
    const char* field;
    const char* prefix;
    int id;
    const char* name;
};

class VariableName : public testing::TestWithParam<NameCase>
{};

TEST_P(VariableName, IsTheShortenedFieldAtTheEntity)
{
    const NameCase& given = GetParam();

    EXPECT_EQ(variableName(given.field, given.prefix, given.id), given.name);
}

INSTANTIATE_TEST_SUITE_P(
    Examples, VariableName,
    testing::Values(NameCase{"Thickness", "Prop", 12, "ThicknessAtProp12"},
                    NameCase{"ShearAr, K1", "Prop", 3, "ShearArK1AtProp3"},
                    NameCase{"NS Mass/Len", "Elem", 40, "NSMassLenAtElem40"},
                    NameCase{"Degrees of freedom 0", "Node", 7, "DegreesoffreedoAtNode7"},
                    NameCase{"Degrees of freedom 5", "Node", 7, "DegreesoffreedoAtNode7"},
                    NameCase{"Initial Tension", "Prop", 8, "InitialTensionAtProp8"},
                    NameCase{"FCFluidHeatCapacity", "LoadSet", 1, "FCFluidHeatCapaAtLoadSet1"},
                    NameCase{"x", "Node", 1234567, "xAtNode1234567"},
                    NameCase{"a-b/c d", "Node", 1, "abcdAtNode1"},
                    // The comma counts among the 15 and goes only afterwards.
                    NameCase{"123456789,123456789", "Node", 1, "12345678912345AtNode1"},
                    NameCase{"äöüäöüäöüäöüäöüäöü", "Node", 1, "äöüäöüäöüäöüäöüAtNode1"}));

const std::string restOfRow = "\told\tNode\t0\tx";

class UpdateInputListTest : public testing::Test
{
protected:
    SelectionFixture f;
};

TEST_F(UpdateInputListTest, AddsARowPerEntityAndField)
{
    f.addNodes({1, 2});

    f.selectInput("Nodes", {1, 2}, {"x", "outCSys"});

    EXPECT_THAT(f.rows(f.form.InputsList),
                ElementsAre("outCSysAtNode1\t0\tNode\t1\toutCSys\t",
                            "outCSysAtNode2\t0\tNode\t2\toutCSys\t", "xAtNode1\t1.5\tNode\t1\tx\t",
                            "xAtNode2\t2.5\tNode\t2\tx\t"));
}

TEST_F(UpdateInputListTest, GivesAnIndexedFieldItsIndexInTheLastCell)
{
    f.addProperties({{12, femap::elementPlate}});

    f.selectInput("Properties", {12}, {"Thickness", "Color", "NS Mass/Len", "Top Fiber"});

    EXPECT_THAT(f.rows(f.form.InputsList), ElementsAre("ColorAtProp12\t110\tProp\t12\tColor\t",
                                                       "NSMassLenAtProp12\t0.7\tProp\t12\tpval\t7",
                                                       "ThicknessAtProp12\t12\tProp\t12\tpval\t0",
                                                       "TopFiberAtProp12\t0.8\tProp\t12\tpval\t8"));
}

TEST_F(UpdateInputListTest, SortsTheRowsByTheTextOfTheirNames)
{
    f.addProperties({{9, femap::elementPlate}, {10, femap::elementPlate}});

    f.selectInput("Properties", {9, 10}, {"Thickness"});

    EXPECT_THAT(f.names(f.form.InputsList), ElementsAre("ThicknessAtProp10", "ThicknessAtProp9"));
    EXPECT_EQ(f.form.InputsList.Col, 0);
}

TEST_F(UpdateInputListTest, LogsEveryStepOfASelection)
{
    f.addNodes({7});
    f.pick({7});
    f.list.choose({"x", "y"});

    const Texts log = f.logOf([&] { f.selectInput("Nodes"); });

    EXPECT_THAT(log,
                ElementsAre("DEBUG: Before click of Select for input parameter",
                            "DEBUG: input selection is Nodes",
                            "DEBUG: Called the Form Property List for entity type=Node",
                            "DEBUG: Before updating input list", "DEBUG: Aquired FEMAP lock",
                            "DEBUG: called entity feNode", "DEBUG: Start iterating over ID",
                            "DEBUG: Got entity of id = 7",
                            "DEBUG: Iterating over property for each property names",
                            "DEBUG: Checking for duplicate entry in Input List",
                            "DEBUG: Added variable to Input list Variable Name=xAtNode7 value=7.5 "
                            "EntityType=Node ID=7",
                            "DEBUG: Checking for duplicate entry in Input List",
                            "DEBUG: Added variable to Input list Variable Name=yAtNode7 value=0 "
                            "EntityType=Node ID=7",
                            "DEBUG: Released FEMAP lock", "DEBUG: After updating input list",
                            "DEBUG: After click of Select for input parameter"));
}

TEST_F(UpdateInputListTest, WalksTheEntitiesEvenWithoutAField)
{
    f.addNodes({7, 8});
    f.pick({7, 8});
    f.list.chooseNone();

    const Texts log = f.logOf([&] { f.selectInput("Nodes"); });

    EXPECT_THAT(log, Contains("DEBUG: Aquired FEMAP lock"));
    EXPECT_THAT(log, Contains("DEBUG: Got entity of id = 7"));
    EXPECT_THAT(log, Contains("DEBUG: Got entity of id = 8"));
    EXPECT_THAT(f.names(f.form.InputsList), ElementsAre(""));
}

TEST_F(UpdateInputListTest, TakesOnlyEntitiesOfTheGivenType)
{
    f.addProperties({{1, femap::elementBeam}, {2, femap::elementPlate}, {3, femap::elementBeam}});
    const auto set = f.context.femap().feSet();
    set->AddAll(femap::EntityType::Property);

    const Texts log = f.logOf([&] {
        UpdateInputList(f.context, "Prop", set->ids(), {"Color"}, {{"Color", "Color"}}, {},
                        femap::elementBeam);
    });

    EXPECT_THAT(f.names(f.form.InputsList), ElementsAre("ColorAtProp1", "ColorAtProp3"));
    EXPECT_THAT(log, Not(Contains("DEBUG: Got entity of id = 2")));
}

TEST_F(UpdateInputListTest, RewindsTheSetBeforeItWalks)
{
    f.addNodes({1});
    const auto set = f.context.femap().feSet();
    set->AddAll(femap::EntityType::Node);
    while (set->Next() != 0)
        continue;

    UpdateInputList(f.context, "Node", set->ids(), {"x"}, {{"x", "x"}}, {});

    EXPECT_THAT(f.names(f.form.InputsList), ElementsAre("xAtNode1"));
}

TEST_F(UpdateInputListTest, LeavesFemapUnlockedAndThePointersNormal)
{
    f.addNodes({1});
    int locks = 0;
    int pointer = 0;
    f.watchFemap().before("Node.Get 1", [&] {
        locks = f.femap.lockCount;
        pointer = f.form.GenerateButton.MousePointer;
    });

    f.selectInput("Nodes", {1}, {"x"});

    EXPECT_EQ(locks, 1);
    EXPECT_EQ(pointer, form::pointerHourglass);
    EXPECT_EQ(f.femap.lockCount, 0);
    EXPECT_EQ(f.context.lockDepth, 0);
    EXPECT_EQ(f.form.GenerateButton.MousePointer, form::pointerDefault);
}

TEST_F(UpdateInputListTest, RemovesAVariableThatIsChosenAgain)
{
    f.addNodes({1, 2, 3});
    f.selectInput("Nodes", {1, 2, 3}, {"x"});
    f.pick({1});
    f.list.choose({"x"});

    const Texts log = f.logOf([&] { f.selectInput("Nodes"); });

    EXPECT_THAT(f.names(f.form.InputsList), ElementsAre("xAtNode2", "xAtNode3"));
    EXPECT_THAT(log, Contains("DEBUG: Deleted entry for xAtNode1from Input List").Times(1));
    EXPECT_THAT(log, Not(Contains(HasSubstr("Added variable"))));
    EXPECT_THAT(log, Not(Contains(HasSubstr("ERROR"))));
    EXPECT_FALSE(f.context.error.isPending());
}

TEST_F(UpdateInputListTest, ReplacesAVariableThatIsChosenAgainFromTheLastRow)
{
    f.addNodes({1, 2});
    f.selectInput("Nodes", {1, 2}, {"x"});
    f.model().nodes.find(2)->x = 20;
    f.pick({2});
    f.list.choose({"x"});

    const Texts log = f.logOf([&] { f.selectInput("Nodes"); });

    EXPECT_THAT(f.rows(f.form.InputsList),
                ElementsAre("xAtNode1\t1.5\tNode\t1\tx\t", "xAtNode2\t20\tNode\t2\tx\t"));
    EXPECT_THAT(log, Contains("DEBUG: Deleted entry for xAtNode2from Input List"));
}

TEST_F(UpdateInputListTest, KeepsAVariableThatIsChosenAgainAsTheOnlyRow)
{
    f.addNodes({1});
    f.selectInput("Nodes", {1}, {"x"});
    f.model().nodes.find(1)->x = 20;
    f.pick({1});
    f.list.choose({"x"});

    const Texts log = f.logOf([&] { f.selectInput("Nodes"); });

    EXPECT_THAT(f.rows(f.form.InputsList), ElementsAre("xAtNode1\t1.5\tNode\t1\tx\t"));
    EXPECT_THAT(log, Not(Contains(HasSubstr("Deleted entry"))));
    EXPECT_THAT(log, Not(Contains(HasSubstr("Added variable"))));
    EXPECT_THAT(log,
                Contains("DEBUG: Error occured After checking for duplicate entry in Input List"));
    EXPECT_THAT(log, Contains("ERROR: xAtNode1 is the last parameter row and cannot be removed"));
    EXPECT_FALSE(f.context.error.isPending());
}

struct DuplicateCase
{
    Texts before;
    Texts after;  // choosing x of node 1
    int deleted;
};

class InputDuplicates : public testing::TestWithParam<DuplicateCase>
{};

TEST_P(InputDuplicates, AreRemovedRowByRowWithoutLookingAtTheRowThatMovesUp)
{
    SelectionFixture f;
    f.addNodes({1});
    fill(f.form.InputsList, GetParam().before, restOfRow);
    f.pick({1});
    f.list.choose({"x"});

    const Texts log = f.logOf([&] { f.selectInput("Nodes"); });

    EXPECT_EQ(f.names(f.form.InputsList), GetParam().after);
    EXPECT_THAT(
        log,
        Contains("DEBUG: Deleted entry for xAtNode1from Input List").Times(GetParam().deleted));
}

const std::string same = "xAtNode1";
INSTANTIATE_TEST_SUITE_P(
    IDIndex, InputDuplicates,
    testing::Values(
        DuplicateCase{{same, "z"}, {"z"}, 1}, DuplicateCase{{"a", same}, {"a", same}, 1},
        DuplicateCase{{same, same, "z"}, {same, "z"}, 1},
        DuplicateCase{{"a", same, same}, {"a", same}, 1}, DuplicateCase{{same, same}, {same}, 1},
        DuplicateCase{{same, "a", same}, {"a"}, 2}, DuplicateCase{{same, same, same}, {same}, 2},
        DuplicateCase{{"xAtNode11", "XAtNode1"}, {"XAtNode1", same, "xAtNode11"}, 0}));

TEST_F(UpdateInputListTest, LetsFieldsOfTheSameShortenedNameReplaceEachOther)
{
    femap::neutral::Material material;
    material.id = 1;
    f.model().materials.put(material);

    f.selectInput("Materials", {1}, {"CompressionLimit1", "CompressionLimit2"});

    EXPECT_THAT(f.rows(f.form.InputsList),
                ElementsAre("CompressionLimiAtMatl1\t0\tMatl\t1\tCompressionLimit2\t"));
}

TEST_F(UpdateInputListTest, GivesAnEmptyValueToAFieldThatFemapRefuses)
{
    f.addElements({{1, femap::elementPlate}});
    f.pick({1});
    f.list.choose({"orientID", "topology"});

    const Texts log = f.logOf([&] { f.selectInput("Elements"); });

    EXPECT_THAT(f.rows(f.form.InputsList), ElementsAre("orientIDAtElem1\t\tElem\t1\torient\t11",
                                                       "topologyAtElem1\t0\tElem\t1\ttopology\t"));
    EXPECT_THAT(log, Contains("DEBUG: Added variable to Input list Variable Name=orientIDAtElem1 "
                              "value= EntityType=Elem ID=1"));
    EXPECT_THAT(log, Contains("DEBUG: Error occured After reading orient"));
    EXPECT_THAT(log, Not(Contains(HasSubstr("After reading topology"))));
}

TEST_F(UpdateInputListTest, SkipsAnEntityThatFemapLacks)
{
    f.addNodes({1, 2});
    const auto set = f.context.femap().feSet();
    set->AddAll(femap::EntityType::Node);
    f.model().nodes = {};
    f.addNodes({2});

    const Texts log = f.logOf([&] {
        UpdateInputList(f.context, "Node", set->ids(), {"x"}, {{"x", "x"}}, {});
    });

    EXPECT_THAT(f.names(f.form.InputsList), ElementsAre("xAtNode2"));
    EXPECT_THAT(log, Contains("ERROR: FEMAP has no Node with the ID 1"));
    EXPECT_THAT(log, Not(Contains("DEBUG: Got entity of id = 1")));
}

TEST_F(UpdateInputListTest, SkipsAnEntityThatFemapLacksEvenWithTheLogOff)
{
    f.context.log.DeinitialiseLogger();
    f.addNodes({1});
    const auto set = f.context.femap().feSet();
    set->AddAll(femap::EntityType::Node);
    f.model().nodes = {};

    UpdateInputList(f.context, "Node", set->ids(), {"x"}, {{"x", "x"}}, {});

    EXPECT_THAT(f.names(f.form.InputsList), ElementsAre(""));
}

class InputListFailure : public testing::TestWithParam<const char*>
{};

TEST_P(InputListFailure, EndsTheUpdate)
{
    SelectionFixture f;
    f.addProperties({{1, femap::elementBeam}});
    const auto set = f.context.femap().feSet();
    set->AddAll(femap::EntityType::Property);
    f.watchFemap().failAt(GetParam());

    EXPECT_THROW(UpdateInputList(f.context, "Prop", set->ids(), {"Color"}, {{"Color", "Color"}}, {},
                                 femap::elementBeam),
                 sys::RuntimeError);

    EXPECT_THAT(f.log(), Not(Contains("DEBUG: After updating input list")));
}

INSTANTIATE_TEST_SUITE_P(Calls, InputListFailure,
                         testing::Values("feAppLock", "entity Prop", "Prop.Get 1", "Prop.Type 1",
                                         "feAppUnlock"));

TEST_F(UpdateInputListTest, NeedsFemap)
{
    const auto set = f.context.femap().feSet();
    f.context.application.reset();

    EXPECT_THROW(UpdateInputList(f.context, "Node", set->ids(), {}, {}, {}), sys::RuntimeError);
}

TEST_F(UpdateInputListTest, RefusesAnIndexThatIsNoNumber)
{
    f.addNodes({1});
    const auto set = f.context.femap().feSet();
    set->AddAll(femap::EntityType::Node);

    EXPECT_THROW(
        UpdateInputList(f.context, "Node", set->ids(), {"x"}, {{"x", "x"}}, {{"x", "first"}}),
        sys::RuntimeError);
}

TEST_F(UpdateInputListTest, ShowsHowFarALongWalkHasCome)
{
    std::vector<int> ids;
    for (int id = 1; id <= 1024; ++id)
        ids.push_back(id);
    f.addNodes(ids);
    Texts captions;
    fake::CallWatch& femap = f.watchFemap();
    femap.before("Get", [&] {
        f.seconds += 0.005;
        if (femap.calls.back() == "Node.Get 1000")
            captions.push_back(f.form.StatusLine.Caption);
    });

    f.selectInput("Nodes", ids, {"x"});

    EXPECT_THAT(captions, ElementsAre("Reading inputs … 75 %"));
    EXPECT_EQ(f.femap.statusMaximum, 0);
    EXPECT_EQ(f.form.StatusLine.Caption, "");
}

}  // namespace
}  // namespace selection
