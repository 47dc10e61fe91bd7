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
        return retryPolicy.whileBusy({"feNode", "Get"},
                                     [&] { return times-- > 0 ? rejection : S_OK; });
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

TEST_F(RetryPolicyTest, GivesUpAfterSecondsWhenTheProgramEnds)
{
    retryPolicy.waitBriefly(true);
    EXPECT_EQ(callRejected(1'000'000), RPC_E_SERVERCALL_RETRYLATER);
    EXPECT_EQ(time, RetryPolicy::Duration(5'000 + 3'000));
    EXPECT_THAT(reports, IsEmpty());

    retryPolicy.waitBriefly(false);
    EXPECT_EQ(callRejected(200), S_OK);
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

    const HRESULT result = retryPolicy.whileBusy({"feNode", "Get"}, [&] {
        while (filter.RetryRejectedCall(nullptr, 0, SERVERCALL_RETRYLATER) !=
               static_cast<DWORD>(-1))
            time += RetryPolicy::pause;
        return RPC_E_CALL_REJECTED;
    });

    EXPECT_EQ(result, RPC_E_CALL_REJECTED);
    EXPECT_EQ(waits, 0);
}

TEST_F(RetryPolicyTest, TellsOnceWhichCallFemapDoesNotAnswerSinceWhen)
{
    retryPolicy.timeBefore = [](RetryPolicy::Duration past) {
        return std::to_string(past.count()) + " ms ago";
    };
    const auto callTaking = [&](std::chrono::seconds all) {
        retryPolicy.whileBusy({"feNode", "Get"}, [&] {
            for (std::chrono::seconds passed{0}; passed < all; ++passed) {
                retryPolicy.pending();
                time += std::chrono::seconds(1);
            }
            return S_OK;
        });
    };

    callTaking(std::chrono::seconds(30));
    EXPECT_THAT(reports, IsEmpty());
    callTaking(std::chrono::seconds(100));
    EXPECT_THAT(reports, ElementsAre("FEMAP has not answered since 30000 ms ago (feNode.Get). It "
                                     "computes, or it shows a dialog: look for one in FEMAP, also "
                                     "behind other windows"));
    callTaking(std::chrono::seconds(40));
    EXPECT_EQ(reports.size(), 2U);

    time += RetryPolicy::longest;
    retryPolicy.pending();  // no call is under way
    EXPECT_EQ(reports.size(), 2U);
}

TEST_F(RetryPolicyTest, NamesTheTimeAsAClockShowsIt)
{
    EXPECT_THAT(RetryPolicy().timeBefore(RetryPolicy::quietTime),
                testing::MatchesRegex("\\d\\d:\\d\\d:\\d\\d"));
}

// COM asks about a message only while it waits for an answer; so the call is made by hand here.
TEST_F(BusyFilterTest, WakesTheThreadThatWaitsForAnAnswer)
{
    const femap::com::Apartment apartment;
    BusyFilter filter(retryPolicy);
    MSG message{};
    PeekMessageW(&message, nullptr, WM_NULL, WM_NULL, PM_NOREMOVE);

    const HRESULT result = retryPolicy.whileBusy({"feNode", "Get"}, [&] {
        const DWORD woken = MsgWaitForMultipleObjects(0, nullptr, FALSE, 10'000, QS_POSTMESSAGE);
        time += RetryPolicy::quietTime;
        EXPECT_EQ(filter.MessagePending(nullptr, 30'000, PENDINGTYPE_TOPLEVEL),
                  static_cast<DWORD>(PENDINGMSG_WAITDEFPROCESS));
        return woken == WAIT_OBJECT_0 ? S_OK : E_FAIL;
    });

    EXPECT_EQ(result, S_OK);
    EXPECT_EQ(reports.size(), 1U);
}

TEST_F(RetryPolicyTest, EndsTheWaitForACallThatFemapDoesNotTakeWhenTheEngineerDoes)
{
    int asked = 0;
    retryPolicy.isToEnd = [&] { return ++asked == 3; };

    try {
        callRejected(1'000'000);
        ADD_FAILURE() << "it was not ended";
    }
    catch (const femap::WaitEnded& ended) {
        EXPECT_FALSE(ended.mayBeCarriedOut());
        EXPECT_STREQ(ended.what(),
                     "The wait for FEMAP is ended, which did not take the call: feNode.Get");
        EXPECT_THAT(reports, ElementsAre(ended.what()));
    }

    EXPECT_EQ(time, RetryPolicy::Duration(5'000) + RetryPolicy::shortest + 2 * RetryPolicy::pause);
    EXPECT_EQ(callRejected(3), S_OK) << "the next wait is another one";
}

TEST_F(RetryPolicyTest, AbandonsACallThatFemapDoesNotAnswerWhenTheEngineerDoes)
{
    retryPolicy.isToEnd = [] { return true; };
    const auto call = [&](RetryPolicy::Duration length, bool showsDialog, bool& isAbandoned) {
        retryPolicy.whileBusy({"feSet", "Select", showsDialog}, [&] {
            time += length;
            isAbandoned = retryPolicy.pending() && retryPolicy.pending();
            return isAbandoned ? RPC_E_CALL_CANCELED : S_OK;
        });
    };
    bool isAbandoned = true;

    call(RetryPolicy::shortest - RetryPolicy::Duration(1), false, isAbandoned);
    EXPECT_FALSE(isAbandoned) << "nobody can mean so short a wait";
    try {
        call(RetryPolicy::shortest, false, isAbandoned);
        ADD_FAILURE() << "it was not abandoned";
    }
    catch (const femap::WaitEnded& ended) {
        EXPECT_TRUE(ended.mayBeCarriedOut());
        EXPECT_THAT(reports, ElementsAre("The wait for FEMAP is ended. It may still carry out the "
                                         "call: feSet.Select"));
    }
    reports.clear();
    call(RetryPolicy::shortest, true, isAbandoned);

    EXPECT_FALSE(isAbandoned);
    EXPECT_THAT(reports, testing::Each("FEMAP shows a dialog of its own. End it there"));
    EXPECT_FALSE(reports.empty());
}

TEST_F(RetryPolicyTest, RepeatsNothingWhileItIsNotToWait)
{
    {
        const RetryPolicy::NoWaits noWaits(retryPolicy);
        EXPECT_EQ(callRejected(1), RPC_E_SERVERCALL_RETRYLATER);
    }
    EXPECT_EQ(waits, 0);

    EXPECT_EQ(callRejected(1), S_OK);
}

TEST_F(BusyFilterTest, HasComAbandonACallWhoseWaitIsEnded)
{
    const femap::com::Apartment apartment;
    BusyFilter filter(retryPolicy);
    retryPolicy.isToEnd = [] { return true; };
    DWORD answer = PENDINGMSG_WAITDEFPROCESS;

    EXPECT_THROW(retryPolicy.whileBusy({"feNode", "Get"},
                                       [&] {
                                           time += RetryPolicy::shortest;
                                           answer = filter.MessagePending(nullptr, 0,
                                                                          PENDINGTYPE_TOPLEVEL);
                                           return RPC_E_CALL_CANCELED;
                                       }),
                 femap::WaitEnded);

    EXPECT_EQ(answer, static_cast<DWORD>(PENDINGMSG_CANCELCALL));
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
