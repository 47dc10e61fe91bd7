// velmar-evaluate as a process of its own that is ended from outside, at each step.
#include "EvaluateFixture.h"

#include <gmock/gmock.h>

#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

using testing::HasSubstr;
using testing::StartsWith;

namespace loop::evaluate
{

namespace
{

class KilledRun : public EvaluateFixture, public testing::WithParamInterface<std::string>
{
protected:
    KilledRun()
    {
        std::filesystem::copy_file(PROGRAM_FOLDER "/velmar-evaluate",
                                   programs.path("velmar-evaluate"));
        write("points.csv", "Skin\n3\n");
    }

    // Starts a run that gets stuck in the step, and ends it there. Returns how the process ended.
    int endedBy(int signal) const
    {
        write(GetParam() + ".hangs", "");
        const pid_t process = fork();
        if (process == 0)
            become();
        while (!has("inside"))
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
        kill(process, signal);
        int status = 0;
        waitpid(process, &status, 0);
        std::filesystem::remove(path(GetParam() + ".hangs"));
        return status;
    }

    [[noreturn]] void become() const
    {
        for (const int stream : {STDOUT_FILENO, STDERR_FILENO})
            dup2(open(path(stream == STDOUT_FILENO ? "output" : "errors").c_str(),
                      O_WRONLY | O_CREAT, 0600),
                 stream);
        execl(programs.path("velmar-evaluate").c_str(), "velmar-evaluate", "--femap=embedded",
              "--folder", folder.path().c_str(), "--points", path("points.csv").c_str(),
              "--results", path("out.csv").c_str(), nullptr);
        _exit(127);
    }

    // Whether nothing but this process works in the folder.
    bool isAlone() const
    {
        for (const auto& process : std::filesystem::directory_iterator("/proc")) {
            std::error_code unreadable;
            const auto working = std::filesystem::read_symlink(process.path() / "cwd", unreadable);
            if (!unreadable && working == folder.path())
                return false;
        }
        return true;
    }
};

INSTANTIATE_TEST_SUITE_P(In, KilledRun, testing::Values("input", "solver", "output"),
                         [](const auto& step) { return step.param; });

TEST_P(KilledRun, PutsBackWhenItIsAskedToEnd)
{
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        std::filesystem::remove(path("inside"));

        const int status = endedBy(signal);

        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 1) << status;
        EXPECT_EQ(read("InputValues.txt"), inputs);
        EXPECT_FALSE(has("panelFormer.json"));
        EXPECT_FALSE(has("panel.run.neu"));
        EXPECT_FALSE(has("OutputValues.txt"));
        EXPECT_TRUE(isAlone());
        EXPECT_THAT(read("output"), StartsWith("0 of 1 points are done, stopped"));
    }
}

TEST_P(KilledRun, IsPutBackByTheNextOneWhenItIsEndedByForce)
{
    const int status = endedBy(SIGKILL);

    ASSERT_TRUE(WIFSIGNALED(status));
    EXPECT_THAT(read("InputValues.txt"), StartsWith("Skin  3\r\n"));
    EXPECT_TRUE(has("panelFormer.json"));
    EXPECT_FALSE(has("OutputValues.txt"));

    EXPECT_EQ(evaluate({"--points", path("points.csv"), "--results", path("out.csv")}), 0);

    EXPECT_THAT(errors.str(), StartsWith("velmar-evaluate: an earlier run was ended; the values "
                                         "from before it are put back\n"));
    EXPECT_EQ(read("InputValues.txt"), inputs);
    EXPECT_THAT(read("out.csv"), HasSubstr("\r\n1,3,.25,3.25,7,done\r\n"));
    EXPECT_FALSE(has("panelFormer.json"));
}

TEST_P(KilledRun, TakesAllThatItStartedWithIt)
{
    for (const std::string program : {"CAEInput", "CAEOutput"}) {
        std::filesystem::rename(programs.path(program), programs.path(program + ".script"));
        write("../" + std::filesystem::path(programs.path()).filename().string() + "/" + program,
              "#!/bin/sh\n'" + programs.path(program + ".script") + "' $* & wait\n");
        std::filesystem::permissions(programs.path(program), std::filesystem::perms::owner_all);
    }
    write("FDFemap.bat", "sh ./solve & wait\n");
    ASSERT_TRUE(WIFSIGNALED(endedBy(SIGKILL)));

    bool isLeft = true;
    for (int left = 500; isLeft && left > 0; --left) {
        isLeft = !isAlone();
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    EXPECT_FALSE(isLeft);
}

}  // namespace

}  // namespace loop::evaluate
