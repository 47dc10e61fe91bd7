#include "fake/FormFixture.h"
#include "femap/ForwardingApplication.h"
#include "form/Progress.h"
#include "system/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <type_traits>

namespace form
{
namespace
{

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using Calls = std::vector<std::string>;

// Records what FEMAP's progress bar is told; one kind of call can fail.
class BarFemap : public femap::ForwardingApplication
{
public:
    BarFemap(std::unique_ptr<femap::Application> real, Calls& calls)
        : ForwardingApplication(std::move(real)), calls_(calls)
    {}

    std::function<void(const std::string& call)> before = [](const std::string&) {};

    void feAppStatusShow(bool enable, int maximum) override
    {
        record(enable ? "on" : "off");
        ForwardingApplication::feAppStatusShow(enable, maximum);
    }
    void feAppStatusUpdate(int current) override
    {
        record(std::to_string(current));
        ForwardingApplication::feAppStatusUpdate(current);
    }

private:
    void record(const std::string& call)
    {
        calls_.push_back(call);
        before(call);
    }

    Calls& calls_;
};

class ProgressTest : public testing::Test
{
protected:
    fake::FormFixture f;
    Calls calls;
    BarFemap* femap = nullptr;

    void SetUp() override
    {
        auto bar = std::make_unique<BarFemap>(f.femap.attach(), calls);
        femap = bar.get();
        f.context.application = std::move(bar);
        f.form.status.tellHint("before");
    }
    // So many steps, at the end of which the clock shows this time.
    void walk(Progress& progress, int steps, double seconds)
    {
        f.seconds = seconds;
        for (int i = 0; i < steps; ++i)
            progress.step();
    }
    void failAt(const std::string& failing)
    {
        femap->before = [failing](const std::string& call) {
            if (call == failing)
                throw sys::RuntimeError(sys::ErrorNumber::ObjectFailed, "no bar");
        };
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
    EXPECT_THAT(calls, ElementsAre("on", "25"));
}

TEST_F(ProgressTest, ShowsFiveTimesASecondAtMost)
{
    Progress progress(f.context, "Reading", 2560);

    for (int look = 1; look <= 10; ++look)
        walk(progress, 256, 1.05 + 0.06 * look);

    EXPECT_THAT(calls, ElementsAre("on", "10", "50", "90"));
    EXPECT_EQ(f.host.progressShown, 3);
}

TEST_F(ProgressTest, EndsWithTheBarOffAndTheStatusLineAsItWas)
{
    Progress progress(f.context, "Reading", 256);
    walk(progress, 256, 2);

    progress.finish();

    EXPECT_EQ(calls.back(), "off");
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
    {
        Progress progress(f.context, "Reading", 256);
        walk(progress, 256, 2);
        progress.finish();
        progress.finish();
    }

    EXPECT_THAT(calls, ElementsAre("on", "100", "off"));
}

TEST_F(ProgressTest, EndsWhenAnErrorCutsTheWalkShort)
{
    {
        Progress progress(f.context, "Reading", 1024);
        walk(progress, 256, 2);
    }

    EXPECT_THAT(calls, ElementsAre("on", "25", "off"));
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
    EXPECT_THAT(calls, ElementsAre("on", "1", "3"));
    progress.finish();
    EXPECT_EQ(f.form.StatusLine.Caption, "before");
}

TEST_F(ProgressTest, GoesOnWithoutABarThatFemapRefuses)
{
    failAt("on");
    Progress progress(f.context, "Reading", 512);

    walk(progress, 256, 2);
    walk(progress, 256, 3);
    progress.finish();

    EXPECT_THAT(calls, ElementsAre("on"));
    EXPECT_EQ(f.host.progressShown, 2);
    EXPECT_THAT(f.log(), Contains("ERROR: FEMAP refused its progress bar: no bar").Times(1));
    EXPECT_FALSE(f.context.error.isPending());
}

TEST_F(ProgressTest, SwitchesABarOffThatFemapDoesNotMove)
{
    failAt("50");
    Progress progress(f.context, "Reading", 512);

    walk(progress, 256, 2);
    walk(progress, 256, 3);
    progress.finish();

    EXPECT_THAT(calls, ElementsAre("on", "50", "off"));
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
    femap->before = [](const std::string&) { throw femap::ConnectionLost("gone"); };
    Progress progress(f.context, "Reading", 256);

    EXPECT_THROW(walk(progress, 256, 2), femap::ConnectionLost);
}

TEST_F(ProgressTest, IsDestroyedQuietlyWhenFemapIsGone)
{
    static_assert(std::is_nothrow_destructible_v<Progress>);
    std::optional<Progress> progress;
    progress.emplace(f.context, "Reading", std::size_t{256});
    walk(*progress, 256, 2);
    femap->before = [](const std::string&) { throw femap::ConnectionLost("gone"); };

    progress.reset();

    EXPECT_EQ(calls.back(), "off");
    EXPECT_EQ(f.form.StatusLine.Caption, "before");
    EXPECT_THAT(f.log(), Not(Contains(HasSubstr("gone"))));
}

}  // namespace
}  // namespace form
