#include "fake/TemporaryFolder.h"
#include "system/Files.h"
#include "system/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

bool mayAlways(std::string_view)
{
    return true;
}

std::string errorOfOpeningAlone(const std::string& path)
{
    sys::DiskFiles files;
    try {
        files.openAlone(path, mayAlways);
    }
    catch (const sys::RuntimeError& error) {
        return error.description();
    }
    return {};
}

// Another process that has a file open alone until it is let go.
class OtherProcess
{
public:
    explicit OtherProcess(const std::string& path)
    {
        EXPECT_EQ(pipe(toChild_.data()), 0);
        EXPECT_EQ(pipe(fromChild_.data()), 0);
        process_ = fork();
        if (process_ == 0)
            hold(path);
        char ready = 0;
        EXPECT_EQ(read(fromChild_[0], &ready, 1), 1);
    }
    ~OtherProcess()
    {
        EXPECT_EQ(write(toChild_[1], "x", 1), 1);
        int status = 0;
        waitpid(process_, &status, 0);
        for (const int end : {toChild_[0], toChild_[1], fromChild_[0], fromChild_[1]})
            close(end);
    }
    OtherProcess(const OtherProcess&) = delete;
    OtherProcess& operator=(const OtherProcess&) = delete;

private:
    [[noreturn]] void hold(const std::string& path) const
    {
        {
            sys::DiskFiles files;
            const auto file = files.openAlone(path, mayAlways);
            char go = 0;
            file->write("one\n");
            if (write(fromChild_[1], "x", 1) == 1 && read(toChild_[0], &go, 1) == 1)
                file->write("two\n");
        }
        _exit(0);
    }

    std::array<int, 2> toChild_{};
    std::array<int, 2> fromChild_{};
    pid_t process_ = -1;
};

TEST(OpenAlonePosix, IsDeniedWhileAnotherProcessHasTheFileAndFreeWhenThatEnds)
{
    const fake::TemporaryFolder folder;
    const std::string path = folder.path("run.log");
    {
        const OtherProcess other(path);

        EXPECT_EQ(errorOfOpeningAlone(path), "another program has the file open: " + path);
    }

    EXPECT_EQ(sys::DiskFiles().read(path), "one\ntwo\n");
    EXPECT_EQ(errorOfOpeningAlone(path), "");
}

TEST(OpenAlonePosix, WaitsForNothingAndRefusesWhatIsNoOrdinaryFile)
{
    const fake::TemporaryFolder folder;
    const std::string pipeName = folder.path("pipe.log");
    ASSERT_EQ(mkfifo(pipeName.c_str(), 0600), 0);

    for (const std::string& path : {pipeName, std::string("/dev/full"), std::string("/dev/null")})
        EXPECT_EQ(errorOfOpeningAlone(path),
                  "File not created: it is a device or a pipe, not a file: " + path);
}

}  // namespace
