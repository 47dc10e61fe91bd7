// Platform.h on Linux and other POSIX systems.
#include "generate/Targets.h"
#include "loop/evaluate/Platform.h"
#include "system/ProgramStart.h"

#include <array>
#include <climits>
#include <csignal>
#include <unistd.h>

namespace loop::evaluate
{

namespace
{

volatile std::sig_atomic_t wasAskedToStop = 0;

void askToStop(int /*signal*/)
{
    wasAskedToStop = 1;
}

}  // namespace

void prepareProcess()
{
    sys::prepareProgram();
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction action = {};
        if (sigaction(signal, nullptr, &action) != 0 || action.sa_handler == SIG_IGN)
            continue;
        action.sa_handler = askToStop;
        action.sa_flags = SA_RESTART;
        sigaction(signal, &action, nullptr);
    }
}

bool isToStop()
{
    return wasAskedToStop != 0;
}

bool hasFemap()
{
    return false;
}

std::string ownFolder()
{
    std::array<char, PATH_MAX> path = {};
    const ssize_t length = readlink("/proc/self/exe", path.data(), path.size());
    const std::string file(path.data(), length < 0 ? 0 : static_cast<std::size_t>(length));
    return file.substr(0, file.rfind('/') + 1);
}

std::string programFile(const std::string& name)
{
    return name;
}

std::string batchLine(sys::System& system, const std::string& folder)
{
    std::string line =
        system.codePage.decode(system.files.read(folder + std::string(generate::batchFile)));
    std::erase(line, '\r');
    return line;
}

bool isOnShare(const std::string& /*folder*/)
{
    return false;
}

}  // namespace loop::evaluate
