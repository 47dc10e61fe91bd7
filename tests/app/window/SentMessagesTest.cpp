#include "FormHere.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <thread>

using driver::FormHere;

namespace
{

// COM refuses calls as long as the sender of a message is kept waiting.
bool senderIsKept()
{
    return (InSendMessageEx(nullptr) & (ISMEX_SEND | ISMEX_REPLIED)) == ISMEX_SEND;
}

// Messages that another thread sends, as FEMAP may.
struct SentMessages : FormHere
{
    int calls = 0;
    int refused = 0;  // calls that COM would refuse

    void SetUp() override
    {
        FormHere::SetUp();
        femap.beforeCall = [this](const std::string&) {
            ++calls;
            refused += senderIsKept() ? 1 : 0;
        };
    }
    // Returns when the sender has its answer. What is posted stays in the queue.
    void sendFromOutside(HWND receiver, UINT message, WPARAM wParam) const
    {
        std::atomic<bool> isAnswered = false;
        std::thread sender([&] {
            SendMessageA(receiver, message, wParam, 0);
            isAnswered = true;
        });
        MSG ignored{};
        while (!isAnswered)
            PeekMessageW(&ignored, nullptr, WM_USER, WM_USER, PM_NOREMOVE);
        sender.join();
    }
};

TEST_F(SentMessages, AnEventThatIsSentIsAnsweredFirstAndActedOnAfterwards)
{
    sendFromOutside(form, RegisterWindowMessageA("FE_EVENT_MESSAGE"), newModel);
    const int before = calls;
    handleMessages();

    EXPECT_EQ(before, 0);
    EXPECT_GT(calls, 0);
    EXPECT_EQ(refused, 0);
}

TEST_F(SentMessages, AnEventThatIsPostedIsActedOnAtOnce)
{
    PostMessageA(form, RegisterWindowMessageA("FE_EVENT_MESSAGE"), newModel, 0);
    MSG message{};
    while (calls == 0 && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
        const bool isEvent = message.message == RegisterWindowMessageA("FE_EVENT_MESSAGE");
        DispatchMessageW(&message);
        EXPECT_EQ(calls > 0, isEvent);
    }

    EXPECT_GT(calls, 0);
}

TEST_F(SentMessages, ATextWhoseBoxLosesTheFocusToAnotherProgramIsTakenOverAfterwards)
{
    const HWND edit = FindWindowExW(control("Solver"), nullptr, L"Edit", nullptr);
    SetFocus(edit);
    SendMessageW(edit, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"NENastran"));

    sendFromOutside(edit, WM_KILLFOCUS, 0);
    const int before = calls;
    handleMessages();

    EXPECT_EQ(before, 0);
    EXPECT_GT(calls, 0);
    EXPECT_EQ(refused, 0);
    EXPECT_EQ(window.form().Solver.Text, "NENastran");
}

TEST_F(SentMessages, ATextWhoseBoxIsLeftInTheFormIsTakenOverAtOnce)
{
    const HWND edit = FindWindowExW(control("Solver"), nullptr, L"Edit", nullptr);
    SetFocus(edit);
    SendMessageW(edit, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"NENastran"));

    SetFocus(control("CommandLine"));

    EXPECT_GT(calls, 0);
    EXPECT_EQ(window.form().Solver.Text, "NENastran");
}

}  // namespace
