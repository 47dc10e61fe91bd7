#include "FormHere.h"
#include "app/window/PropertyListWindow.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <utility>
#include <vector>

using driver::FormHere;
using testing::ElementsAre;
using testing::Pair;
using window::PropertyListWindow;

namespace
{

struct InputBlock : FormHere
{
    void postClick(std::string_view name) const
    {
        PostMessageW(control(name), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
        PostMessageW(control(name), WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
    }
    void postKey(std::string_view name, WPARAM key) const
    {
        PostMessageW(control(name), WM_KEYDOWN, key, 1);
        PostMessageW(control(name), WM_KEYUP, key, 0xC0000001);
    }
    // The messages of keyboard and mouse that wait in the queue.
    static std::vector<std::pair<UINT, WPARAM>> waiting()
    {
        constexpr std::pair<UINT, UINT> ranges[] = {{WM_KEYFIRST, WM_KEYLAST},
                                                    {WM_NCMOUSEMOVE, WM_NCXBUTTONDBLCLK},
                                                    {WM_MOUSEFIRST, WM_MOUSELAST}};
        std::vector<std::pair<UINT, WPARAM>> result;
        MSG message{};
        for (const auto& [first, last] : ranges)
            while (PeekMessageW(&message, nullptr, first, last, PM_REMOVE) != FALSE)
                if (message.message != WM_MOUSEMOVE && message.message != WM_NCMOUSEMOVE)
                    result.emplace_back(message.message, message.wParam);
        return result;
    }
    void sendEvent(WPARAM code) const
    {
        PostMessageA(form, RegisterWindowMessageA("FE_EVENT_MESSAGE"), code, 0);
    }
};

TEST_F(InputBlock, TheContentIsOffAndItsFrameOnWhileAProcedureRuns)
{
    bool content = true;
    bool frame = false;
    bool button = false;
    bool buttonAsData = false;
    bool willBePainted = true;
    UpdateWindow(form);
    duringFirstCall([&] {
        content = IsWindowEnabled(control("pbOuter")) != FALSE;
        frame = IsWindowEnabled(form) != FALSE;
        button = IsWindowEnabled(control("RefreshOutputs")) != FALSE;
        buttonAsData = window.form().RefreshOutputs.Enabled && window.form().pbOuter.Enabled;
        willBePainted = GetUpdateRect(control("OutputsButton"), nullptr, FALSE) != FALSE ||
                        GetUpdateRect(control("pbInner"), nullptr, FALSE) != FALSE;
    });

    press("RefreshInputs");

    EXPECT_FALSE(content);
    EXPECT_TRUE(frame);
    EXPECT_TRUE(button) << "it does not turn grey";
    EXPECT_TRUE(buttonAsData);
    EXPECT_FALSE(willBePainted);
    EXPECT_NE(IsWindowEnabled(control("pbOuter")), FALSE);
}

TEST_F(InputBlock, ClicksAndKeysMadeMeanwhileAreDropped)
{
    SetFocus(control("InputsList"));
    duringFirstCall([&] {
        postClick("ClearAll");
        postKey("InputsList", VK_DELETE);
        PostMessageW(control("CommandLine"), WM_CHAR, 'x', 1);
        PostMessageW(form, WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), 0);
    });

    press("RefreshInputs");

    EXPECT_THAT(waiting(), ElementsAre());
    EXPECT_EQ(rowCount("InputsList"), 2);
}

TEST_F(InputBlock, EscapeAndWhatClosesTheFormAreKept)
{
    duringFirstCall([&] {
        postKey("CommandLine", VK_ESCAPE);
        postKey("CommandLine", VK_RETURN);
        PostMessageW(control("CommandLine"), WM_SYSKEYDOWN, VK_F4, 0x20000001);
        PostMessageW(form, WM_NCLBUTTONDOWN, HTCLOSE, 0);
    });

    press("RefreshInputs");

    EXPECT_THAT(waiting(),
                testing::UnorderedElementsAre(Pair(UINT{WM_KEYDOWN}, WPARAM{VK_ESCAPE}),
                                              Pair(UINT{WM_SYSKEYDOWN}, WPARAM{VK_F4}),
                                              Pair(UINT{WM_NCLBUTTONDOWN}, WPARAM{HTCLOSE})));
}

TEST_F(InputBlock, TheMouseIsReleasedFirst)
{
    SetCapture(control("ClearAll"));
    HWND meanwhile = form;
    duringFirstCall([&] { meanwhile = GetCapture(); });

    sendEvent(newModel);
    handleMessages();

    EXPECT_EQ(meanwhile, nullptr);
}

TEST_F(InputBlock, AMouseThatHoldsSomethingElseStaysAsItIs)
{
    const HWND other = CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0,
                                       99, 99, nullptr, nullptr, nullptr, nullptr);
    SetCapture(other);
    HWND meanwhile = nullptr;
    duringFirstCall([&] { meanwhile = GetCapture(); });

