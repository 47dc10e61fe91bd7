#include "system/DiskFilesFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>

using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::StartsWith;

namespace
{

class LookingAtFiles : public DiskFilesFixture
{
protected:
    // What is in the way of replacing a file; the trial must find the same.
    std::string refusalByLook(const std::string& path)
    {
        const std::string refusal = refusalOf([&] { files.lookReplaceable(path); });
        EXPECT_EQ(refusal, refusalOf([&] { files.demandReplaceable(path); }));
        return refusal;
    }
};

TEST_F(LookingAtFiles, ReadsAFilePieceByPiece)
{
    write(folder.path("in"), "0123456789");

    const auto file = files.openToRead(folder.path("in"));

    EXPECT_EQ(file->next(4), "0123");
    EXPECT_EQ(file->next(4), "4567");
    EXPECT_EQ(file->next(4), "89");
    EXPECT_EQ(file->next(4), "");
}

TEST_F(LookingAtFiles, TellsAFileThatCannotBeOpened)
{
    const auto error = errorOf([&] { files.openToRead(folder.path("none")); });

    EXPECT_EQ(error.number(), sys::ErrorNumber::FileNotFound);
    EXPECT_EQ(error.description(),
              "File not opened: No such file or directory: " + folder.path("none"));
}

TEST_F(LookingAtFiles, TellsSizeAndTimeOfAFile)
{
    using namespace std::chrono;
    const auto now = [] {
        return duration_cast<seconds>(system_clock::now().time_since_epoch()).count();
    };
    const auto before = now();
    write(folder.path("in"), "0123456789");

    const auto facts = files.facts(folder.path("in"));

    ASSERT_TRUE(facts);
    EXPECT_EQ(facts->size, 10U);
    EXPECT_GE(facts->changed, before - 2);
    EXPECT_LE(facts->changed, now() + 2);
    EXPECT_FALSE(files.facts(folder.path("none")));
    EXPECT_FALSE(files.facts(folder.path())) << "a folder is no file";
}

TEST_F(LookingAtFiles, FindsWhatCanBeReplacedAndTouchesNothing)
{
    write(folder.path("old"), "old");
    const auto time = std::filesystem::last_write_time(folder.path());

    files.lookReplaceable(folder.path("old"));
    files.lookReplaceable(folder.path("none"));

    EXPECT_EQ(std::filesystem::last_write_time(folder.path()), time);
    EXPECT_THAT(folder.listing(), ElementsAre("old"));
}

TEST_F(LookingAtFiles, FindsWhatATrialFinds)
{
    using std::filesystem::perms;
    std::filesystem::create_directory(folder.path("taken"));
    write(folder.path("protected"), "old");
    std::filesystem::permissions(folder.path("protected"), perms::owner_read);
    const std::string gone = folder.path("gone") + sys::pathSeparator + "out";
    const std::string longName = folder.path(std::string(300, 'n'));

    EXPECT_EQ(refusalByLook(folder.path("none")), "no error");
    EXPECT_EQ(refusalByLook(folder.path("taken")),
              "File not replaced: it is a folder, not a file: " + folder.path("taken"));
    EXPECT_EQ(refusalByLook(folder.path("protected")),
              "File not replaced: Permission denied: " + folder.path("protected"));
    EXPECT_THAT(refusalByLook(gone), AllOf(StartsWith("File not "), EndsWith(": " + gone)));
    EXPECT_THAT(refusalByLook(longName), StartsWith("File not "));
    std::filesystem::permissions(folder.path("protected"), perms::owner_all);
}

}  // namespace
