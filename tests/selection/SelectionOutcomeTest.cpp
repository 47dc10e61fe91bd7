#include "selection/OutcomeFixture.h"

namespace selection
{
namespace
{

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

TEST_F(SelectionOutcome, TellsOfEntitiesThatFemapRefuses)
{
    LevelledLog log(f, "DEBUG");
    f.watchFemap().before("entity Node", [&] {
        f.model().nodes = {};
        f.addNodes({1, 3});
    });

    selectInputs("Nodes", {1, 2, 3}, {"x", "y"});

    EXPECT_THAT(inputs(), ElementsAre("xAtNode1", "xAtNode3", "yAtNode1", "yAtNode3"));
    expectTold(log, "1 of 3 entities could not be read; it has no rows");
    EXPECT_THAT(log.lines(), AllOf(Contains("DEBUG: Error occured Reading Node"),
                                   Contains("FEMAP has no Node with the ID 2")));
}

TEST_F(SelectionOutcome, CountsAPropertyOnceThatIsMetForEachKind)
{
    f.addProperties({{1, femap::elementPlate}, {2, femap::elementRod}, {3, femap::elementRod}});
    f.watchFemap().before("entity Prop", [&] {
        f.model().properties = {};
        f.addProperties({{1, femap::elementPlate}, {2, femap::elementRod}});
    });
    f.list.choose({"Thickness"});

    selectInputs("Properties", {1, 2, 3}, {"Area"});

    EXPECT_THAT(inputs(), ElementsAre("AreaAtProp2", "ThicknessAtProp1"));
    EXPECT_EQ(status(), "1 of 3 entities could not be read; it has no rows");
}

TEST_F(SelectionOutcome, TellsOfVectorsThatFemapRefuses)
{
    LevelledLog log(f, "INFO");
    f.watchFemap().before("feOutput", [&] { f.model().outputSets.find(1)->vectors = {}; });

    selectOutputs("Nodes", {1, 2}, {"1 - Total Translation"});

    const std::string message = "1 of 1 output vectors could not be read; it has no rows";
    EXPECT_THAT(f.messages(), ElementsAre(message));
    EXPECT_EQ(status(), message);
    EXPECT_THAT(log.lines(), Contains("FEMAP has no output vector with the ID 1"));
}

TEST_F(SelectionOutcome, OnlyCountsValuesThatTheResultsDoNotHave)
{
    const Texts log = f.logOf([&] {
        selectOutputs("Nodes", {1, 2, 3}, {"1 - Total Translation"});
    });

    EXPECT_THAT(outputs(), ElementsAre("TotalTrans1AtNode1", "TotalTrans1AtNode2"));
    expectHint("No row for 1 value that the results do not have");
    EXPECT_THAT(log, Not(Contains(HasSubstr("Error occured"))));
}

TEST_F(SelectionOutcome, CountsRowsWithoutAValue)
{
    f.model().materials.put({.id = 1, .title = "Steel", .mval = {1.0}});

    selectInputs("Materials", {1}, {"Alphaxz"});

    expectHint("Rows without a value: 1");
}

TEST_F(SelectionOutcome, IsNotToldWhenAllWentWell)
{
    selectInputs("Nodes", {1, 2}, {"x"});
    expectHint("");

    selectOutputs("Nodes", {1, 2}, {"1 - Total Translation"});
    expectHint("");
}

class NoRow : public SelectionOutcome
{};

TEST_F(NoRow, WhenNothingIsPicked)
{
    for (const char* kind : {"Nodes", "Elements", "Properties", "Materials"}) {
        f.form.status.clear();
        f.selectInput(kind);
        expectHint("No row was added: nothing was picked in FEMAP");
    }
    for (const char* kind : {"Nodes", "Elements"}) {
        f.form.status.clear();
        f.selectOutput(kind);
        expectHint("No row was added: nothing was picked in FEMAP");
    }
}

TEST_F(NoRow, WhenTheModelHasNothingOfTheKind)
{
    f.dialogs.answers.push_back({femap::ReturnCode::NotExist, {}});

    f.selectInput("Materials");

    expectHint("No row was added: the model has nothing of this kind");
}

TEST_F(NoRow, WhenFemapsDialogFails)
{
    f.dialogs.answers.push_back({femap::ReturnCode::Fail, {}});
    LevelledLog log(f, "DEBUG");

    f.selectInput("Materials");

    expectTold(log, "FEMAP's selection failed (FEMAP's code 0)");
}

TEST_F(NoRow, WhenNothingIsChosenInTheList)
{
    const std::string hint = "No row was added: nothing was chosen in the list";

    selectInputs("Nodes", {1}, {});
    expectHint(hint);
    selectOutputs("Nodes", {1}, {});
    expectHint(hint);
    selectOutputs("Nodes Min/Max", {}, {});
    expectHint(hint);
    f.model().elements = {};  // of which the model host would tell that it cannot weigh them
    selectOutputs("Mass Properties", {}, {});
    expectHint(hint);
}

TEST_F(NoRow, WhenTheListIsEmpty)
{
    selectOutputs("Elements Min/Max", {}, {});

    expectHint("No row was added: there is nothing of this kind to choose");
}

TEST_F(NoRow, WhenTheRowWasThereAndIsTakenOut)
{
    selectInputs("Nodes", {1, 2, 3}, {"x"});

    selectInputs("Nodes", {1}, {"x"});

    EXPECT_THAT(inputs(), ElementsAre("xAtNode2", "xAtNode3"));
    expectHint("xAtNode1 was in the list and is taken out; choose it again to have it");
}

TEST_F(NoRow, WhenSeveralWereThereAndAreTakenOut)
{
    selectInputs("Nodes", {1, 2, 3}, {"x"});

    selectInputs("Nodes", {1, 2}, {"x"});

    expectHint("2 rows were in the list and are taken out; choose them again to have them");
}

TEST_F(NoRow, WhenTheOnlyInputIsChosenAgain)
{
    selectInputs("Nodes", {1}, {"x"});
    LevelledLog log(f, "DEBUG");

    selectInputs("Nodes", {1}, {"x"});

    EXPECT_THAT(inputs(), ElementsAre("xAtNode1"));
    expectHint("xAtNode1 is the only row and stays as it is");
    EXPECT_THAT(log.lines(), Contains("DEBUG: xAtNode1 is the only row and stays as it is"));
}

TEST_F(NoRow, WhenTheOnlyOutputIsChosenAgain)
{
    selectOutputs("Nodes", {1}, {"1 - Total Translation"});
    f.model().outputSets.find(1)->vectors.find(1)->values[0] = 9;
    LevelledLog log(f, "DEBUG");

    selectOutputs("Nodes", {1}, {"1 - Total Translation"});

    EXPECT_EQ(f.form.OutputsList.text(1, 1), "0.5");
    expectHint("TotalTrans1AtNode1 is the only row and stays as it is");
    EXPECT_THAT(log.lines(),
                Contains("DEBUG: TotalTrans1AtNode1 is the only row and stays as it is"));
}

TEST_F(NoRow, WhenTheOutputBoxHoldsAnUnknownText)
{
    const Texts log = f.logOf([&] { f.selectOutput("nodes"); });

    expectHint("nodes type not currently supported");
    EXPECT_THAT(log, Not(Contains(HasSubstr("supported"))));
}

}  // namespace
}  // namespace selection
