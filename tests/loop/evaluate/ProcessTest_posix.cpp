#include "fake/TemporaryFolder.h"
#include "loop/evaluate/Process.h"
#include "system/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <string>
#include <system_error>
#include <thread>

namespace loop::evaluate
{

namespace
{

class AProcess : public testing::Test
{
protected:
    int codeOf(Process& process)
    {
        std::optional<int> code;
        while (!(code = process.exitCode()))
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        return *code;
    }
    int codeOf(const Command& command)
    {
        Process process(command, folder.path(), output());
        return codeOf(process);
    }
    std::string output() const { return folder.path("output"); }
    std::string said() const { return sys::DiskFiles().read(output()); }

    fake::TemporaryFolder folder;
};

TEST_F(AProcess, GetsItsWordsAsTheyAre)
{
    EXPECT_EQ(codeOf({"/usr/bin/printf", {"%s|", "a b", "", "\"$HOME\"", "*"}, {}}), 0);

    EXPECT_EQ(said(), "a b||\"$HOME\"|*|");
}

TEST_F(AProcess, MayBeALineOfTheShell)
{
    EXPECT_EQ(codeOf({{}, {}, "pwd; echo problem >&2; exit 7"}), 7);

    EXPECT_EQ(said(), folder.path() + "\nproblem\n");
}

TEST_F(AProcess, WritesBehindWhatWasThere)
{
    codeOf({{}, {}, "echo one"});
    codeOf({{}, {}, "echo two"});

    EXPECT_EQ(said(), "one\ntwo\n");
}

TEST_F(AProcess, HasNoInput)
{
    EXPECT_EQ(codeOf({{}, {}, "cat"}), 0);
}

TEST_F(AProcess, ThatIsEndedByASignalHasACodeOfItsOwn)
{
    EXPECT_EQ(codeOf({{}, {}, "kill -9 $$"}), 128 + SIGKILL);
}

TEST_F(AProcess, ThatIsNotThereCannotBeStarted)
{
    try {
        const Process process({folder.path("none"), {}, {}}, folder.path(), output());
        FAIL();
    }
    catch (const sys::RuntimeError& error) {
        EXPECT_EQ(error.description(),
                  "Program not started: No such file or directory: " + folder.path("none"));
    }
    EXPECT_THROW(Process({{}, {}, "true"}, folder.path("none"), output()), sys::RuntimeError);
}

TEST_F(AProcess, IsEndedWithAllThatItStarted)
{
    Process process({{}, {}, "(trap '' TERM INT; echo in; sleep 60; echo late) & wait"},
                    folder.path(), output());
    while (said().empty())
        std::this_thread::sleep_for(std::chrono::milliseconds(1));

    process.end();

    EXPECT_NE(process.exitCode(), 0);
    EXPECT_EQ(said(), "in\n");
}

TEST_F(AProcess, LeavesNothingRunningBehindItsEnd)
{
    const auto began = std::chrono::steady_clock::now();
    codeOf({{}, {}, "sleep 60 & echo $!"});

    // One that has ended, and that nobody has looked at yet, has no folder any more.
    const std::string left = "/proc/" + std::to_string(std::stoi(said())) + "/cwd";
    bool isLeft = true;
    for (int tries = 500; isLeft && tries > 0; --tries) {
        std::error_code isGone;
        static_cast<void>(std::filesystem::read_symlink(left, isGone));
        isLeft = !isGone;
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    EXPECT_FALSE(isLeft);
    EXPECT_LT(std::chrono::steady_clock::now() - began, std::chrono::seconds(30));
}

}  // namespace

}  // namespace loop::evaluate
