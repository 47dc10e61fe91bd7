#include "selection/OutcomeFixture.h"
#include "system/RuntimeError.h"

namespace selection
{
namespace
{

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class SeveralKinds : public SelectionOutcome
{
protected:
    // What the status line says while each list is open.
    Texts captions;

    void answerLists(int count)
    {
        for (int i = 0; i < count; ++i)
            f.list.answer([this](frmPropertyList& dialog) {
                captions.push_back(status());
                dialog.cmdCancel_Click();
            });
    }
};

TEST_F(SeveralKinds, OfElementsAreNamedWhileTheirListIsOpen)
{
    f.addElements({{12, 77}});
    f.addVector(7020, "Plate Stress");
    f.pick({10, 11, 12});
    answerLists(3);

    f.selectOutput("Elements");

    EXPECT_THAT(captions,
                ElementsAre("The list is for plate elements", "The list is for rod elements",
                            "The list is for elements of type 77"));
    EXPECT_EQ(f.host.progressShown, 3);
    expectHint("No row was added: nothing was chosen in the list");
}

TEST_F(SeveralKinds, OfPropertiesAreNamedWhileTheirListIsOpen)
{
    f.addProperties({{1, femap::elementPlateParabolic}, {2, femap::elementShear}});
    f.pick({1, 2});
    answerLists(2);

    f.selectInput("Properties");

    EXPECT_THAT(captions, ElementsAre("The list is for parabolic plate properties",
                                      "The list is for shear panel properties"));
}

TEST_F(SeveralKinds, AreNotNamedWhenThereIsOne)
{
    f.addProperties({{1, femap::elementPlate}, {2, femap::elementPlate}});
    f.pick({1, 2});
    answerLists(1);

    f.selectInput("Properties");

    EXPECT_THAT(captions, ElementsAre(""));
}

TEST_F(SeveralKinds, LeaveNoNameBehindWhenTheListBreaksDown)
{
    f.pick({10});
    f.list.answer([](frmPropertyList&) {
        throw sys::RuntimeError(sys::ErrorNumber::ObjectFailed, "no list");
    });

    f.selectOutput("Elements");

    EXPECT_EQ(status(), "no list");
    EXPECT_THAT(f.messages(), ElementsAre("no list"));
}

class ListOfResults : public SelectionOutcome
{
protected:
    void SetUp() override
    {
        f.addNodes({1});
        f.dialog.UpdateCollection();  // as at the start, without results
    }
    Texts offered()
    {
        f.list.shown.clear();
        f.connector.calls.clear();
        f.form.status.clear();
        f.selectOutput("Nodes Min/Max");
        return f.list.shown.empty() ? Texts() : f.list.shown.back().items;
    }
};

TEST_F(ListOfResults, HasWhatWasLoadedSinceItWasBuilt)
{
    f.addVector(1, "Total Translation", {1}, {0.5});
    EXPECT_THAT(offered(), ElementsAre("1 - Total Translation"));

    f.addVector(2, "T1 Translation", {1}, {0.5});
    EXPECT_THAT(offered(), ElementsAre("1 - Total Translation", "2 - T1 Translation"));

    f.model().outputSets.find(1)->vectors = {};
    f.addVector(2, "T1 Translation", {1}, {0.5});
    EXPECT_THAT(offered(), ElementsAre("2 - T1 Translation"));
}

TEST_F(ListOfResults, IsThatOfTheActiveOutputSet)
{
    f.addVector(1, "Total Translation", {1}, {0.5});
    offered();
    femap::neutral::OutputSet other;
    other.id = 2;
    other.vectors.put({.id = 1, .title = "Mode 1"});
    f.model().outputSets.put(other);
    f.model().activeOutputSet = 2;

    EXPECT_THAT(offered(), ElementsAre("1 - Mode 1"));
}

TEST_F(ListOfResults, IsNotBuiltAgainWhenNothingChanged)
{
    f.addVector(1, "Total Translation", {1}, {0.5});

    offered();
    EXPECT_EQ(f.connector.count("attach"), 2);  // for the lists and for the one that is shown
    offered();
    EXPECT_EQ(f.connector.count("attach"), 1);
    EXPECT_THAT(f.log(), Not(Contains(HasSubstr("collection"))));
}

TEST_F(ListOfResults, IsBuiltAgainAfterItCouldNotBeBuilt)
{
    f.addVector(1, "Total Translation", {1}, {0.5});
    f.connector.failAtFirst("attach");
    EXPECT_THROW(f.selectOutput("Nodes Min/Max"), sys::RuntimeError);

    EXPECT_THAT(offered(), ElementsAre("1 - Total Translation"));
}

TEST_F(ListOfResults, TellsOfVectorsThatFemapRefusesAndHasThemOnceItGivesThem)
{
    f.addVector(1, "Total Translation", {1}, {0.5});
    f.addVector(2, "T1 Translation", {1}, {0.5});
    f.connector.answers["Output.Get 2"] = femap::ReturnCode::Fail;
    EXPECT_THAT(offered(), ElementsAre("1 - Total Translation"));
    EXPECT_THAT(status(), StartsWith("Not in the list, for FEMAP refuses them: 1 output vectors"));

    f.connector.answers.clear();

    EXPECT_THAT(offered(), ElementsAre("1 - Total Translation", "2 - T1 Translation"));
    EXPECT_EQ(status(), "No row was added: nothing was chosen in the list");
}

TEST_F(ListOfResults, TellsWhichOutputSetIsReadWhenRowsCome)
{
    f.addVector(1, "Total Translation", {1}, {0.5});
    femap::neutral::OutputSet other;
    other.id = 2;
    f.model().outputSets.put(other);

    selectOutputs("Nodes", {1}, {"1 - Total Translation"});

    expectHint("The results are those of the active output set, 1");
}

}  // namespace
}  // namespace selection
