// What DiskFiles does on POSIX systems alone.
#include "system/DiskFilesFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <filesystem>
#include <string>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace
{
int foldersBroughtToDisk = 0;
}

// Takes the place of the C library's in this program and counts those of folders.
extern "C" int fsync(int file)
{
    struct stat status = {};
    if (fstat(file, &status) == 0 && S_ISDIR(status.st_mode))
        ++foldersBroughtToDisk;
    return static_cast<int>(syscall(SYS_fsync, file));
}

namespace
{

class DiskFilesOnPosix : public DiskFilesFixture
{
protected:
    mode_t modeOf(const std::string& name) const
    {
        struct stat status = {};
        EXPECT_EQ(stat(folder.path(name).c_str(), &status), 0);
        return status.st_mode & 07777U;
    }
};

TEST_F(DiskFilesOnPosix, FollowsNoLinkInThePlaceOfATemporaryFile)
{
    write(folder.path("precious"), "precious");
    const std::string one = files.createBeside(folder.path("out")).path;
    const std::size_t number = one.rfind('-') + 1;
    const int next = std::stoi(one.substr(number)) + 1;
    for (int i = next; i < next + 5; ++i)
        std::filesystem::create_symlink(folder.path("precious"),
                                        one.substr(0, number) + std::to_string(i) + ".part~");

    const sys::TemporaryFile two = files.createBeside(folder.path("out"));
    two.file->write("new");
    two.file->close();

    EXPECT_EQ(files.read(folder.path("precious")), "precious");
    EXPECT_FALSE(std::filesystem::is_symlink(two.path));
    EXPECT_EQ(files.read(two.path), "new");
}

TEST_F(DiskFilesOnPosix, KeepsTheRightsOfAReplacedFile)
{
    write(folder.path("secret"), "old");
    write(folder.path("shared"), "old");
    chmod(folder.path("secret").c_str(), 0600);
    chmod(folder.path("shared").c_str(), 0666);

    replace(folder.path("secret"));
    replace(folder.path("shared"));

    EXPECT_EQ(modeOf("secret"), 0600U);
    EXPECT_EQ(modeOf("shared"), 0666U);
    EXPECT_EQ(files.read(folder.path("secret")), "new");
}

TEST_F(DiskFilesOnPosix, LetsNobodyReadATemporaryFileWhoMayNotReadTheFile)
{
    write(folder.path("secret"), "old");
    chmod(folder.path("secret").c_str(), 0600);

    const sys::TemporaryFile fresh = files.createBeside(folder.path("secret"));

    EXPECT_EQ(modeOf(std::filesystem::path(fresh.path).filename()), 0600U);
}

TEST_F(DiskFilesOnPosix, KeepsTheOwnerOfAReplacedFileWhereTheUserMay)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "files can be given away by root alone";
    write(folder.path("other"), "old");
    ASSERT_EQ(chown(folder.path("other").c_str(), 1234, 2345), 0);

    replace(folder.path("other"));

    struct stat status = {};
    stat(folder.path("other").c_str(), &status);
    EXPECT_EQ(status.st_uid, 1234U);
    EXPECT_EQ(status.st_gid, 2345U);
}

TEST_F(DiskFilesOnPosix, BringsTheFolderToTheDiskWhenAFileIsReplaced)
{
    write(folder.path("out"), "old");
    foldersBroughtToDisk = 0;

    replace(folder.path("out"));

    EXPECT_EQ(foldersBroughtToDisk, 1);
}

TEST_F(DiskFilesOnPosix, RefusesAPipeInAFilesPlaceAndWaitsForNoOtherEnd)
{
    const std::string pipe = folder.path("pipe");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const std::string reason = ": it is a device or a pipe, not a file: ";

    EXPECT_EQ(refusalOf([&] { files.read(pipe); }), "File not opened" + reason + pipe);
    EXPECT_EQ(refusalOf([&] { files.create(pipe); }), "File not created" + reason + pipe);
    EXPECT_EQ(refusalOf([&] { files.demandReplaceable(pipe); }),
              "File not replaced" + reason + pipe);
    EXPECT_EQ(refusalOf([&] { replace(folder.path("pipe")); }),
              "File not replaced" + reason + pipe);
    const int reader = open(pipe.c_str(), O_RDONLY | O_NONBLOCK);
    EXPECT_EQ(refusalOf([&] { files.create(pipe); }), "File not created" + reason + pipe);
    close(reader);
}

TEST_F(DiskFilesOnPosix, ReadsNoDeviceThatNeverEnds)
{
    EXPECT_EQ(refusalOf([&] { files.read("/dev/zero"); }),
              "File not opened: it is a device or a pipe, not a file: /dev/zero");
}

TEST_F(DiskFilesOnPosix, RefusesAFolderInAFilesPlace)
{
    std::filesystem::create_directory(folder.path("taken"));

    EXPECT_EQ(refusalOf([&] { files.read(folder.path("taken")); }),
              "File not opened: it is a folder, not a file: " + folder.path("taken"));
    EXPECT_EQ(refusalOf([&] { files.create(folder.path("taken")); }),
              "File not created: it is a folder, not a file: " + folder.path("taken"));
}

}  // namespace
