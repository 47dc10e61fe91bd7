#include "ProductFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>

using driver::textOf;
using driver::waitUntil;
using testing::StartsWith;

namespace
{

constexpr std::string_view waiting = "Waiting for FEMAP";

// The form while FEMAP keeps start-up waiting. Nothing is asked of it that it could answer only
// when start-up is done.
struct StartWindow : driver::Product
{
    HWND shownWindow()
    {
        waitUntil([&] { return window() != nullptr || !process->isRunning(); },
                  std::chrono::seconds(30));
        return window();
    }
    HWND window() { return driver::visibleWindow(process->id(), L"VelmarFemapInterface"); }
    bool isOn(std::string_view name)
    {
        return IsWindowEnabled(driver::controlOf(window(), name)) != FALSE;
    }
};

TEST_F(StartWindow, IsThereAndOffWhileFemapIsBusy)
{
    femap.beBusy();
    launch();

    ASSERT_NE(shownWindow(), nullptr);

    EXPECT_THAT(textOf(driver::controlOf(window(), "StatusLine")), StartsWith(waiting));
    for (const char* const name : {"InputsButton", "GenerateButton", "Solver", "CommandLine"})
        EXPECT_FALSE(isOn(name)) << name;
    femap.beBusy(0);
    EXPECT_TRUE(waitUntil([&] { return isOn("GenerateButton"); }));
    EXPECT_EQ(form->text("StatusLine"), "");
    EXPECT_THAT(form->text("CommandLine"), StartsWith("nastran "));
}

TEST_F(StartWindow, IsThereWhileFemapAnswersNobodyAtAll)
{
    constexpr int calls = 20;  // five seconds
    femap.reject(calls);
    launch();

    ASSERT_NE(shownWindow(), nullptr) << files.log();

    EXPECT_FALSE(isOn("GenerateButton"));
    EXPECT_THAT(textOf(driver::controlOf(window(), "StatusLine")), StartsWith(waiting));
    EXPECT_TRUE(waitUntil([&] { return isOn("GenerateButton"); }));
    EXPECT_EQ(form->text("StatusLine"), "");
}

TEST_F(StartWindow, ThatIsClosedMeanwhileGoesWhenFemapAnswers)
{
    femap.beBusy();
    launch();
    ASSERT_NE(shownWindow(), nullptr);
    PostMessageW(window(), WM_CLOSE, 0, 0);

    femap.beBusy(0);

    EXPECT_EQ(process->exitCode(), 0U);
    EXPECT_EQ(femap.lockCount(), 0);
}

// One line of each kind that a usual start writes, once.
TEST_F(StartWindow, LeavesTheLogAsItWas)
{
    start();
    PostMessageW(form->window(), WM_CLOSE, 0, 0);
    EXPECT_EQ(process->exitCode(), 0U);

    const std::string log = files.log();
    const auto count = [&](const std::string& line) {
        int found = 0;
        for (std::size_t place = log.find(line); place != std::string::npos;
             place = log.find(line, place + 1))
            ++found;
        return found;
    };
    EXPECT_EQ(count("At start of Form_Resize"), 1);
    EXPECT_EQ(count("Scroll1_Change"), 0);
    EXPECT_LT(log.find("At end of Load Form"), log.find("At start of Form_Resize"));
}

}  // namespace
