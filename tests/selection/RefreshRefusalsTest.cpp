#include "selection/LevelledLog.h"
#include "selection/ValueRefreshFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace selection
{
namespace
{

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class RefreshRefusals : public ValueRefresh
{
protected:
    // In FEMAP's message window and on the status line.
    void expectTold(const std::string& message)
    {
        EXPECT_THAT(f.messages(), ElementsAre(message));
        EXPECT_EQ(f.form.StatusLine.Caption, message);
        EXPECT_EQ(f.femap.messages.at(0).colour, femap::MessageColour::Error);
    }
    void addOutputSet(int id)
    {
        femap::neutral::OutputSet set;
        set.id = id;
        set.vectors.put({.id = 1, .title = "Total Translation", .ids = {12}, .values = {0.7}});
        f.model().outputSets.put(set);
    }
};

TEST_F(RefreshRefusals, AreCountedAmongTheInputsThatAreRead)
{
    LevelledLog log(f, "DEBUG");
    fillInputs({"xAtNode12\told\tNode\t12\tx", "xAtNode98\tkept\tNode\t98\tx",
                "Ramp\tX-Y Values\tFunction\t 5\t", "xAtNode99\tkept\tNode\t99\tx"});

    RefreshInputs_Click(f.context);

    expectTold("2 of 3 rows could not be read again; they keep their values");
    EXPECT_EQ(input(2), "kept");
    EXPECT_THAT(log.lines(),
                AllOf(Contains("DEBUG: Error occured Refreshing xAtNode98"),
                      Contains("FEMAP has no Node with the ID 98"),
                      Contains("DEBUG: Error occured Refreshing xAtNode99"),
                      Contains("DEBUG: 2 of 3 rows could not be read again; they keep their "
                               "values"),
                      Not(Contains(HasSubstr("Refreshing xAtNode12")))));
    EXPECT_EQ(log.lines().back(), "DEBUG: At the end of RefreshInputs_Click");
    expectFemapReleased();
}

TEST_F(RefreshRefusals, AreToldAtLevelInfo)
{
    LevelledLog log(f, "INFO");
    fillInputs({"xAtNode98\tkept\tNode\t98\tx"});

    RefreshInputs_Click(f.context);

    expectTold("1 of 1 rows could not be read again; it keeps its value");
    EXPECT_THAT(log.lines(), Contains("FEMAP has no Node with the ID 98"));
}

TEST_F(RefreshRefusals, AreThoseOfAnotherOutputSetToo)
{
    LevelledLog log(f, "DEBUG");
    addOutputSet(2);
    f.model().activeOutputSet = 2;
    fillOutputs({"M\told\t1\t1\tmaxval", "A\tkept\t40\t60031\tOutput", "B\told\t12\t1\tOutput"});

    RefreshOutputs_Click(f.context);

    expectTold("1 of 3 rows could not be read again; it keeps its value");
    EXPECT_EQ(output(2), "kept");
    EXPECT_EQ(output(3), "0.7");
    EXPECT_THAT(log.lines(), AllOf(Contains("DEBUG: Error occured Refreshing A"),
                                   Contains("FEMAP has no output vector with the ID 60031")));
    EXPECT_EQ(log.lines().back(), "DEBUG: At the end of RefreshOutputs_Click");
}

TEST_F(RefreshRefusals, AreValuesThatAVectorDoesNotHave)
{
    fillOutputs({"A\tkept\t99\t1\tOutput", "B\told\t12\t1\tOutput"});

    RefreshOutputs_Click(f.context);

    expectTold("1 of 2 rows could not be read again; it keeps its value");
    EXPECT_EQ(output(1), "kept");
}

TEST_F(RefreshRefusals, AreAllRowsWhenTheModelIsClosed)
{
    fillInputs({"xAtNode12\tkept\tNode\t12\tx", "xAtNode13\tkept\tNode\t13\tx"});
    f.femap.model.reset();

    RefreshInputs_Click(f.context);

    expectTold("2 of 2 rows could not be read again; they keep their values");
}

TEST_F(RefreshRefusals, AreNotToldWhenThereAreNone)
{
    fillInputs({"xAtNode12\told\tNode\t12\tx"});
    fillOutputs({"M\told\t1\t1\tmaxval"});

    RefreshInputs_Click(f.context);
    RefreshOutputs_Click(f.context);

    EXPECT_THAT(f.messages(), IsEmpty());
    EXPECT_EQ(f.form.StatusLine.Caption, "");
}

TEST_F(RefreshRefusals, StandInPlaceOfTheOutputSetThatWasRead)
{
    addOutputSet(2);
    f.model().activeOutputSet = 2;
    fillOutputs({"A\tkept\t99\t1\tOutput"});

    RefreshOutputs_Click(f.context);

    expectTold("1 of 1 rows could not be read again; it keeps its value");
}

class OutputSetThatIsRead : public RefreshRefusals
{
protected:
    OutputSetThatIsRead()
    {
        addOutputSet(3);
        fillOutputs({"M\told\t1\t1\tmaxval"});
    }
};

TEST_F(OutputSetThatIsRead, IsToldWhenThereAreSeveral)
{
    f.model().activeOutputSet = 3;

    const auto lines = f.logOf([&] { RefreshOutputs_Click(f.context); });

    EXPECT_EQ(f.form.StatusLine.Caption, "The results are those of the active output set, 3");
    EXPECT_THAT(f.messages(), IsEmpty());
    EXPECT_THAT(lines, Not(Contains(HasSubstr("output set"))));
}

TEST_F(OutputSetThatIsRead, IsTheLowestWhenNoneIsActiveAndTheLogSaysSo)
{
    f.watchFemap().answers["Info_ActiveID"] = 0;

    RefreshOutputs_Click(f.context);

    const std::string message = "No output set is active. The results are those of the lowest, 1";
    EXPECT_EQ(f.form.StatusLine.Caption, message);
    EXPECT_THAT(f.log(), Contains("DEBUG: " + message));
    EXPECT_THAT(f.messages(), IsEmpty());
}

TEST_F(OutputSetThatIsRead, IsNotToldForMassesAlone)
{
    fillOutputs({"TotalMass\t0\tMassTotal\t\tMassProperties"});

    RefreshOutputs_Click(f.context);

    EXPECT_EQ(f.form.StatusLine.Caption, "");
}

TEST_F(OutputSetThatIsRead, CostsNothingWhenFemapDoesNotSay)
{
    f.watchFemap().failAt("Info_ActiveID", "no answer");

    RefreshOutputs_Click(f.context);

    EXPECT_NE(output(1), "old");
    EXPECT_EQ(f.form.StatusLine.Caption, "");
    EXPECT_THAT(f.log(), Contains("ERROR: no answer"));
    expectFemapReleased();
}

}  // namespace
}  // namespace selection