    sendEvent(newModel);
    handleMessages();

    EXPECT_EQ(meanwhile, other);
    DestroyWindow(other);
}

TEST_F(InputBlock, TheFocusIsAfterwardsWhereItWas)
{
    SetFocus(control("RefreshInputs"));
    HWND meanwhile = nullptr;
    duringFirstCall([&] {
        meanwhile = GetFocus();
        sendEvent(newModel);  // is handled meanwhile and must not move it
        handleMessages();
    });

    press("RefreshInputs");

    EXPECT_EQ(meanwhile, control("RefreshInputs"));
    EXPECT_EQ(GetFocus(), control("RefreshInputs"));
}

// Opens the list of quantities with the focus on the button, and leaves it by Cancel.
TEST_F(InputBlock, TheFocusComesBackFromTheDialogToo)
{
    SetFocus(control("InputsButton"));
    static HWND content;
    static bool duringDialog;
    content = control("pbOuter");
    SetTimer(nullptr, 0, 20, [](HWND, UINT, UINT_PTR timer, DWORD) {
        KillTimer(nullptr, timer);
        duringDialog = IsWindowEnabled(content) != FALSE;
        const HWND dialog = FindWindowW(L"#32770", L"Select Properties");
        PostMessageW(GetDlgItem(dialog, PropertyListWindow::idCancel), BM_CLICK, 0, 0);
    });

    press("InputsButton");
    handleMessages();

    EXPECT_FALSE(duringDialog);
    EXPECT_NE(IsWindowEnabled(content), FALSE);
    EXPECT_EQ(GetFocus(), control("InputsButton"));
}

TEST_F(InputBlock, AFormThatIsClosedMeanwhileEndsWithTheProcedure)
{
    duringFirstCall([&] { SendMessageW(form, WM_CLOSE, 0, 0); });

    press("RefreshInputs");

    EXPECT_EQ(IsWindow(form), FALSE);
}

TEST_F(InputBlock, KeysThatDoNothingButMoveTheSelectionDropNoOther)
{
    SetFocus(control("InputsList"));
    postKey("InputsList", VK_DOWN);
    postKey("InputsList", VK_UP);
    postKey("InputsList", VK_DOWN);

    handleMessages();

    EXPECT_EQ(window.form().InputsList.Row, 2);
}

TEST_F(InputBlock, EventsThatTheFormIgnoresDropNothing)
{
    postKey("CommandLine", VK_END);
    const UINT event = RegisterWindowMessageA("FE_EVENT_MESSAGE");

    SendMessageA(form, event, 12, 0);

    EXPECT_FALSE(waiting().empty());
}

TEST_F(InputBlock, ALookForFemapThatFindsNoneDropsNothing)
{
    femap.dieAt("feAppLock");
    press("RefreshInputs");
    femap.beforeCall = [](const std::string&) {};
    femap.attachFindsNothing = true;
    postKey("CommandLine", VK_END);

    SendMessageW(form, WM_TIMER, 1, 0);

    EXPECT_FALSE(waiting().empty());
}

// The click that takes the focus out of a box is not yet done when the box's text is taken over.
TEST_F(InputBlock, TheClickThatLeavesABoxStillPresses)
{
    const HWND edit = FindWindowExW(control("Solver"), nullptr, L"Edit", nullptr);
    SetFocus(edit);
    SendMessageW(edit, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"NENastran"));
    std::string taken;
    duringFirstCall([&] { taken = window.form().Solver.Text; });
    postClick("ClearAll");

    std::array<BYTE, 256> keys{};
    GetKeyboardState(keys.data());
    keys[VK_LBUTTON] = 0x80;  // as Windows has it when it hands out the real click
    SetKeyboardState(keys.data());
    handleMessages();
    keys[VK_LBUTTON] = 0;
    SetKeyboardState(keys.data());

    EXPECT_EQ(taken, "NENastran");
    EXPECT_EQ(rowCount("InputsList"), 1);
    EXPECT_EQ(window.form().InputsList.text(1, 0), "");
}

// The form is shown, and off, as long as start-up waits for FEMAP.
struct InputDuringStart : InputBlock
{
    void SetUp() override
    {
        duringFirstCall([this] {
            form = driver::visibleWindow(GetCurrentProcessId(), L"VelmarFemapInterface");
            ASSERT_NE(form, nullptr);
            postClick("ClearAll");
            postKey("InputsList", VK_DELETE);
        });
        FormHere::SetUp();
    }
};

TEST_F(InputDuringStart, IsDropped)
{
    EXPECT_EQ(rowCount("InputsList"), 2);
}

}  // namespace
