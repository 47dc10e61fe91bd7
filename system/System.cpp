#include "system/System.h"

#include "system/Platform.h"

#include <chrono>
#include <thread>

namespace sys
{

namespace
{

double monotonicSeconds()
{
    using namespace std::chrono;
    return duration<double>(steady_clock::now().time_since_epoch()).count();
}

}  // namespace

System thisMachine()
{
    static DiskFiles files;
    return {files,
            usersCodePage(),
            localTime,
            monotonicSeconds,
            environmentVariable,
            [](std::chrono::milliseconds pause) { std::this_thread::sleep_for(pause); }};
}

}  // namespace sys
