#include "RunningStudy.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <random>
#include <string>
#include <sys/resource.h>
#include <thread>
#include <unistd.h>

namespace reliability
{

using std::chrono::milliseconds;
using testing::AnyOf;
using testing::Eq;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace
{

// Two selections by turns, so often that the run is ended before it is through.
std::string endlessScript(const StudyFolder& folder)
{
    std::string script = folder.script('a');
    for (int i = 0; i < 400; ++i)
        script +=
            "set CommandLine solve b, the second of both\nclick GenerateButton\n"
            "set CommandLine solve a\nclick GenerateButton\n";
    return script;
}

bool waitForFile(const StudyFolder& folder, const std::string& name)
{
    for (int left = 3000; left > 0; --left) {
        if (access(folder.path(name).c_str(), F_OK) == 0)
            return true;
        std::this_thread::sleep_for(milliseconds(2));
    }
    return false;
}

// Each file is that of a whole "Apply" with one command line or the other.
void expectNoHalfFile(const StudyFolder& folder)
{
    Contents whole = filesOf('a');
    for (const auto& [name, content] : folder.files()) {
        if (name.ends_with(".part~"))
            continue;
        std::string other = whole[name];
        if (const std::size_t place = other.find("solve a"); place != std::string::npos)
            other.replace(place, std::string("solve a").size(), "solve b, the second of both");
        EXPECT_THAT(content, AnyOf(Eq(whole[name]), Eq(other))) << name;
    }
}

}  // namespace

// VELMAR_SIGNALS=650 makes the long run of it.
TEST(ASignalDuringApply, LeavesNoHalfFileAndNoTemporaryOne)
{
    const int count = roundsWanted("VELMAR_SIGNALS", 24);
    const int signals[] = {SIGINT, SIGTERM, SIGHUP, SIGKILL};
    std::mt19937 random(std::random_device{}());
    std::uniform_int_distribution<int> delay(0, 60'000);
    int left = 0;
    for (int i = 0; i < count; ++i) {
        const int signal = signals[i % 4];
        SCOPED_TRACE("signal " + std::to_string(signal) + ", number " + std::to_string(i));
        const StudyFolder folder;
        RunningStudy run(endlessScript(folder));
        ASSERT_TRUE(waitForFile(folder, "FDFemap.bat"));
        std::this_thread::sleep_for(std::chrono::microseconds(delay(random)));
        ASSERT_FALSE(run.hasEnded());

        kill(run.process(), signal);

        EXPECT_EQ(run.end().signal, signal);
        expectNoHalfFile(folder);
        if (signal != SIGKILL) {
            EXPECT_THAT(folder.leftOvers(), IsEmpty());
        }
        left += folder.leftOvers().empty() ? 0 : 1;
    }
    RecordProperty("leftBySigkill", left);
}

TEST(ASignalThatWasIgnoredBefore, StaysIgnored)
{
    const StudyFolder folder;
    RunningStudy run(folder.script('a', 20), [] { std::signal(SIGHUP, SIG_IGN); });
    ASSERT_TRUE(waitForFile(folder, "FDFemap.bat"));

    kill(run.process(), SIGHUP);

    const EndOfStudy end = run.end();
    EXPECT_EQ(end.exitCode, 0) << end.errors;
    EXPECT_EQ(folder.files(), filesOf('a'));
}

class ClosedStream : public testing::TestWithParam<int>
{};

INSTANTIATE_TEST_SUITE_P(Of, ClosedStream,
                         testing::Values(STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO));

TEST_P(ClosedStream, PutsNothingIntoAnyFile)
{
    const StudyFolder folder;
    const int closed = GetParam();

    const EndOfStudy end =
        RunningStudy(folder.script('a') + "print InputsList\n", [closed] { close(closed); }).end();

    EXPECT_EQ(end.exitCode, 0) << end.errors;
    EXPECT_EQ(folder.files(), filesOf('a'));
}

TEST(AClosedPipe, IsToldAndEndsNoRunBySignal)
{
    const StudyFolder folder;

    const EndOfStudy end = RunningStudy(folder.script('a') + "print InputsList\n", [] {
                               int ends[2] = {};
                               if (pipe(ends) != 0)
                                   _exit(126);
                               dup2(ends[1], STDOUT_FILENO);
                               close(ends[0]);
                               close(ends[1]);
                           }).end();

    EXPECT_EQ(end.signal, 0);
    EXPECT_EQ(end.exitCode, 1);
    EXPECT_THAT(end.errors, HasSubstr("velmar-study: standard output could not be written"));
    EXPECT_EQ(folder.files(), filesOf('a'));
}

TEST(AFileThatMayNotGrow, IsToldAndEndsNoRunBySignal)
{
    const StudyFolder folder;

    const EndOfStudy end = RunningStudy(folder.script('a'), [] {
                               const rlimit limit = {8192, 8192};
                               setrlimit(RLIMIT_FSIZE, &limit);
                           }).end();

    EXPECT_EQ(end.signal, 0);
    EXPECT_EQ(end.exitCode, 1);
    EXPECT_THAT(end.errors, HasSubstr("File too large. "));
    expectNoHalfFile(folder);
    EXPECT_THAT(folder.leftOvers(), IsEmpty());
    EXPECT_THAT(folder.files(), Not(testing::Contains(testing::Key("panelControl.txt"))));
}

}  // namespace reliability
