#include "femap/com/Apartment.h"
#include "femap/com/BusyFilter.h"
#include "standin/StartedStandin.h"
#include "system/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>

namespace comtest
{

using femap::com::RetryPolicy;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

struct BusyFemap : testing::Test
{
    BusyFemap()
    {
        retryPolicy->now = [this] { return time; };
        retryPolicy->wait = [this](RetryPolicy::Duration pause) { time += pause; };
        retryPolicy->report = [this](const std::string& text) { reports.push_back(text); };
        femap->ModelName();  // now its number is known
    }

    femap::com::Apartment apartment;
    std::shared_ptr<RetryPolicy> retryPolicy = std::make_shared<RetryPolicy>();
    femap::com::BusyFilter filter{*retryPolicy};
    StartedStandin standin{"--model \"" + panelModel() + '"'};
    std::unique_ptr<femap::Application> femap =
        femap::com::ComConnector(nullptr, retryPolicy).attach();
    RetryPolicy::Duration time{};
    std::vector<std::string> reports;
};

}  // namespace

TEST_F(BusyFemap, IsAskedAgainUntilItAnswers)
{
    for (int rejections = 1; rejections <= 20; ++rejections) {
        standin.control().call("standinBusy", rejections);
        const int before = standin.control().call("standinCallCount").number();

        EXPECT_EQ(femap->ModelName(), panelModel());

        EXPECT_EQ(standin.control().call("standinCallCount").number(), before + rejections + 1);
    }
    EXPECT_THAT(reports, IsEmpty());
}

// COM rejects the calls before FEMAP sees them. Windows then asks the filter, Wine gives the call
// back; both must come to the same end.
TEST_F(BusyFemap, IsAskedAgainWhenComItselfRejectsTheCall)
{
    for (int rejections = 1; rejections <= 20; ++rejections) {
        const int before = standin.control().call("standinCallCount").number();
        standin.control().call("standinReject", rejections);

        EXPECT_EQ(femap->ModelName(), panelModel());

        EXPECT_EQ(standin.control().call("standinCallCount").number(), before + 1);
    }
    EXPECT_THAT(reports, IsEmpty());
}

TEST_F(BusyFemap, IsAskedAgainWithoutAFilterToo)
{
    IMessageFilter* ours = nullptr;
    CoRegisterMessageFilter(nullptr, &ours);
    standin.control().call("standinReject", 20);

    EXPECT_EQ(femap->ModelName(), panelModel());

    EXPECT_EQ(time, 20 * RetryPolicy::pause);
    CoRegisterMessageFilter(ours, nullptr);
}

TEST_F(BusyFemap, IsReportedAfterHalfAMinute)
{
    standin.control().call("standinBusy", 150);

    EXPECT_EQ(femap->ModelName(), panelModel());

    EXPECT_THAT(reports, ElementsAre("FEMAP is working or shows a dialog. Waiting for it …"));
}

TEST_F(BusyFemap, IsGivenUpAfterTenMinutesAndAnswersLater)
{
    standin.control().call("standinBusy", 1'000'000);
    retryPolicy->wait = [this](RetryPolicy::Duration) { time += std::chrono::minutes(3); };

    EXPECT_THROW(femap->ModelName(), sys::RuntimeError);

    standin.control().call("standinBusy", 0);
    EXPECT_EQ(femap->ModelName(), panelModel());
}

TEST_F(BusyFemap, IsUsableAfterTheWaitForACallWasEnded)
{
    retryPolicy->now = [] { return RetryPolicy::Duration(std::int64_t{GetTickCount()}); };
    retryPolicy->isToEnd = [] { return true; };
    standin.control().call("standinStallAt", 1, 2);

    EXPECT_THROW(femap->feAppLock(), femap::WaitEnded);

    retryPolicy->isToEnd = [] { return false; };
    EXPECT_EQ(femap->ModelName(), panelModel());
    EXPECT_EQ(standin.control().call("standinLockCount").number(), 1) << "it was carried out";
}

TEST_F(BusyFemap, IsFoundOutToAnswerWithoutAWaitForIt)
{
    femap::com::ComConnector connector(nullptr, retryPolicy);
    EXPECT_TRUE(connector.isAnswering()) << "nothing was given that could be busy";
    const std::unique_ptr<femap::Application> given = connector.attach();

    EXPECT_TRUE(connector.isAnswering());
    standin.control().call("standinReject", 1);
    EXPECT_FALSE(connector.isAnswering());
    standin.control().call("standinBusy", 1);
    EXPECT_FALSE(connector.isAnswering());
    standin.stop();
    EXPECT_FALSE(connector.isAnswering());
    standin.goOn();
    EXPECT_TRUE(connector.isAnswering());

    EXPECT_EQ(time, RetryPolicy::Duration::zero());
}

}  // namespace comtest
