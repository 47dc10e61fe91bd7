#include "RunningStudy.h"
#include "system/FolderLock.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <filesystem>
#include <memory>
#include <string>
#include <thread>
#include <unistd.h>

namespace reliability
{

using testing::AnyOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* controlFile = "panelControl.txt";

// The content of a file, which is not in the folder's listing afterwards; empty when it was not.
std::string takenOut(Contents& files, const std::string& name)
{
    const auto node = files.extract(name);
    return node.empty() ? std::string() : node.mapped();
}

// VELMAR_ROUNDS=300 makes the long run of it.
TEST(TwoRunsInOneFolder, LeaveTheWholeFilesOfOneOfThem)
{
    const int rounds = roundsWanted("VELMAR_ROUNDS", 8);
    const Contents a = filesOf('a');
    const Contents b = filesOf('b');
    int refused = 0;
    for (int round = 1; round <= rounds; ++round) {
        SCOPED_TRACE("round " + std::to_string(round));
        const StudyFolder folder;
        RunningStudy first(folder.script('a', 3));
        RunningStudy second(folder.script('b', 3));

        for (const EndOfStudy& end : {first.end(), second.end()}) {
            EXPECT_THAT(end.exitCode, AnyOf(0, 1));
            EXPECT_EQ(end.exitCode == 0, end.errors.empty());
            if (end.exitCode != 0) {
                EXPECT_THAT(end.errors, HasSubstr("Another \"Apply\" writes in the same folder: "));
            }
            refused += end.exitCode;
        }
        Contents files = folder.files();
        // What one of them finds stored by the other it keeps.
        const std::string copy = takenOut(files, "panelControl.previous.txt");
        EXPECT_THAT(copy, AnyOf("", a.at(controlFile), b.at(controlFile)));
        EXPECT_TRUE(files == a || files == b);
    }
    RecordProperty("refused", refused);
}

// The system is asked who has the lock, so this shows that it answers.
TEST(ASecondApply, WaitsForTheFirstAndThenNamesItsProcessUserAndComputer)
{
    const StudyFolder folder;
    std::string holder;
    const std::unique_ptr<sys::FolderLock> lock = sys::takeFolder(folder.path(""), holder);
    ASSERT_NE(lock, nullptr);
    const auto begin = std::chrono::steady_clock::now();

    const EndOfStudy end = RunningStudy(folder.script('a')).end();

    EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::seconds(3));
    EXPECT_EQ(end.exitCode, 1);
    EXPECT_THAT(end.errors, HasSubstr("Another \"Apply\" writes in the same folder: "));
    EXPECT_THAT(end.errors, HasSubstr("(process " + std::to_string(getpid()) + ") of user "));
    std::array<char, 256> computer = {};
    gethostname(computer.data(), computer.size() - 1);
    EXPECT_THAT(end.errors, HasSubstr(std::string(" on computer ") + computer.data()));
    EXPECT_THAT(folder.files(), IsEmpty());
}

TEST(ASecondApply, GoesOnWhenTheFirstHasEndedMeanwhile)
{
    const StudyFolder folder;
    std::string holder;
    std::unique_ptr<sys::FolderLock> lock = sys::takeFolder(folder.path(""), holder);
    std::thread first([&lock] {
        std::this_thread::sleep_for(std::chrono::milliseconds(500));
        lock.reset();
    });

    const EndOfStudy end = RunningStudy(folder.script('a')).end();

    first.join();
    EXPECT_EQ(end.exitCode, 0) << end.errors;
    EXPECT_EQ(folder.files(), filesOf('a'));
}

TEST(AnApply, RemovesTheTemporaryFilesOfDeadRunsAndNothingElse)
{
    const StudyFolder folder;
    for (const char* name : {"velmar-1-2.part~", "velmar-x-2.part~", "CAEInput.txt.part~"})
        std::filesystem::copy_file(folder.path("panel.neu"), folder.path(name));

    const EndOfStudy end = RunningStudy(folder.script('a')).end();

    EXPECT_EQ(end.exitCode, 0) << end.errors;
    EXPECT_THAT(folder.leftOvers(), ElementsAre("CAEInput.txt.part~", "velmar-x-2.part~"));
}

}  // namespace reliability
