// Process.h on Windows: the program is in a job, which ends with all in it when its handle goes.
#include "loop/evaluate/Process.h"
#include "system/Platform.h"
#include "system/RuntimeError.h"
#include "windows/Handle.h"
#include "windows/Text.h"

#include <windows.h>

#include <cstddef>

namespace loop::evaluate
{

namespace
{

using windows::Handle;

constexpr UINT endedFromOutside = 0xC000013A;  // as Ctrl+C would

// As a program takes its arguments apart again: backslashes count before a quotation mark only.
std::string quotedArgument(const std::string& argument)
{
    std::string result = "\"";
    std::size_t backslashes = 0;
    for (const char c : argument) {
        if (c == '"')
            result.append(backslashes + 1, '\\');
        backslashes = c == '\\' ? backslashes + 1 : 0;
        result += c;
    }
    return result.append(backslashes, '\\') + '"';
}

std::string shell()
{
    const std::string named = sys::environmentVariable("ComSpec");
    return named.empty() ? "cmd.exe" : named;
}

// cmd.exe takes one quotation mark off at both ends and nothing else.
std::string callOf(const Command& command)
{
    if (command.program.empty())
        return quotedArgument(shell()) + " /d /s /c \"" + command.line + '"';
    std::string call = quotedArgument(command.program);
    for (const std::string& argument : command.arguments)
        call += ' ' + quotedArgument(argument);
    return call;
}

HANDLE jobThatEndsWithItsHandle()
{
    const HANDLE job = CreateJobObjectW(nullptr, nullptr);
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits);
    return job;
}

// A file whose handle new processes get.
HANDLE opened(const std::wstring& path, DWORD access, DWORD creation)
{
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    return CreateFileW(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                       &inherited, creation, FILE_ATTRIBUTE_NORMAL, nullptr);
}

}  // namespace

class Process::Started
{
public:
    Started(HANDLE newJob, HANDLE newProcess) : job(newJob), process(newProcess) {}

    Handle job;
    Handle process;
};

Process::Process(const Command& command, const std::string& folder, const std::string& outputFile)
{
    const Handle input(opened(L"NUL", GENERIC_READ, OPEN_EXISTING));
    const Handle output(
        opened(sys::toPath(outputFile).native(), FILE_APPEND_DATA | SYNCHRONIZE, OPEN_ALWAYS));
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = input.get();
    start.hStdOutput = output.get();
    start.hStdError = output.get();
    const std::string call = callOf(command);
    std::wstring line = windows::toWide(call);
    const std::wstring workingFolder = windows::toWide(folder);
    PROCESS_INFORMATION process{};
    const HANDLE job = jobThatEndsWithItsHandle();
    // A group of its own hears no Ctrl+C; it is in the job before it does anything.
    const BOOL isMade = CreateProcessW(
        nullptr, line.data(), nullptr, nullptr, TRUE, CREATE_NEW_PROCESS_GROUP | CREATE_SUSPENDED,
        nullptr, folder.empty() ? nullptr : workingFolder.c_str(), &start, &process);
    const DWORD reason = GetLastError();
    started_ = std::make_unique<Started>(job, process.hProcess);
    if (isMade == FALSE)
        throw sys::RuntimeError(
            sys::ErrorNumber::FileError,
            "Program not started: " + windows::describe(HRESULT_FROM_WIN32(reason)) + ": " +
                (command.program.empty() ? shell() : command.program));
    AssignProcessToJobObject(job, process.hProcess);
    ResumeThread(process.hThread);
    CloseHandle(process.hThread);
}

Process::~Process()
{
    end();
}

std::optional<int> Process::exitCode()
{
    DWORD code = 0;
    if (!exitCode_ && WaitForSingleObject(started_->process.get(), 0) == WAIT_OBJECT_0 &&
        GetExitCodeProcess(started_->process.get(), &code) != FALSE)
        exitCode_ = static_cast<int>(code);
    return exitCode_;
}

void Process::end()
{
    TerminateJobObject(started_->job.get(), endedFromOutside);
    WaitForSingleObject(started_->process.get(), INFINITE);
    static_cast<void>(exitCode());
}

}  // namespace loop::evaluate
