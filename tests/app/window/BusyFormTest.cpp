#include "FormDriver.h"
#include "FormFiles.h"
#include "app/window/MainWindow.h"
#include "femap/com/BusyFilter.h"
#include "femap/com/ComApplication.h"
#include "standin/StandIn.h"
#include "system/System.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using driver::controlOf;
using driver::textOf;
using femap::com::RetryPolicy;
using testing::HasSubstr;
using testing::Not;

namespace
{

// The form in this process, beside a FEMAP that rejects calls. While the form waits for it, time
// goes on by the length of the wait, and the test looks at the form.
struct BusyForm : testing::Test
{
    driver::FormFiles files;
    driver::StandIn femap{files.folder() / "panel.neu"};
    std::shared_ptr<RetryPolicy> retryPolicy = std::make_shared<RetryPolicy>();
    femap::com::BusyFilter filter{*retryPolicy};
    sys::System system = sys::thisMachine();
    femap::com::ComConnector connector{nullptr, retryPolicy};
    window::MainWindow window{connector, system};
    HWND form = nullptr;
    RetryPolicy::Duration time{};
    int waits = 0;
    std::function<void()> inFirstWait = [] {};
    std::function<void()> whenTold = [] {};
    std::vector<std::string> told;

    void SetUp() override
    {
        ASSERT_TRUE(window.open("$form.log$DEBUG", SW_SHOWNORMAL));
        form = driver::visibleWindow(GetCurrentProcessId(), L"VelmarFemapInterface");
        ASSERT_NE(form, nullptr);
        retryPolicy->report = [this](const std::string& text) { window.showStatus(text); };
        retryPolicy->now = [this] { return time; };
        retryPolicy->wait = [this](RetryPolicy::Duration length) {
            time += length;
            if (++waits == 1)
                inFirstWait();
        };
    }
    void TearDown() override
    {
        MSG message;  // the form that has gone ended the loop of messages that this test has not
        while (PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE) != FALSE) {
        }
    }

    void press(std::string_view button) { SendMessageW(controlOf(form, button), BM_CLICK, 0, 0); }
    // Time goes on by itself, thirty times as fast; what is reported is kept as the form shows it.
    void letTimeRun()
    {
        retryPolicy->now = [] { return RetryPolicy::Duration(std::int64_t{GetTickCount()} * 30); };
        retryPolicy->report = [this](const std::string& text) {
            window.showStatus(text);
            told.push_back(status());
            whenTold();
        };
    }
    std::string status() const { return textOf(controlOf(form, "StatusLine")); }
    static bool isHourglass() { return GetCursor() == LoadCursorW(nullptr, IDC_WAIT); }
    // The log is complete when the form has gone.
    std::string log() const
    {
        EXPECT_FALSE(IsWindow(form));
        return files.log();
    }
};

TEST_F(BusyForm, ShowsTheHourglassAtOnceAndTheArrowAfterwards)
{
    bool duringWait = false;
    LRESULT answer = FALSE;
    inFirstWait = [&] {
        duringWait = isHourglass();
        answer = SendMessageW(form, WM_SETCURSOR, reinterpret_cast<WPARAM>(form),
                              MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    };
    femap.beBusy(5);

    press("RefreshInputs");

    EXPECT_EQ(waits, 5);
    EXPECT_TRUE(duringWait);
    EXPECT_EQ(answer, TRUE) << "moving the mouse keeps it";
    EXPECT_FALSE(isHourglass());
}

TEST_F(BusyForm, SaysAfterHalfAMinuteWhatItWaitsForAndNoLongerThanItDoes)
{
    const std::string before = status();
    std::string afterTwentyNine;
    std::string afterThirtyOne;
    const auto wait = retryPolicy->wait;
    retryPolicy->wait = [&](RetryPolicy::Duration length) {
        wait(length);
        if (time < std::chrono::seconds(30))
            afterTwentyNine = status();
        else if (time > std::chrono::seconds(31))
            afterThirtyOne = status();
    };
    femap.beBusy(130);

    press("RefreshInputs");

    EXPECT_EQ(afterTwentyNine, before);
    EXPECT_EQ(afterThirtyOne, "FEMAP is working or shows a dialog. Waiting for it …");
    EXPECT_EQ(status(), before);
}

TEST_F(BusyForm, NamesTheCallThatFemapHasTakenAndNotAnswered)
{
    const std::string before = status();
    letTimeRun();
    femap.stallAt(1, 4);

    press("RefreshInputs");

    ASSERT_THAT(told, testing::SizeIs(1));
    EXPECT_THAT(told[0], testing::StartsWith("FEMAP has not answered since "));
    EXPECT_THAT(told[0], HasSubstr(" (application.feAppLock). It computes, or it shows a dialog"));
    EXPECT_EQ(status(), before);
}

TEST_F(BusyForm, NamesTheCallThatAStoppedFemapDoesNotAnswer)
{
    const std::string before = status();
    letTimeRun();
    whenTold = [this] { femap.goOn(); };
    femap.stop();

    press("RefreshInputs");

    ASSERT_THAT(told, testing::SizeIs(1));
    EXPECT_THAT(told[0], testing::StartsWith("FEMAP has not answered since "));
    EXPECT_THAT(told[0], HasSubstr("look for one in FEMAP, also behind other windows"));
    EXPECT_EQ(status(), before);
}

TEST_F(BusyForm, StartsNoSecondProcedureWhileOneWaits)
{
    inFirstWait = [&] {
        press("ClearAll");
        press("RefreshOutputs");
    };
    femap.beBusy(3);

    press("RefreshInputs");
    SendMessageW(form, WM_CLOSE, 0, 0);

    EXPECT_THAT(log(), HasSubstr("At the end of RefreshInputs_Click"));
    EXPECT_THAT(log(), Not(HasSubstr("ClearAll_Click")));
    EXPECT_THAT(log(), Not(HasSubstr("RefreshOutputs_Click")));
}

TEST_F(BusyForm, ClosesWhenTheProcedureThatWaitsHasEnded)
{
    bool isOpenDuringWait = false;
    inFirstWait = [&] {
        SendMessageW(form, WM_CLOSE, 0, 0);
        isOpenDuringWait = IsWindow(form) != FALSE;
    };
    femap.beBusy(3);

    press("RefreshInputs");

    EXPECT_TRUE(isOpenDuringWait);
    const std::string content = log();
    const std::size_t end = content.find("At the end of RefreshInputs_Click");
    ASSERT_NE(end, std::string::npos);
    EXPECT_NE(content.find("Unloading the form", end), std::string::npos);
    EXPECT_EQ(femap.lockCount(), 0);
}

TEST_F(BusyForm, SaysWhyWhenFemapStaysBusyForTenMinutes)
{
    retryPolicy->wait = [this](RetryPolicy::Duration) { time += std::chrono::minutes(3); };
    femap.beBusy(100);

    press("RefreshInputs");

    EXPECT_THAT(status(), HasSubstr("feAppLock"));
    EXPECT_FALSE(isHourglass());
    EXPECT_NE(IsWindowEnabled(controlOf(form, "RefreshInputs")), FALSE);
    femap.beBusy(0);
}

}  // namespace
