#include "app/window/EventHook.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;
using window::EventHook;

namespace
{

// A window of this test's own, with a window procedure that keeps what arrives.
struct Hook : testing::Test
{
    static inline std::vector<UINT> arrived;
    static LRESULT CALLBACK keep(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
    {
        arrived.push_back(message);
        return message == WM_USER ? 42 : DefWindowProcA(window, message, wParam, lParam);
    }

    HWND window =
        CreateWindowExA(0, "STATIC", "", 0, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
    UINT event = RegisterWindowMessageA("FE_EVENT_MESSAGE");
    std::vector<WPARAM> events;
    EventHook hook{[this](WPARAM code) { events.push_back(code); }};

    void SetUp() override
    {
        SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(keep));
        arrived.clear();
    }
    void TearDown() override
    {
        hook.restore();
        DestroyWindow(window);
    }
    LONG_PTR procedure() const { return GetWindowLongPtrA(window, GWLP_WNDPROC); }
};

TEST_F(Hook, GivesEventsToTheFormAndEveryMessageToThePreviousProcedure)
{
    hook.install(window);

    SendMessageA(window, event, 3, 0);
    const LRESULT answer = SendMessageA(window, WM_USER, 0, 0);

    EXPECT_THAT(events, ElementsAre(3u));
    EXPECT_THAT(arrived, ElementsAre(event, WM_USER));
    EXPECT_EQ(answer, 42);
}

TEST_F(Hook, ASentEventIsAnsweredBeforeTheFormActsOnIt)
{
    hook.install(window);
    std::atomic<bool> isAnswered = false;
    std::thread femap([&] {
        SendMessageA(window, event, 3, 0);
        isAnswered = true;
    });
    MSG message{};
    while (!isAnswered)
        PeekMessageA(&message, nullptr, WM_USER, WM_USER, PM_NOREMOVE);
    femap.join();
    const std::vector<WPARAM> atAnswer = events;
    while (PeekMessageA(&message, window, 0, 0, PM_REMOVE) != FALSE)
        DispatchMessageA(&message);

    EXPECT_THAT(atAnswer, IsEmpty());
    EXPECT_THAT(events, ElementsAre(3U));
    EXPECT_THAT(arrived, ElementsAre(event)) << "the previous procedure sees it once";
}

TEST_F(Hook, AnEventWhoseSenderDoesNotWaitIsActedOnAtOnce)
{
    hook.install(window);
    std::atomic<bool> isSent = false;
    std::thread femap([&] {
        SendNotifyMessageA(window, event, 3, 0);
        isSent = true;
    });
    MSG message{};
    while (!isSent || events.empty())
        PeekMessageA(&message, nullptr, WM_USER, WM_USER, PM_NOREMOVE);
    femap.join();

    EXPECT_THAT(events, ElementsAre(3U));
    EXPECT_THAT(arrived, ElementsAre(event));
}

TEST_F(Hook, RestoringPutsThePreviousProcedureBack)
{
    const LONG_PTR before = procedure();
    hook.install(window);
    const LONG_PTR during = procedure();

    hook.restore();
    SendMessageA(window, event, 3, 0);

    EXPECT_NE(during, before);
    EXPECT_EQ(procedure(), before);
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(Hook, InstallingTwiceAndRestoringTwiceDoNothingMore)
{
    const LONG_PTR before = procedure();

    hook.install(window);
    hook.install(window);
    hook.restore();
    hook.restore();

    EXPECT_EQ(procedure(), before);
    EXPECT_FALSE(hook.isInstalled());
}

TEST_F(Hook, AnEventMayTakeTheHookAway)
{
    EventHook own([&](WPARAM) { own.restore(); });
    own.install(window);

    SendMessageA(window, event, 4, 0);

    EXPECT_THAT(arrived, ElementsAre(event));
    EXPECT_FALSE(own.isInstalled());
}

TEST_F(Hook, AProgramThatHookedTheWindowTooMayStillCallIt)
{
    hook.install(window);
    const auto ours = reinterpret_cast<WNDPROC>(procedure());
    hook.restore();

    CallWindowProcA(ours, window, event, 3, 0);

    EXPECT_THAT(events, IsEmpty());
}

}  // namespace
