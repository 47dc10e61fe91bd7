#include "probe/DialogWatch.h"
#include "standin/StartedStandin.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <windows.h>

#include <string>
#include <vector>

namespace probe
{

namespace
{

class Window
{
public:
    explicit Window(const wchar_t* title)
        : window_(CreateWindowW(L"STATIC", title, WS_POPUP | WS_VISIBLE, 0, 0, 50, 50, nullptr,
                                nullptr, nullptr, nullptr))
    {}
    ~Window() { DestroyWindow(window_); }
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

private:
    HWND window_;
};

}  // namespace

TEST(DialogWatch, TellsWindowsThatAppearDuringACall)
{
    const Window before(L"was there");
    DialogWatch watch;
    watch.follow({GetCurrentProcessId()});

    watch.begin();
    const Window question(L"Save the model?");
    std::vector<std::string> shown;
    ASSERT_TRUE(comtest::comesTrue([&] {
        shown = watch.end();
        watch.begin();
        return !shown.empty();
    }));

    EXPECT_THAT(shown, testing::ElementsAre("\"Save the model?\" (Static)"));
}

TEST(DialogWatch, DoesNotLookBetweenCallsNorAtOtherProcesses)
{
    DialogWatch watch;
    watch.follow({GetCurrentProcessId()});
    {
        const Window between(L"between");
        Sleep(200);  // it would have looked several times
    }
    watch.follow({});
    watch.begin();
    const Window other(L"of another process");
    Sleep(200);

    EXPECT_THAT(watch.end(), testing::IsEmpty());
}

}  // namespace probe
