// Platform.h on Linux and other POSIX systems.
#include "system/CodePage.h"
#include "system/Platform.h"
#include "system/System.h"

#include <cerrno>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace sys
{

const char pathSeparator = '/';
const std::string_view pathSeparators = "/";

std::filesystem::path toPath(const std::string& path)
{
    return path;
}

std::string fullPath(const std::string& path, std::error_code& reason)
{
    return std::filesystem::absolute(path, reason).lexically_normal();
}

std::string foldedPath(const std::string& path)
{
    return path;
}

bool namesDevice(const std::string& /*path*/)
{
    return false;
}

std::FILE* openFile(const std::string& path, Access access)
{
    const bool forWriting = access != Access::Read;
    const int position = access == Access::Append ? O_APPEND : O_TRUNC;
    const int flags = forWriting ? O_WRONLY | O_CREAT | position : O_RDONLY;
    // Without waiting for the other end of a pipe.
    const int file = open(path.c_str(), flags | O_CLOEXEC | O_NOCTTY | O_NONBLOCK, 0666);
    if (file < 0)
        return nullptr;
    struct stat status = {};
    const bool isKnown = fstat(file, &status) == 0;
    // A device such as /dev/null takes everything; what one gives may never end.
    const bool mayBeOpen =
        isKnown && (S_ISREG(status.st_mode) || (forWriting && S_ISCHR(status.st_mode)));
    if (mayBeOpen)
        return fdopen(file, forWriting ? "wb" : "rb");
    close(file);
    errno = isKnown && S_ISDIR(status.st_mode) ? EISDIR : ENODEV;
    return nullptr;
}

std::FILE* openFileAlone(const std::string& path, std::error_code& reason)
{
    const auto failed = [&reason](int number) {
        reason = {number, std::generic_category()};
        return nullptr;
    };
    // Without waiting for the other end of a pipe, and before a device does anything.
    const int handle =
        open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOCTTY | O_NONBLOCK, 0666);
    if (handle < 0)
        return failed(errno);
    struct stat status = {};
    if (fstat(handle, &status) != 0 || !S_ISREG(status.st_mode)) {
        close(handle);
        return failed(ENODEV);
    }
    // Other failures mean that this file system has no locks.
    if (flock(handle, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
        close(handle);
        return failed(EBUSY);
    }
    std::FILE* const file = fdopen(handle, "r+b");
    return file != nullptr ? file : failed(errno);
}

int emptyFile(std::FILE* file)
{
    return std::fseek(file, 0, SEEK_SET) != 0 ? -1 : ftruncate(fileno(file), 0);
}

int bringToDisk(std::FILE* file)
{
    return fsync(fileno(file));
}

bool isFolder(const std::string& path)
{
    std::error_code reason;
    return std::filesystem::is_directory(toPath(path), reason);
}

void removeFile(const std::string& path)
{
    static_cast<void>(std::remove(path.c_str()));  // there may be none
}

std::error_condition conditionOf(const std::error_code& reason)
{
    return reason.default_error_condition();
}

const CodePage& usersCodePage()
{
    return windows1252();
}

LocalTime localTime()
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

std::string environmentVariable(const std::string& name)
{
    const char* const value = std::getenv(name.c_str());  // NOLINT(concurrency-mt-unsafe)
    return value == nullptr ? "" : value;
}

}  // namespace sys
