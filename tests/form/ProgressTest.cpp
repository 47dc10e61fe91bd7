#include "fake/FormFixture.h"
#include "form/Progress.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace form
{
namespace
{

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

// What FEMAP's progress bar is told.
const std::string on = "feAppStatusShow 1 100";
const std::string off = "feAppStatusShow 0 100";

std::string percent(int shown)
{
    return "feAppStatusUpdate " + std::to_string(shown);
}

class ProgressTest : public testing::Test
{
protected:
    fake::FormFixture f;
    fake::CallWatch& femap = f.watchFemap();
    const std::vector<fake::Call>& calls = femap.calls;

    void SetUp() override { f.form.status.tellHint("before"); }
    // So many steps, at the end of which the clock shows this time.
    void walk(Progress& progress, int steps, double seconds)
    {
        f.seconds = seconds;
        for (int i = 0; i < steps; ++i)
            progress.step();
    }
};

TEST_F(ProgressTest, ShowsNothingOfAWalkOfASecond)
{
    Progress progress(f.context, "Reading", 1024);

    walk(progress, 1024, 1.0);
    progress.finish();

    EXPECT_THAT(calls, IsEmpty());
    EXPECT_EQ(f.host.progressShown, 0);
    EXPECT_EQ(f.form.StatusLine.Caption, "before");
}

TEST_F(ProgressTest, ShowsALongerWalkOnTheStatusLineAndOnFemapsBar)
{
    f.seconds = 10;
    Progress progress(f.context, "Reading", 1024);

    walk(progress, 256, 11.1);

    EXPECT_EQ(f.form.StatusLine.Caption, "Reading … 25 %");
    EXPECT_EQ(f.host.progressShown, 1);
    EXPECT_EQ(f.femap.statusMaximum, 100);
    EXPECT_EQ(f.femap.statusCurrent, 25);
}

TEST_F(ProgressTest, LooksAtTheClockOnlyEvery256Steps)
{
    Progress progress(f.context, "Reading", 1024);

    walk(progress, 255, 5);

    EXPECT_THAT(calls, IsEmpty());
    walk(progress, 1, 5);
    EXPECT_THAT(calls, ElementsAre(on, percent(25)));
}

TEST_F(ProgressTest, ShowsFiveTimesASecondAtMost)
{
    Progress progress(f.context, "Reading", 2560);

    for (int look = 1; look <= 10; ++look)
        walk(progress, 256, 1.05 + 0.06 * look);

    EXPECT_THAT(calls, ElementsAre(on, percent(10), percent(50), percent(90)));
    EXPECT_EQ(f.host.progressShown, 3);
}

TEST_F(ProgressTest, EndsWithTheBarOffAndTheStatusLineAsItWas)
{
    Progress progress(f.context, "Reading", 256);
    walk(progress, 256, 2);

    progress.finish();

    EXPECT_EQ(calls.back(), off);
    EXPECT_EQ(f.femap.statusMaximum, 0);
    EXPECT_EQ(f.form.StatusLine.Caption, "before");
}

TEST_F(ProgressTest, LeavesAMessageThatCameInBetween)
{
    Progress progress(f.context, "Reading", 768);
    walk(progress, 256, 2);
    f.form.status.tellResult("first message");
    walk(progress, 256, 3);

    progress.finish();

    EXPECT_EQ(f.form.StatusLine.Caption, "first message. before");
    Progress next(f.context, "Reading", 768);
    walk(next, 256, 5);
    f.form.status.tellResult("second message");
    next.finish();
    EXPECT_EQ(f.form.StatusLine.Caption, "second message. before");
}

TEST_F(ProgressTest, EndsOnce)
{
    Progress progress(f.context, "Reading", 256);
    walk(progress, 256, 2);

    progress.finish();
    progress.finish();

    EXPECT_THAT(calls, ElementsAre(on, percent(100), off));
}

TEST_F(ProgressTest, EndsAlsoWhenAnErrorCutTheWalkShort)
{
    {
        Progress progress(f.context, "Reading", 1024);
        walk(progress, 256, 2);
    }

    endProgress(f.context);

    EXPECT_THAT(calls, ElementsAre(on, percent(25), off));
    EXPECT_EQ(f.form.StatusLine.Caption, "before");
}

TEST_F(ProgressTest, NeverShowsMoreThanEverything)
{
    Progress none(f.context, "Reading", 0);
    walk(none, 256, 2);
    EXPECT_EQ(f.form.StatusLine.Caption, "Reading … 100 %");
    none.finish();

    Progress surplus(f.context, "Reading", 100);
    walk(surplus, 256, 4);
    EXPECT_EQ(f.form.StatusLine.Caption, "Reading … 100 %");
}

TEST_F(ProgressTest, CountsWhereNobodyKnowsHowManyThereWillBe)
{
    Progress progress(f.context, "Reading");

    walk(progress, 512, 2);

    EXPECT_EQ(f.form.StatusLine.Caption, "Reading … 256");
    walk(progress, 256 * 100, 3);
    EXPECT_THAT(calls, ElementsAre(on, percent(1), percent(3)));
    progress.finish();
    EXPECT_EQ(f.form.StatusLine.Caption, "before");
}

TEST_F(ProgressTest, GoesOnWithoutABarThatFemapRefuses)
{
    femap.failAt(on, "no bar");
    Progress progress(f.context, "Reading", 512);

    walk(progress, 256, 2);
    walk(progress, 256, 3);
    progress.finish();

    EXPECT_THAT(calls, ElementsAre(on));
    EXPECT_EQ(f.host.progressShown, 2);
    EXPECT_THAT(f.log(), Contains("ERROR: FEMAP refused its progress bar: no bar").Times(1));
    EXPECT_FALSE(f.context.error.isPending());
}

TEST_F(ProgressTest, SwitchesABarOffThatFemapDoesNotMove)
{
    femap.failAt(percent(50), "no bar");
    Progress progress(f.context, "Reading", 512);

    walk(progress, 256, 2);
    walk(progress, 256, 3);
    progress.finish();

    EXPECT_THAT(calls, ElementsAre(on, percent(50), off));
    EXPECT_EQ(f.femap.statusMaximum, 0);
}

TEST_F(ProgressTest, ShowsTheStatusLineEvenWithoutFemap)
{
    f.context.application.reset();
    Progress progress(f.context, "Reading", 512);

    walk(progress, 256, 2);

    EXPECT_EQ(f.form.StatusLine.Caption, "Reading … 50 %");
}

TEST_F(ProgressTest, TellsOfAFemapThatIsGone)
{
    femap.dieAtCall(1);
    Progress progress(f.context, "Reading", 256);

    EXPECT_THROW(walk(progress, 256, 2), femap::ConnectionLost);
}

}  // namespace
}  // namespace form
