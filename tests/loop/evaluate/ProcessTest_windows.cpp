#include "fake/TemporaryFolder.h"
#include "loop/evaluate/Platform.h"
#include "loop/evaluate/Process.h"
#include "system/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <thread>

using testing::HasSubstr;
using testing::StartsWith;

namespace loop::evaluate
{

namespace
{

class AProcessOnWindows : public testing::Test
{
protected:
    static int codeOf(Process& process)
    {
        std::optional<int> code;
        while (!(code = process.exitCode()))
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        return *code;
    }
    int codeOf(const Command& command) const
    {
        Process process(command, folder.path(), output());
        return codeOf(process);
    }
    std::string output() const { return folder.path("output"); }
    std::string said() const { return sys::DiskFiles().read(output()); }
    void write(const std::string& name, const std::string& text) const
    {
        const auto file = sys::DiskFiles().create(folder.path(name));
        file->write(text);
        file->close();
    }

    fake::TemporaryFolder folder;
};

TEST_F(AProcessOnWindows, MayBeABatchFileInItsFolder)
{
    write("FDFemap.bat", "@echo off\r\necho \"a b\"\r\nexit 7\r\n");

    EXPECT_EQ(codeOf({{}, {}, "FDFemap.bat"}), 7);

    EXPECT_EQ(said(), "\"a b\"\r\n");
}

TEST_F(AProcessOnWindows, MayBeALineWithQuotationMarks)
{
    write("say it.bat", "@echo %1\r\n");

    EXPECT_EQ(codeOf({{}, {}, "\"say it.bat\" \"x y\""}), 0);

    EXPECT_EQ(said(), "\"x y\"\r\n");
}

TEST_F(AProcessOnWindows, GetsItsWordsAsTheyAre)
{
    const std::string program = PROGRAM_FOLDER "/velmar-evaluate.exe";

    EXPECT_EQ(codeOf({program, {"a \"b\\\" c\\"}, {}}), 2);

    EXPECT_THAT(said(), StartsWith("velmar-evaluate: unknown argument a \"b\\\" c\\\r\n"));
}

TEST_F(AProcessOnWindows, ThatIsNotThereCannotBeStarted)
{
    try {
        const Process process({folder.path("none.exe"), {}, {}}, folder.path(), output());
        FAIL();
    }
    catch (const sys::RuntimeError& error) {
        EXPECT_THAT(error.description(), StartsWith("Program not started: 0x80070002"));
        EXPECT_THAT(error.description(), HasSubstr(folder.path("none.exe")));
    }
}

TEST_F(AProcessOnWindows, IsEndedWithAllThatItStarted)
{
    write("inner.bat", "@echo in\r\n@ping -n 60 127.0.0.1 >nul\r\n@echo late\r\n");
    Process process({{}, {}, "cmd /c inner.bat"}, folder.path(), output());
    while (said().empty())
        std::this_thread::sleep_for(std::chrono::milliseconds(5));

    process.end();

    EXPECT_NE(process.exitCode(), 0);
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    EXPECT_EQ(said(), "in\r\n");
}

TEST(AFolderOnAShare, IsToldFromOneWithALetter)
{
    EXPECT_TRUE(isOnShare(R"(\\server\share\study)"));
    EXPECT_TRUE(isOnShare("//server/share"));
    EXPECT_FALSE(isOnShare(R"(C:\study)"));
}

TEST(TheOwnFolder, HoldsTheOwnFile)
{
    EXPECT_TRUE(sys::DiskFiles().fileExists(ownFolder() + "loop_evaluate_test.exe"));
    EXPECT_EQ(programFile("CAEInput"), "CAEInput.exe");
}

}  // namespace

}  // namespace loop::evaluate
