#include "bench/com/FormStart.h"

#include "windows/Text.h"

#include <windows.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <stdexcept>

namespace bench
{

namespace
{

constexpr int starts = 5;
constexpr DWORD longest = 30'000;  // milliseconds

// Seconds from the start of the program until it is ready; then it is brought to its end.
double startSeconds(const std::string& command, const std::function<bool(HANDLE process)>& isReady,
                    const std::function<void()>& end)
{
    std::wstring line = windows::toWide(command);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    const auto start = std::chrono::steady_clock::now();
    if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, CREATE_NO_WINDOW, nullptr,
                       nullptr, &startup, &process) == FALSE)
        throw std::runtime_error("cannot be started: " + command);
    while (!isReady(process.hProcess)) {
        if (std::chrono::steady_clock::now() - start > std::chrono::milliseconds(longest))
            throw std::runtime_error("was never ready: " + command);
        Sleep(1);
    }
    const double seconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    end();
    WaitForSingleObject(process.hProcess, longest);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return seconds;
}

template <class Start>
double leastOf(const Start& start)
{
    double least = start();
    for (int i = 1; i < starts; ++i)
        least = std::min(least, start());
    return least;
}

HWND formWindow()
{
    return FindWindowW(L"VelmarFemapInterface", nullptr);
}

}  // namespace

double formStartSeconds(const std::string& arguments)
{
    return leastOf([&] {
        return startSeconds(
            "\"" PROGRAM_FOLDER
            "/VelmarFemapInterface.exe"
            "\" " +
                arguments,
            [](HANDLE) {
                return formWindow() != nullptr && IsWindowVisible(formWindow()) != FALSE;
            },
            [] { PostMessageW(formWindow(), WM_CLOSE, 0, 0); });
    });
}

double programStartSeconds()
{
    return leastOf([] {
        return startSeconds(
            "\"" PROGRAM_FOLDER
            "/velmar-study.exe"
            "\" --version",
            [](HANDLE process) { return WaitForSingleObject(process, 0) == WAIT_OBJECT_0; }, [] {});
    });
}

}  // namespace bench
