#include "fake/MemoryFiles.h"
#include "generate/TextFile.h"
#include "system/Retry.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <vector>

using sys::ErrorNumber;
using sys::RuntimeError;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Key;
using testing::SizeIs;

namespace
{

// A disk on which another program holds the files for some time.
class HeldFiles : public fake::MemoryFiles
{
public:
    int refusals = 0;
    ErrorNumber number = ErrorNumber::PermissionDenied;

    std::unique_ptr<sys::OutputFile> create(const std::string& path) override
    {
        refuse(path);
        return MemoryFiles::create(path);
    }
    void replace(const std::string& path, const std::string& by) override
    {
        refuse(path);
        MemoryFiles::replace(path, by);
    }

private:
    void refuse(const std::string& path)
    {
        if (refusals > 0 && refusals-- > 0)
            throw RuntimeError(number, path + " could not be replaced: Permission denied");
    }
};

class FileHeldByAnotherProgram : public testing::Test
{
protected:
    void write()
    {
        generate::TextFile file(system, log, "/out");
        file.line("new");
        file.close();
    }

    HeldFiles files;
    std::vector<std::chrono::milliseconds> waits;
    sys::System system{files,
                       sys::windows1252(),
                       [] { return sys::LocalTime{}; },
                       [] { return 0.0; },
                       [](const std::string&) { return std::string(); },
                       [this](std::chrono::milliseconds pause) { waits.push_back(pause); }};
    logging::FemapLogger log{system};
};

TEST_F(FileHeldByAnotherProgram, IsWrittenAtOnceWhenItIsFree)
{
    write();

    EXPECT_THAT(waits, IsEmpty());
}

TEST_F(FileHeldByAnotherProgram, IsTriedAgainFiveTimesEachTenthOfASecond)
{
    files.contents["/out"] = "old";
    files.refusals = 5;

    write();

    EXPECT_THAT(files.contents, ElementsAre(Key("/out")));
    EXPECT_EQ(files.contents["/out"], "new\r\n");
    EXPECT_THAT(waits, SizeIs(5));
    EXPECT_THAT(waits, Each(std::chrono::milliseconds(100)));
}

TEST_F(FileHeldByAnotherProgram, IsGivenUpAfterThatWithTheReasonAndTheCure)
{
    files.contents["/out"] = "old";
    try {
        generate::TextFile file(system, log, "/out");
        file.line("new");
        files.refusals = 6;
        file.close();
        ADD_FAILURE() << "the file is held";
    }
    catch (const RuntimeError& error) {
        EXPECT_EQ(error.number(), ErrorNumber::PermissionDenied);
        EXPECT_EQ(error.description(),
                  "/out was not written: Permission denied. See whether another program has it "
                  "open or it is write-protected, and try again");
    }

    EXPECT_THAT(waits, SizeIs(5));
    EXPECT_THAT(files.contents, ElementsAre(Key("/out")));
    EXPECT_EQ(files.contents["/out"], "old");
}

TEST_F(FileHeldByAnotherProgram, IsTheOnlyReasonToTryAgain)
{
    files.refusals = 1;
    files.number = ErrorNumber::FileError;

    EXPECT_THROW(write(), RuntimeError);

    EXPECT_THAT(waits, IsEmpty());
}

TEST_F(FileHeldByAnotherProgram, IsTriedAgainAlsoWhereNoTimePasses)
{
    system.wait = nullptr;
    files.refusals = 3;

    write();

    EXPECT_EQ(files.contents["/out"], "new\r\n");
}

}  // namespace
