// Process.h on Linux and other POSIX systems: the program is in a process group of its own.
#include "loop/evaluate/Process.h"
#include "system/RuntimeError.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace loop::evaluate
{

namespace
{

constexpr int notStarted = 127;  // as a shell tells it
constexpr int endedBySignal = 128;

class Pipe
{
public:
    Pipe()
    {
        if (pipe2(ends_.data(), O_CLOEXEC) != 0)
            ends_ = {-1, -1};
    }
    ~Pipe()
    {
        close(ends_[0]);
        close(ends_[1]);
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

    int input() const { return ends_[1]; }
    // What was put in, 0 when the other end was closed without a word.
    int taken()
    {
        close(ends_[1]);
        ends_[1] = -1;
        int value = 0;
        return read(ends_[0], &value, sizeof value) == sizeof value ? value : 0;
    }

private:
    std::array<int, 2> ends_ = {-1, -1};
};

// The words of the call, in the form that the system takes.
class CallWords
{
public:
    explicit CallWords(const Command& command)
    {
        if (command.program.empty())
            words_ = {"/bin/sh", "-c", command.line};
        else
            words_ = {command.program};
        words_.insert(words_.end(), command.arguments.begin(), command.arguments.end());
        for (std::string& word : words_)
            pointers_.push_back(word.data());
        pointers_.push_back(nullptr);
    }

    const std::string& program() const { return words_.front(); }
    char** pointers() { return pointers_.data(); }

private:
    std::vector<std::string> words_;
    std::vector<char*> pointers_;
};

bool useAs(int stream, const char* path, int access)
{
    const int file = open(path, access, 0666);
    const bool isThere = file >= 0 && dup2(file, stream) == stream;
    if (file > STDERR_FILENO)
        close(file);
    return isThere;
}

void endGroup(int /*signal*/)
{
    kill(0, SIGKILL);
}

// Leads the group of the program, so that all of it ends when the process does that started it.
[[noreturn]] void guard(pid_t program)
{
    static_cast<void>(std::signal(SIGTERM, endGroup));
    int status = 0;
    while (waitpid(program, &status, 0) != program && errno == EINTR) {
    }
    _exit(WIFEXITED(status) ? WEXITSTATUS(status) : endedBySignal + WTERMSIG(status));
}

bool isReady(const char* folder, const char* outputFile)
{
    return useAs(STDIN_FILENO, "/dev/null", O_RDONLY) &&
           useAs(STDOUT_FILENO, outputFile, O_WRONLY | O_CREAT | O_APPEND) &&
           dup2(STDOUT_FILENO, STDERR_FILENO) == STDERR_FILENO && chdir(folder) == 0;
}

// In the new process. Nothing may be allocated here.
[[noreturn]] void become(CallWords& words, const char* folder, const char* outputFile, pid_t parent,
                         int problem)
{
    setpgid(0, 0);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGPIPE, SIGXFSZ, SIGCHLD})
        static_cast<void>(std::signal(signal, SIG_DFL));
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    const pid_t program = getppid() == parent && isReady(folder, outputFile) ? fork() : -1;
    if (program > 0) {
        close(problem);
        guard(program);
    }
    if (program == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        execv(words.program().c_str(), words.pointers());
    }
    const int reason = errno;
    static_cast<void>(!write(problem, &reason, sizeof reason));
    _exit(notStarted);
}

}  // namespace

class Process::Started
{
public:
    pid_t process = -1;
};

Process::Process(const Command& command, const std::string& folder, const std::string& outputFile)
    : started_(std::make_unique<Started>())
{
    CallWords words(command);
    Pipe problem;
    const std::string workingFolder = folder.empty() ? "." : folder;
    const pid_t parent = getpid();
    started_->process = fork();
    if (started_->process == 0)
        become(words, workingFolder.c_str(), outputFile.c_str(), parent, problem.input());
    int reason = started_->process < 0 ? errno : 0;
    if (started_->process > 0)
        setpgid(started_->process, started_->process);  // whoever comes first
    if (reason == 0)
        reason = problem.taken();
    if (reason == 0)
        return;
    if (started_->process > 0)
        waitpid(started_->process, nullptr, 0);
    throw sys::RuntimeError(
        sys::ErrorNumber::FileError,
        "Program not started: " + std::generic_category().message(reason) + ": " + words.program());
}

Process::~Process()
{
    end();
}

std::optional<int> Process::exitCode()
{
    int status = 0;
    if (!exitCode_ && waitpid(started_->process, &status, WNOHANG) == started_->process)
        exitCode_ = WIFEXITED(status) ? WEXITSTATUS(status) : endedBySignal + WTERMSIG(status);
    return exitCode_;
}

void Process::end()
{
    kill(-started_->process, SIGKILL);
    if (exitCode_)
        return;
    waitpid(started_->process, nullptr, 0);
    exitCode_ = endedBySignal + SIGKILL;
}

}  // namespace loop::evaluate
