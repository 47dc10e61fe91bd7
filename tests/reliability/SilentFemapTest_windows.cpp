#include "StudyProcess_windows.h"
#include "app/window/ProductFixture.h"
#include "femap/com/Apartment.h"
#include "standin/StartedStandin.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace reliability
{

using testing::MatchesRegex;

namespace
{

constexpr std::chrono::seconds aMinute{60};
constexpr int stalledSeconds = 36;
constexpr const char* silence =
    "FEMAP has not answered since ..:..:.. \\(\\w+\\.\\w+\\). It computes, or it shows a dialog: "
    "look for one in FEMAP, also behind other windows";

struct SilentFemapAndStudy : testing::Test
{
    femap::com::Apartment apartment;
    comtest::StartedStandin femap{"--model \"" + comtest::panelModel() + '"'};
};

struct SilentFemapAndForm : driver::Product
{
    std::string before;

    void SetUp() override
    {
        start();
        form->settle();
        before = form->text("StatusLine");
    }
    std::string status() { return form->text("StatusLine"); }
    bool statusChanges()
    {
        return driver::waitUntil([this] { return status() != before; }, aMinute);
    }
};

}  // namespace

TEST_F(SilentFemapAndStudy, SaysWhichCallOfAScriptWaitsWhileFemapComputes)
{
    femap.control().call("standinStallAt", 3, stalledSeconds);
    StudyProcess study("start\n", "running");

    EXPECT_EQ(study.exitCode(), 0U);

    EXPECT_THAT(study.errors(), MatchesRegex(std::string(silence) + "\r?\n"));
}

TEST_F(SilentFemapAndStudy, SaysWhatAScriptWaitsForWhileFemapIsStopped)
{
    std::string script = "start\n";
    for (int i = 0; i < 400; ++i)
        script += "click RefreshInputs\n";
    StudyProcess study(script, "running");
    ASSERT_TRUE(driver::waitUntil(
        [this] { return femap.control().call("standinCallCount").number() > 100; }));
    femap.stop();
    const bool isTold = driver::waitUntil([&] { return !study.errors().empty(); }, aMinute);
    femap.goOn();

    EXPECT_EQ(study.exitCode(), 0U);

    EXPECT_TRUE(isTold);
    EXPECT_THAT(study.errors(), MatchesRegex(std::string(silence) + "\r?\n"));
}

TEST_F(SilentFemapAndForm, ShowsWhichCallWaitsWhileFemapComputes)
{
    femap.stallAt(1, stalledSeconds);

    form->press("RefreshInputs");

    EXPECT_TRUE(statusChanges());
    EXPECT_THAT(status(), MatchesRegex(silence));
    EXPECT_TRUE(driver::waitUntil([this] { return status() == before; }, aMinute));
}

TEST_F(SilentFemapAndForm, ShowsWhichCallWaitsWhileFemapIsStopped)
{
    femap.stop();

    form->press("RefreshInputs");

    EXPECT_TRUE(statusChanges());
    EXPECT_THAT(status(), MatchesRegex(silence));
    femap.goOn();
    EXPECT_TRUE(driver::waitUntil([this] { return status() == before; }, aMinute));
}

}  // namespace reliability
