#include "fake/FormFixture.h"
#include "fake/NeutralText.h"
#include "fake/TemporaryFolder.h"
#include "reliability/HeldFile_windows.h"
#include "system/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <io.h>
#include <string>
#include <thread>

namespace reliability
{

namespace
{

class AModelOnWindows : public testing::Test
{
protected:
    AModelOnWindows()
    {
        const auto file = sys::DiskFiles().create(path);
        file->write(neutral::completeFile());
        file->close();
    }

    fake::TemporaryFolder folder;
    const std::string path = folder.path("Träger.neu");
    fake::QueuedDialogs dialogs;
    femap::embedded::Host host{dialogs};
};

}  // namespace

TEST_F(AModelOnWindows, IsReadThoughAnotherProgramHoldsItForAMoment)
{
    std::thread other = holdForAMoment(path);

    EXPECT_NO_THROW(host.openNeutralFile(path));

    other.join();
    EXPECT_EQ(host.modelName, path);
}

TEST_F(AModelOnWindows, IsGivenUpWithTheReasonWhenAnotherProgramKeepsIt)
{
    const auto begin = std::chrono::steady_clock::now();
    const int held = hold(path);
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
