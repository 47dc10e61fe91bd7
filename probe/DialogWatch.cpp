#include "probe/DialogWatch.h"

#include "windows/Text.h"

#include <array>
#include <utility>

namespace probe
{

namespace
{

constexpr DWORD pause = 50;  // milliseconds between two looks

std::vector<HWND> visibleWindows(const std::set<DWORD>& processes)
{
    struct Search
    {
        const std::set<DWORD>& processes;
        std::vector<HWND> found;
    };
    Search search{processes, {}};
    EnumWindows(
        [](HWND window, LPARAM parameter) -> BOOL {
            Search& wanted = *reinterpret_cast<Search*>(parameter);
            DWORD process = 0;
            GetWindowThreadProcessId(window, &process);
            if (wanted.processes.contains(process) && IsWindowVisible(window))
                wanted.found.push_back(window);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

// Of windows whose program may answer nobody: the title that Windows itself keeps.
std::string describeWindow(HWND window)
{
    std::array<wchar_t, 200> kind{};
    std::array<wchar_t, 200> title{};
    const int kindLength = GetClassNameW(window, kind.data(), static_cast<int>(kind.size()));
    const int length = InternalGetWindowText(window, title.data(), static_cast<int>(title.size()));
    return '"' + windows::fromWide({title.data(), static_cast<std::size_t>(length)}) + "\" (" +
           windows::fromWide({kind.data(), static_cast<std::size_t>(kindLength)}) + ')';
}

}  // namespace

DialogWatch::DialogWatch() : thread_([this] { run(); }) {}

DialogWatch::~DialogWatch()
{
    ends_ = true;
    thread_.join();
}

void DialogWatch::follow(const std::set<DWORD>& processes)
{
    const std::lock_guard lock(mutex_);
    processes_ = processes;
    for (const HWND window : visibleWindows(processes_))
        known_.insert(window);
}

void DialogWatch::begin()
{
    const std::lock_guard lock(mutex_);
    isCalling_ = true;
}

std::vector<std::string> DialogWatch::end()
{
    const std::lock_guard lock(mutex_);
    isCalling_ = false;
    return std::exchange(shown_, {});
}

void DialogWatch::run()
{
    while (!ends_) {
        Sleep(pause);
        look();
    }
}

void DialogWatch::look()
{
    const std::lock_guard lock(mutex_);
    if (!isCalling_)
        return;
    for (const HWND window : visibleWindows(processes_))
        if (known_.insert(window).second)
            shown_.push_back(describeWindow(window));
}

}  // namespace probe
