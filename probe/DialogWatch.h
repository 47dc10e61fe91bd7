// Looks, from a thread of its own, for windows that FEMAP shows while a call is under way: a
// question or a warning that holds the call up belongs into the report.
#pragma once

#include <windows.h>

#include <atomic>
#include <mutex>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace probe
{

class DialogWatch
{
public:
    DialogWatch();
    ~DialogWatch();
    DialogWatch(const DialogWatch&) = delete;
    DialogWatch& operator=(const DialogWatch&) = delete;

    /// The windows of these processes are looked at; those that are there are nothing new.
    void follow(const std::set<DWORD>& processes);

    void begin();
    /// What was shown since begin: class and title of each window.
    std::vector<std::string> end();

private:
    void run();
    void look();

    std::mutex mutex_;
    std::set<DWORD> processes_;
    std::set<HWND> known_;
    std::vector<std::string> shown_;
    bool isCalling_ = false;
    std::atomic<bool> ends_ = false;
    std::thread thread_;
};

}  // namespace probe
