#include "fake/MemoryFiles.h"
#include "generate/TextFile.h"
#include "system/PatientFiles.h"
#include "system/System.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <functional>
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

    sys::TemporaryFile createBeside(const std::string& path) override
    {
        refuse(path);
        return MemoryFiles::createBeside(path);
    }
    std::unique_ptr<sys::OutputFile> create(const std::string& path) override
    {
        refuse(path);
        return MemoryFiles::create(path);
    }
    std::string read(const std::string& path) override
    {
        refuse(path);
        return MemoryFiles::read(path);
    }
    void demandReplaceable(const std::string& path) override
    {
        refuse(path);
        MemoryFiles::demandReplaceable(path);
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
            throw sys::DiskError(number, "File not replaced", "Permission denied", path);
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
    sys::PatientFiles patient{files,
                              [this](std::chrono::milliseconds pause) { waits.push_back(pause); }};
    sys::System system{patient, sys::windows1252(), [] { return sys::LocalTime{}; },
                       [] { return 0.0; }, [](const std::string&) { return std::string(); }};
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
                  "Permission denied. out was not written. See whether another program has it open "
                  "or it is write-protected, and try again: /out");
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
    sys::PatientFiles hurried(files, nullptr);
    files.contents["/in"] = "text";
    files.refusals = 3;

    EXPECT_EQ(hurried.read("/in"), "text");
}

TEST_F(FileHeldByAnotherProgram, IsWaitedForWhateverIsToBeDoneWithIt)
{
    files.contents["/out"] = "old";
    const std::vector<std::function<void()>> uses = {
        [this] { EXPECT_EQ(patient.read("/out"), "old"); },
        [this] { patient.demandReplaceable("/out"); },
        [this] { patient.create("/log"); },
        [this] { patient.remove(patient.createBeside("/out").path); },
        [this] {
            files.contents["/new"] = "";
            patient.replace("/out", "/new");
        },
    };
    for (const auto& use : uses) {
        files.refusals = 2;
        waits.clear();

        use();

        EXPECT_THAT(waits, SizeIs(2));
    }
}

TEST(ThisMachine, HasAPatientDisk)
{
    EXPECT_NE(dynamic_cast<sys::PatientFiles*>(&sys::thisMachine().files), nullptr);
}

}  // namespace
