#include "RunningStudy.h"

#include "system/Files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <sys/wait.h>
#include <unistd.h>

namespace reliability
{

namespace
{

const std::string program = PROGRAM_FOLDER "/velmar-study";

// What a selection says in a script. Rows differ in number, so a torn file is shorter than either.
const std::map<char, std::string> selections = {
    {'a',
     "set InputSelection Nodes\npick all\nchoose x | y | z\nclick InputsButton\n"
     "set CommandLine solve a\n"},
    {'b',
     "set InputSelection Properties\npick 1\nchoose Thickness\nclick InputsButton\n"
     "set CommandLine solve b, the second of both\n"},
};

void useAs(int stream, const std::string& path, int access)
{
    const int file = open(path.c_str(), access, 0600);
    dup2(file, stream);
    close(file);
}

}  // namespace

RunningStudy::RunningStudy(const std::string& script, const std::function<void()>& atStart)
{
    const auto file = sys::DiskFiles().create(own_.path("script"));
    file->write(script);
    file->close();
    process_ = fork();
    if (process_ != 0)
        return;
    useAs(STDIN_FILENO, "/dev/null", O_RDONLY);
    useAs(STDOUT_FILENO, own_.path("output"), O_WRONLY | O_CREAT);
    useAs(STDERR_FILENO, own_.path("errors"), O_WRONLY | O_CREAT);
    setenv("TEMP", own_.path().c_str(), 1);
    if (atStart)
        atStart();
    execl(program.c_str(), "velmar-study", "--femap=embedded", "--quiet",
          own_.path("script").c_str(), nullptr);
    _exit(127);
}

RunningStudy::~RunningStudy()
{
    if (!hasEnded()) {
        kill(process_, SIGKILL);
        waitpid(process_, &status_, 0);
    }
}

bool RunningStudy::hasEnded()
{
    isWaitedFor_ = isWaitedFor_ || waitpid(process_, &status_, WNOHANG) == process_;
    return isWaitedFor_;
}

EndOfStudy RunningStudy::end()
{
    if (!isWaitedFor_)
        waitpid(process_, &status_, 0);
    isWaitedFor_ = true;
    EndOfStudy result;
    if (WIFEXITED(status_))
        result.exitCode = WEXITSTATUS(status_);
    if (WIFSIGNALED(status_))
        result.signal = WTERMSIG(status_);
    sys::DiskFiles disk;
    result.output = disk.read(own_.path("output"));
    result.errors = disk.read(own_.path("errors"));
    return result;
}

StudyFolder::StudyFolder()
{
    std::filesystem::copy_file(SOURCE_FOLDER "/examples/panel.neu", path("panel.neu"));
}

std::string StudyFolder::script(char selection, int times) const
{
    std::string text = "start " + path("panel.neu") + "$run.log$DEBUG\nclick ClearAll\n" +
                       selections.at(selection);
    for (; times > 0; --times)
        text += "click GenerateButton\n";
    return text;
}

Contents StudyFolder::files() const
{
    Contents result;
    for (const std::string& name : folder_.listing())
        if (name != "panel.neu")
            result[name] = sys::DiskFiles().read(path(name));
    return result;
}

std::vector<std::string> StudyFolder::leftOvers() const
{
    const Contents whole = filesOf('a');
    std::vector<std::string> result;
    for (const std::string& name : folder_.listing())
        if (name != "panel.neu" && !whole.contains(name))
            result.push_back(name);
    return result;
}

Contents filesOf(char selection)
{
    static std::map<char, Contents> known;
    if (known[selection].empty()) {
        const StudyFolder folder;
        const EndOfStudy end = RunningStudy(folder.script(selection)).end();
        EXPECT_EQ(end.exitCode, 0) << end.errors;
        known[selection] = folder.files();
        EXPECT_EQ(known[selection].size(), 8U);
    }
    return known[selection];
}

int roundsWanted(const char* variable, int usual)
{
    const char* const wanted = std::getenv(variable);
    return wanted == nullptr ? usual : std::max(1, std::atoi(wanted));
}

}  // namespace reliability
