#include "fake/NeutralText.h"
#include "fake/TemporaryFolder.h"
#include "femap/embedded/Host.h"
#include "system/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <fcntl.h>
#include <filesystem>
#include <io.h>
#include <share.h>
#include <string>
#include <thread>
#include <vector>

namespace reliability
{

namespace
{

class NoDialogs : public femap::SelectionDialogs
{
public:
    femap::Selection answer(femap::EntityType /*type*/, const std::string& /*title*/,
                            bool /*onlyOne*/, const std::vector<int>& /*available*/) override
    {
        return {femap::ReturnCode::Cancel, {}};
    }
};

class AModelOnWindows : public testing::Test
{
protected:
    AModelOnWindows()
    {
        const auto file = sys::DiskFiles().create(path);
        file->write(neutral::completeFile());
        file->close();
    }

    // Opens it as a program does that lets nobody else read, write or delete it.
    int hold() const
    {
        const std::filesystem::path wide(std::u8string(path.begin(), path.end()));
        const int file = _wsopen(wide.c_str(), _O_RDONLY | _O_BINARY, _SH_DENYRW, 0);
        EXPECT_GE(file, 0);
        return file;
    }

    fake::TemporaryFolder folder;
    const std::string path = folder.path("Träger.neu");
    NoDialogs dialogs;
    femap::embedded::Host host{dialogs};
};

}  // namespace

TEST_F(AModelOnWindows, IsReadThoughAnotherProgramHoldsItForAMoment)
{
    const int held = hold();
    std::thread other([held] {
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        _close(held);
    });

    EXPECT_NO_THROW(host.openNeutralFile(path));

    other.join();
    EXPECT_EQ(host.modelName, path);
}

TEST_F(AModelOnWindows, IsGivenUpWithTheReasonWhenAnotherProgramKeepsIt)
{
    const auto begin = std::chrono::steady_clock::now();
    const int held = hold();
    std::string error;

    try {
        host.openNeutralFile(path);
    }
    catch (const sys::RuntimeError& refused) {
        error = refused.description();
    }

    const auto waited = std::chrono::steady_clock::now() - begin;
    _close(held);
    EXPECT_EQ(error, "File not opened: Permission denied: " + path);
    EXPECT_GE(waited, std::chrono::milliseconds(450));
    EXPECT_LT(waited, std::chrono::seconds(4));
}

}  // namespace reliability
