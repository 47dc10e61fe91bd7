#include "system/System.h"

#include "system/PatientFiles.h"
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

System withDisk(const System& system, Files& files)
{
    return {
        files,      system.codePage, system.localTime, system.monotonicSeconds, system.environment,
        system.wait};
}

System withCodePage(const System& system, const CodePage& codePage)
{
    return {system.files,       codePage,   system.localTime, system.monotonicSeconds,
            system.environment, system.wait};
}

System thisMachine()
{
    static const Pause sleep = [](std::chrono::milliseconds pause) {
        std::this_thread::sleep_for(pause);
    };
    static DiskFiles disk;
    static PatientFiles files(disk, sleep);
    return {files, usersCodePage(), localTime, monotonicSeconds, environmentVariable, sleep};
}

}  // namespace sys
