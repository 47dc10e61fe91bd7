// FolderLock.h on Linux and other POSIX systems: flock on the folder itself, which leaves no file.
#include "system/FolderLock.h"
#include "system/Platform.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <pwd.h>
#include <sstream>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

namespace sys
{

namespace
{

class Flock : public FolderLock
{
public:
    explicit Flock(int folder) : folder_(folder) {}
    ~Flock() override { close(folder_); }
    Flock(const Flock&) = delete;
    Flock& operator=(const Flock&) = delete;

private:
    int folder_;
};

// Empty when it cannot be read.
std::istringstream contentOf(const std::string& path)
{
    std::string content;
    if (std::FILE* const file = openFile(path, Access::Read)) {
        std::array<char, 4096> piece = {};
        while (const std::size_t got = std::fread(piece.data(), 1, piece.size(), file))
            content.append(piece.data(), got);
        static_cast<void>(std::fclose(file));
    }
    return std::istringstream(content);
}

// The process that has the lock, as Linux lists it: "1: FLOCK ADVISORY WRITE 812 08:01:1234 0 EOF".
// Empty when the list does not show it, as for a process on another computer or in a container.
std::string processWithLockOn(const struct stat& folder)
{
    std::istringstream locks = contentOf("/proc/locks");
    for (std::string line; std::getline(locks, line);) {
        std::istringstream fields(line);
        std::string number, kind, strictness, access, process;
        unsigned int major = 0, minor = 0;
        ino_t inode = 0;
        char colon = ':';
        fields >> number >> kind >> strictness >> access >> process;
        fields >> std::hex >> major >> colon >> minor >> colon >> std::dec >> inode;
        if (fields && kind == "FLOCK" && inode == folder.st_ino &&
            makedev(major, minor) == folder.st_dev && process != "0" && process != "-1")
            return process;
    }
    return {};
}

std::string userOf(const struct stat& process)
{
    const passwd* const entry = getpwuid(process.st_uid);  // NOLINT(concurrency-mt-unsafe)
    return entry == nullptr ? std::to_string(process.st_uid) : entry->pw_name;
}

std::string thisComputer()
{
    std::array<char, 256> name = {};
    return gethostname(name.data(), name.size() - 1) == 0 ? name.data() : "";
}

std::string nameOfHolder(int folder)
{
    struct stat status = {};
    const std::string process = fstat(folder, &status) == 0 ? processWithLockOn(status) : "";
    // The process that took the lock may have ended and left it to another one.
    if (process.empty() || stat(("/proc/" + process).c_str(), &status) != 0)
        return "a process that the system does not name, perhaps on another computer";
    std::string program;
    std::istringstream name = contentOf("/proc/" + process + "/comm");
    std::getline(name, program);
    return program + " (process " + process + ") of user " + userOf(status) + " on computer " +
           thisComputer();
}

}  // namespace

std::unique_ptr<FolderLock> takeFolder(const std::string& folder, std::string& holder)
{
    const int opened =
        open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (opened < 0)
        return nullptr;
    auto lock = std::make_unique<Flock>(opened);
    if (flock(opened, LOCK_EX | LOCK_NB) == 0)
        return lock;
    if (errno == EWOULDBLOCK)
        holder = nameOfHolder(opened);
    return nullptr;
}

}  // namespace sys
