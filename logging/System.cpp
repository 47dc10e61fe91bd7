#include "logging/System.h"

#include <chrono>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <thread>

namespace logging
{

namespace
{

LocalTime now()
{
    using namespace std::chrono;
    const auto point = system_clock::now();
    const std::time_t seconds = system_clock::to_time_t(point);
    const std::tm* parts = std::localtime(&seconds);  // NOLINT(concurrency-mt-unsafe): one thread
    const auto sinceEpoch = duration_cast<milliseconds>(point.time_since_epoch()).count();
    return {parts->tm_year + 1900,
            parts->tm_mon + 1,
            parts->tm_mday,
            parts->tm_hour,
            parts->tm_min,
            parts->tm_sec,
            static_cast<int>(sinceEpoch % 1000)};
}

double monotonicSeconds()
{
    using namespace std::chrono;
    return duration<double>(steady_clock::now().time_since_epoch()).count();
}

// As UTF-8: on Windows only the wide form keeps a user name such as "Jörg" in TEMP.
std::string environmentVariable(const std::string& name)
{
#ifdef _WIN32
    const wchar_t* const value = _wgetenv(std::filesystem::path(name).c_str());
    if (value == nullptr)
        return {};
    const std::u8string text = std::filesystem::path(value).u8string();
    return {text.begin(), text.end()};
#else
    const char* const value = std::getenv(name.c_str());  // NOLINT(concurrency-mt-unsafe)
    return value == nullptr ? "" : value;
#endif
}

}  // namespace

System standardSystem()
{
    static DiskFiles files;
    return {files,
            windows1252(),
            now,
            monotonicSeconds,
            environmentVariable,
            [](std::chrono::milliseconds pause) { std::this_thread::sleep_for(pause); }};
}

}  // namespace logging
