// Replacing.h on Linux and other POSIX systems.
#include "system/Replacing.h"
#include "system/TemporaryFiles.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace sys
{

namespace
{

// In a folder such as /tmp only the owners of file and folder may replace a file.
bool isOthersInSharedFolder(const std::string& path, const struct stat& file)
{
    struct stat folder = {};
    const std::string name = folderPartOf(path);
    return stat(name.empty() ? "." : name.c_str(), &folder) == 0 &&
           (folder.st_mode & S_ISVTX) != 0 && geteuid() != 0 && geteuid() != file.st_uid &&
           geteuid() != folder.st_uid;
}

// Best effort: who may not give a file away keeps it.
void takeRights(const std::string& path, const std::string& by)
{
    constexpr mode_t allRights = 07777;
    struct stat old = {};
    struct stat fresh = {};
    if (stat(path.c_str(), &old) != 0 || stat(by.c_str(), &fresh) != 0)
        return;
    if ((old.st_uid != fresh.st_uid || old.st_gid != fresh.st_gid) &&
        chown(by.c_str(), old.st_uid, old.st_gid) != 0)
        static_cast<void>(chown(by.c_str(), static_cast<uid_t>(-1), old.st_gid));
    static_cast<void>(chmod(by.c_str(), old.st_mode & allRights));
}

// The file has its name already, so a disk that refuses this is no failure.
void bringFolderToDisk(const std::string& folder)
{
    const int opened =
        open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (opened < 0)
        return;
    static_cast<void>(fsync(opened));
    close(opened);
}

}  // namespace

std::error_code reasonAgainstReplacing(const std::string& path)
{
    constexpr mode_t anyWrite = S_IWUSR | S_IWGRP | S_IWOTH;
    struct stat status = {};
    if (stat(path.c_str(), &status) != 0)
        return errno == ENOENT ? std::error_code()
                               : std::error_code(errno, std::generic_category());
    if (S_ISDIR(status.st_mode))
        return std::make_error_code(std::errc::is_a_directory);
    if (!S_ISREG(status.st_mode))
        return std::make_error_code(std::errc::no_such_device);
    // Not every system refuses to replace a protected file.
    if ((status.st_mode & anyWrite) == 0 || isOthersInSharedFolder(path, status))
        return std::make_error_code(std::errc::permission_denied);
    return {};
}

std::error_code reasonAgainstCreatingIn(const std::string& folder)
{
    const char* const path = folder.empty() ? "." : folder.c_str();
    return faccessat(AT_FDCWD, path, W_OK | X_OK, AT_EACCESS) == 0
               ? std::error_code()
               : std::error_code(errno, std::generic_category());
}

std::error_code replaceFile(const std::string& path, const std::string& by)
{
    if (const std::error_code reason = reasonAgainstReplacing(path))
        return reason;
    takeRights(path, by);
    if (std::rename(by.c_str(), path.c_str()) != 0)
        return {errno, std::generic_category()};
    bringFolderToDisk(folderPartOf(path));
    return {};
}

}  // namespace sys
