#include "Hand.h"
#include "ProductFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using driver::waitUntil;
using testing::HasSubstr;

namespace
{

constexpr const char* takenCall =
    "The wait for FEMAP is ended. It may still carry out the call: application.feAppLock";
constexpr const char* callNotTaken =
    "The wait for FEMAP is ended, which did not take the call: application.feAppLock";

// The form waits for a FEMAP that computes for some seconds in the lock, or rejects every call.
struct EndedWait : driver::Product
{
    static constexpr int stalledSeconds = 10;
    static constexpr std::chrono::seconds longEnough{30};
    driver::Hand hand;
    DWORD began = 0;

    void SetUp() override
    {
        start();
        form->settle();
    }
    void waitForCall()
    {
        began = GetTickCount();
        form->press("RefreshInputs");
    }
    bool isStillStalled() const { return GetTickCount() - began < stalledSeconds * 1000U; }
    std::string status() { return form->text("StatusLine"); }
    bool tells(std::string_view text)
    {
        return waitUntil([&] { return status().starts_with(text); }, longEnough);
    }
    bool tellsAfterEscape(std::string_view text)
    {
        return waitUntil([&] {
            hand.key({"Escape"});
            return status().starts_with(text);
        });
    }
    void close() { PostMessageW(form->window(), WM_CLOSE, 0, 0); }
    // Without asking the stand-in, which does not answer.
    bool isGone() { return WaitForSingleObject(process->handle(), 15'000) == WAIT_OBJECT_0; }
};

TEST_F(EndedWait, OfACallThatFemapHasTakenIsToldAtOnceAfterEscAndLeavesNoLock)
{
    femap.stallAt(1, stalledSeconds);
    waitForCall();

    EXPECT_TRUE(tellsAfterEscape(takenCall)) << status();
    EXPECT_TRUE(isStillStalled());
    EXPECT_TRUE(tells("FEMAP answers again, and its lock is released")) << status();

    EXPECT_EQ(femap.lockCount(), 0);
    EXPECT_TRUE(form->isEnabled("RefreshInputs"));
    form->press("RefreshInputs");
    form->settle();
    EXPECT_EQ(femap.lockCount(), 0);
}

TEST_F(EndedWait, OfACallThatFemapHasTakenClosesTheFormAsSoonAsTheLockIsReleased)
{
    femap.stallAt(1, stalledSeconds);
    waitForCall();
    close();

    EXPECT_TRUE(tells(takenCall)) << status();
    EXPECT_TRUE(isStillStalled());
    EXPECT_TRUE(isGone());

    EXPECT_EQ(femap.lockCount(), 0);
    EXPECT_THAT(files.log(), HasSubstr(takenCall));
}

TEST_F(EndedWait, OfACallThatIsRejectedIsToldAtOnceAfterEsc)
{
    femap.beBusy();
    waitForCall();

    EXPECT_TRUE(tellsAfterEscape(callNotTaken)) << status();
    femap.beBusy(0);
    EXPECT_TRUE(tells("FEMAP answers again")) << status();

    EXPECT_EQ(femap.lockCount(), 0);
    EXPECT_TRUE(form->isEnabled("RefreshInputs"));
}

TEST_F(EndedWait, OfACallThatIsRejectedClosesTheForm)
{
    femap.beBusy();
    waitForCall();

    close();

    EXPECT_TRUE(isGone());
    EXPECT_THAT(files.log(), HasSubstr(callNotTaken));
    femap.beBusy(0);
    EXPECT_EQ(femap.lockCount(), 0);
}

TEST_F(EndedWait, IsNoneForADialogOfFemaps)
{
    form->choose("InputSelection", "Materials");
    form->press("InputsButton");
    HWND dialog = nullptr;
    ASSERT_TRUE(waitUntil([&] {
        dialog = driver::visibleWindow(femap.processID(), L"#32770");
        return dialog != nullptr;
    }));

    EXPECT_TRUE(waitUntil([&] {
        PostMessageW(form->window(), WM_KEYDOWN, VK_ESCAPE, 0);
        return status() == "FEMAP shows a dialog of its own. End it there";
    }));
    EXPECT_TRUE(IsWindow(dialog));
    PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);

    EXPECT_TRUE(tells("No row was added: nothing was picked in FEMAP")) << status();
}

}  // namespace
