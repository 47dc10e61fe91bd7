// velmar-study as a process of its own, on POSIX systems, and what becomes of its files.
#pragma once

#include "fake/TemporaryFolder.h"

#include <functional>
#include <map>
#include <string>
#include <sys/types.h>
#include <vector>

namespace reliability
{

/// How a process ended.
struct EndOfStudy
{
    int exitCode = -1;
    int signal = 0;  // that ended it; 0: none
    std::string output;
    std::string errors;
};

/// The program with a script, its streams in files; it is ended and waited for at the latest by the
/// destructor.
class RunningStudy
{
public:
    /// atStart runs in the new process, before the program.
    explicit RunningStudy(const std::string& script, const std::function<void()>& atStart = {});
    ~RunningStudy();
    RunningStudy(const RunningStudy&) = delete;
    RunningStudy& operator=(const RunningStudy&) = delete;

    pid_t process() const { return process_; }
    bool hasEnded();
    EndOfStudy end();  // waits for it

private:
    fake::TemporaryFolder own_;
    pid_t process_ = -1;
    int status_ = 0;
    bool isWaitedFor_ = false;
};

using Contents = std::map<std::string, std::string>;

/// A folder with the example's model, in which "Apply" writes.
class StudyFolder
{
public:
    StudyFolder();

    std::string path(const std::string& name) const { return folder_.path(name); }
    std::string path() const { return folder_.path(); }
    /// A script that selects, and presses "Apply" so often. The two selections share no file.
    std::string script(char selection, int times = 1) const;
    /// All files that it holds now, without the model.
    Contents files() const;
    /// The names of those that are no files of a whole "Apply".
    std::vector<std::string> leftOvers() const;

private:
    fake::TemporaryFolder folder_;
};

/// The files of one whole "Apply", in a folder of its own.
Contents filesOf(char selection);

/// How often a test repeats what two processes do: as many times as the variable says, or a few.
int roundsWanted(const char* variable, int usual);

}  // namespace reliability
