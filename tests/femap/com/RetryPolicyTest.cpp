#include "femap/com/Apartment.h"
#include "femap/com/BusyFilter.h"
#include "femap/com/RetryPolicy.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace comtest
{

using femap::com::BusyFilter;
using femap::com::RetryPolicy;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

// Time goes on only where someone waits.
struct PatientTest : testing::Test
{
    PatientTest()
    {
        retryPolicy.now = [this] { return time; };
        retryPolicy.wait = [this](RetryPolicy::Duration pause) {
            time += pause;
            ++waits;
        };
        retryPolicy.report = [this](const std::string& text) { reports.push_back(text); };
    }

    // A call that is rejected so often, then well.
    HRESULT callRejected(int times, HRESULT rejection = RPC_E_SERVERCALL_RETRYLATER)
    {
        return retryPolicy.whileBusy([&] { return times-- > 0 ? rejection : S_OK; });
    }

    RetryPolicy retryPolicy;
    RetryPolicy::Duration time{5'000};
    int waits = 0;
    std::vector<std::string> reports;
};

using RetryPolicyTest = PatientTest;
using BusyFilterTest = PatientTest;

}  // namespace

TEST_F(RetryPolicyTest, RepeatsARejectedCallQuietly)
{
    EXPECT_EQ(callRejected(20), S_OK);
    EXPECT_EQ(callRejected(1, RPC_E_CALL_REJECTED), S_OK);

    EXPECT_EQ(waits, 21);
    EXPECT_EQ(time, RetryPolicy::Duration(5'000 + 21 * 250));
    EXPECT_THAT(reports, IsEmpty());
}

TEST_F(RetryPolicyTest, RepeatsNoCallThatFailsOtherwise)
{
    EXPECT_EQ(callRejected(1, DISP_E_EXCEPTION), DISP_E_EXCEPTION);

    EXPECT_EQ(waits, 0);
}

TEST_F(RetryPolicyTest, SaysOnceAfterHalfAMinuteThatFemapIsWaitedFor)
{
    callRejected(120);
    EXPECT_THAT(reports, IsEmpty());

    callRejected(200);

    EXPECT_THAT(reports, ElementsAre("FEMAP is working or shows a dialog. Waiting for it …"));
}

TEST_F(RetryPolicyTest, SaysItAgainForTheNextLongWait)
{
    callRejected(200);
    callRejected(200);

    EXPECT_EQ(reports.size(), 2U);
}

TEST_F(RetryPolicyTest, GivesUpAfterTenMinutes)
{
    EXPECT_EQ(callRejected(1'000'000), RPC_E_SERVERCALL_RETRYLATER);

    EXPECT_EQ(time, RetryPolicy::Duration(5'000 + 600'000));
}

TEST_F(RetryPolicyTest, WaitsAnewAfterItGaveUp)
{
    callRejected(1'000'000);

    EXPECT_EQ(callRejected(3), S_OK);
}

TEST_F(RetryPolicyTest, WaitsInRealTimeUnlessItIsToldOtherwise)
{
    const DWORD before = GetTickCount();

    RetryPolicy().wait(RetryPolicy::Duration(60));

    EXPECT_GE(GetTickCount() - before, 50U);
}

TEST_F(BusyFilterTest, AnswersComAsThePatienceDoes)
{
    const femap::com::Apartment apartment;
    BusyFilter filter(retryPolicy);

    EXPECT_EQ(filter.RetryRejectedCall(nullptr, 0, SERVERCALL_RETRYLATER), 250U);
    time += RetryPolicy::quietTime;
    EXPECT_EQ(filter.RetryRejectedCall(nullptr, 30'000, SERVERCALL_RETRYLATER), 250U);
    EXPECT_EQ(reports.size(), 1U);
    time += RetryPolicy::longest;
    EXPECT_EQ(filter.RetryRejectedCall(nullptr, 630'000, SERVERCALL_REJECTED),
              static_cast<DWORD>(-1));
}

TEST_F(BusyFilterTest, LetsACallThatItGaveUpFailAtOnce)
{
    const femap::com::Apartment apartment;
    BusyFilter filter(retryPolicy);

    const HRESULT result = retryPolicy.whileBusy([&] {
        while (filter.RetryRejectedCall(nullptr, 0, SERVERCALL_RETRYLATER) !=
               static_cast<DWORD>(-1))
            time += RetryPolicy::pause;
        return RPC_E_CALL_REJECTED;
    });

    EXPECT_EQ(result, RPC_E_CALL_REJECTED);
    EXPECT_EQ(waits, 0);
}

TEST_F(BusyFilterTest, StandsAsideWhenItGoes)
{
    const femap::com::Apartment apartment;
    {
        const BusyFilter filter(retryPolicy);
    }
    IMessageFilter* left = nullptr;
    CoRegisterMessageFilter(nullptr, &left);

    EXPECT_EQ(left, nullptr);
}

}  // namespace comtest
