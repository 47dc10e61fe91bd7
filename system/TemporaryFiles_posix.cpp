// TemporaryFiles.h on Linux and other POSIX systems.
#include "system/TemporaryFiles.h"

#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace sys
{

namespace
{

struct Entry
{
    volatile std::sig_atomic_t isUsed = 0;
    std::array<char, PATH_MAX> path = {};
};

// A signal handler may read nothing that is allocated.
std::array<Entry, 16> entries;

constexpr std::array<int, 3> endingSignals = {SIGINT, SIGTERM, SIGHUP};

sigset_t setOfEndingSignals()
{
    sigset_t set;
    sigemptyset(&set);
    for (const int signal : endingSignals)
        sigaddset(&set, signal);
    return set;
}

// No signal comes between a file and its entry.
class SignalsWait
{
public:
    SignalsWait()
    {
        const sigset_t set = setOfEndingSignals();
        pthread_sigmask(SIG_BLOCK, &set, &before_);
    }
    ~SignalsWait() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
    SignalsWait(const SignalsWait&) = delete;
    SignalsWait& operator=(const SignalsWait&) = delete;

private:
    sigset_t before_{};
};

void remember(const std::string& path)
{
    for (Entry& entry : entries)
        if (entry.isUsed == 0 && path.size() < entry.path.size()) {
            std::memcpy(entry.path.data(), path.c_str(), path.size() + 1);
            entry.isUsed = 1;
            return;
        }
}

// The usual way is taken when it returns: the signal is pending again and has its usual meaning.
void removeAndEnd(int signal)
{
    const int errorBefore = errno;
    for (const Entry& entry : entries)
        if (entry.isUsed != 0)
            unlink(entry.path.data());
    static_cast<void>(raise(signal));
    errno = errorBefore;
}

mode_t rightsOf(const std::string& path)
{
    constexpr mode_t everybody = 0666;  // as far as the user's mask lets
    struct stat status = {};
    return stat(path.c_str(), &status) == 0 ? status.st_mode & everybody : everybody;
}

}  // namespace

std::FILE* createTemporary(const std::string& path, std::string& temporary, std::error_code& reason)
{
    const SignalsWait untilItIsRemembered;
    const std::string folder = folderPartOf(path);
    const mode_t rights = rightsOf(path);
    int file = -1;
    for (int left = temporaryNamesTried; left > 0; --left) {
        temporary = folder + nextTemporaryName(static_cast<unsigned long>(getpid()));
        file =
            open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, rights);
        if (file >= 0 || errno != EEXIST)
            break;
    }
    std::FILE* const opened = file < 0 ? nullptr : fdopen(file, "wb");
    if (opened == nullptr)
        reason.assign(errno, std::generic_category());
    if (opened != nullptr)
        remember(temporary);
    else if (file >= 0) {
        close(file);
        unlink(temporary.c_str());
    }
    return opened;
}

void forgetTemporary(const std::string& temporary)
{
    for (Entry& entry : entries)
        if (entry.isUsed != 0 && temporary == entry.path.data())
            entry.isUsed = 0;
}

void removeTemporariesWhenEnded()
{
    for (const int signal : endingSignals) {
        struct sigaction before = {};
        if (sigaction(signal, nullptr, &before) != 0 || before.sa_handler == SIG_IGN)
            continue;
        struct sigaction action = {};
        action.sa_handler = removeAndEnd;
        action.sa_mask = setOfEndingSignals();
        action.sa_flags = static_cast<int>(SA_RESETHAND);
        sigaction(signal, &action, nullptr);
    }
}

}  // namespace sys
