#include "form/Status.h"

#include <gtest/gtest.h>

namespace
{

class StatusTest : public testing::Test
{
protected:
    std::string line;
    form::Status status{line};
};

TEST_F(StatusTest, ShowsTheResultWithWhatIsWorthKnowingBehindIt)
{
    status.tellHint("2 nodes have no value");
    status.tellHint("2 nodes have no value");
    status.tellResult("Nothing was added");
    EXPECT_EQ(line, "Nothing was added. 2 nodes have no value");

    status.tellResult("3 files were written.");
    EXPECT_EQ(line, "3 files were written. 2 nodes have no value");
}

TEST_F(StatusTest, ShowsWhatStandsFirstBeforeAllElseUntilTheNextAction)
{
    status.tellFirst("Another form is there");
    EXPECT_EQ(line, "Another form is there");
    status.tellResult("Nothing was added");
    EXPECT_EQ(line, "Another form is there. Nothing was added");
    status.tellHint("by the way");
    status.tellFailure("The disk is full");
    EXPECT_EQ(line, "Another form is there. The disk is full");

    status.withdraw("Another form is there");
    EXPECT_EQ(line, "The disk is full");
    status.tellFirst("Another form is there");
    status.clear();
    EXPECT_EQ(line, "");
}

TEST_F(StatusTest, LetsNoResultStandInPlaceOfAProblem)
{
    status.tellProblem("A row was lost");
    status.tellResult("3 files were written");
    status.tellHint("by the way");
    EXPECT_EQ(line, "A row was lost");

    status.tellProblem("Another row was lost");
    EXPECT_EQ(line, "Another row was lost");
}

TEST_F(StatusTest, LetsNoProblemStandInPlaceOfWhatEndedTheAction)
{
    status.tellFailure("The disk is full");
    status.tellProblem("A row was lost");
    EXPECT_EQ(line, "The disk is full");

    status.tellFailure("FEMAP is gone");
    EXPECT_EQ(line, "FEMAP is gone");
}

TEST_F(StatusTest, IsEmptyWhenAnActionBegins)
{
    status.tellFailure("The disk is full");
    status.tellProblem("A row was lost");
    status.tellResult("3 files were written");
    status.tellHint("by the way");

    status.clear();

    EXPECT_EQ(line, "");
}

TEST_F(StatusTest, TakesATextBackThatIsNoLongerTrue)
{
    status.tellResult("3 files were written");
    status.tellHint("by the way");
    status.tellProblem("A row was lost");
    status.tellFailure("FEMAP is gone");

    status.withdraw("FEMAP is gone");
    EXPECT_EQ(line, "A row was lost");
    status.withdraw("A row was lost");
    status.withdraw("by the way");
    EXPECT_EQ(line, "3 files were written");
    status.withdraw("something else");
    EXPECT_EQ(line, "3 files were written");
}

TEST_F(StatusTest, TellsOneThingAsWellAsAnythingElse)
{
    status.tellAsWell("The log ends here");
    EXPECT_EQ(line, "The log ends here");
    status.tellResult("3 files were written");
    EXPECT_EQ(line, "3 files were written. The log ends here");
    status.tellProblem("A row was lost.");
    EXPECT_EQ(line, "A row was lost. The log ends here");
    status.tellFailure("FEMAP is gone");
    EXPECT_EQ(line, "FEMAP is gone. The log ends here");
    status.showProgress("Reading … 5 %");
    EXPECT_EQ(line, "Reading … 5 %");
    status.showProgress("");
    status.clear();
    EXPECT_EQ(line, "");
}

TEST_F(StatusTest, ShowsProgressAndAboveItWhatIsWaitedForUntilTheyEnd)
{
    status.tellResult("3 files were written");
    status.showProgress("Reading … 5 %");
    EXPECT_EQ(line, "Reading … 5 %");

    status.showWaiting("Waiting for FEMAP …");
    status.tellProblem("A row was lost");
    status.showProgress("Reading … 6 %");
    EXPECT_EQ(line, "Waiting for FEMAP …");

    status.showWaiting("");
    EXPECT_EQ(line, "Reading … 6 %");
    status.showProgress("");
    EXPECT_EQ(line, "A row was lost");
}

}  // namespace
