#include "fake/TemporaryFolder.h"
#include "generate/TextFile.h"
#include "reliability/HeldFile_windows.h"
#include "system/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <io.h>
#include <string>
#include <sys/stat.h>
#include <thread>

namespace reliability
{

using testing::ElementsAre;
using testing::StartsWith;

namespace
{

class AFileOnWindows : public testing::Test
{
protected:
    AFileOnWindows() { write("old"); }

    void write(const std::string& text)
    {
        generate::TextFile file(system, log, path);
        file.line(text);
        file.close();
    }
    std::string errorOfWriting()
    {
        try {
            write("new");
        }
        catch (const sys::RuntimeError& error) {
            return error.description();
        }
        return "no error";
    }
    fake::TemporaryFolder folder;
    const std::string path = folder.path("Träger.txt");
    sys::System system = sys::thisMachine();
    logging::FemapLogger log{system};
};

}  // namespace

TEST_F(AFileOnWindows, IsWrittenThoughAnotherProgramHoldsItForAMoment)
{
    std::thread other = holdForAMoment(path);

    write("new");

    other.join();
    EXPECT_EQ(system.files.read(path), "new\r\n");
    EXPECT_THAT(folder.listing(), ElementsAre("Träger.txt"));
}

TEST_F(AFileOnWindows, IsReadThoughAnotherProgramHoldsItForAMoment)
{
    std::thread other = holdForAMoment(path);

    const std::string content = system.files.read(path);

    other.join();
    EXPECT_EQ(content, "old\r\n");
}

TEST_F(AFileOnWindows, IsTriedThoughAnotherProgramHoldsItForAMoment)
{
    std::thread other = holdForAMoment(path);

    EXPECT_NO_THROW(system.files.demandReplaceable(path));

    other.join();
    EXPECT_THAT(folder.listing(), ElementsAre("Träger.txt"));
}

TEST_F(AFileOnWindows, StaysAsItIsWhenAnotherProgramKeepsItAndAMessageSaysSo)
{
    const auto begin = std::chrono::steady_clock::now();
    const int held = hold(path);

    const std::string error = errorOfWriting();

    const auto waited = std::chrono::steady_clock::now() - begin;
    _close(held);
    EXPECT_EQ(error,
              "Permission denied. Träger.txt was not written. See whether another program "
              "has it open or it is write-protected, and try again: " +
                  path);
    EXPECT_GE(waited, std::chrono::milliseconds(450));
    EXPECT_LT(waited, std::chrono::seconds(4));
    EXPECT_EQ(system.files.read(path), "old\r\n");
    EXPECT_THAT(folder.listing(), ElementsAre("Träger.txt"));
}

TEST_F(AFileOnWindows, StaysAsItIsWhenItIsWriteProtectedAndAMessageSaysSo)
{
    const std::filesystem::path wide(std::u8string(path.begin(), path.end()));
    ASSERT_EQ(_wchmod(wide.c_str(), _S_IREAD), 0);

    const std::string error = errorOfWriting();

    EXPECT_EQ(_wchmod(wide.c_str(), _S_IREAD | _S_IWRITE), 0);
    EXPECT_THAT(error, StartsWith("Permission denied. Träger.txt was not written. See whether"));
    EXPECT_EQ(system.files.read(path), "old\r\n");
    EXPECT_THAT(folder.listing(), ElementsAre("Träger.txt"));
}

}  // namespace reliability
