#pragma once

#include "fake/TemporaryFolder.h"
#include "system/Files.h"
#include "windows/Text.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <cstdint>
#include <string>

namespace reliability
{

/// velmar-study with a script and the model host or the FEMAP that runs, as a process of its own in
/// a folder of its own for the log.
class StudyProcess
{
public:
    explicit StudyProcess(const std::string& script, const std::string& femap = "embedded")
    {
        const auto file = sys::DiskFiles().create(own_.path("script"));
        file->write(script);
        file->close();
        SetEnvironmentVariableW(L"TEMP", windows::toWide(own_.path()).c_str());
        const HANDLE output = created("output");
        const HANDLE errors = created("errors");
        STARTUPINFOW start{};
        start.cb = sizeof start;
        start.dwFlags = STARTF_USESTDHANDLES;
        start.hStdOutput = output;
        start.hStdError = errors;
        std::wstring line =
            windows::toWide("\"" PROGRAM_FOLDER "/velmar-study.exe\" --quiet --femap=" + femap +
                            " \"" + own_.path("script") + "\"");
        EXPECT_TRUE(CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr,
                                   nullptr, &start, &process_));
        CloseHandle(output);
        CloseHandle(errors);
    }
    ~StudyProcess()
    {
        terminate();
        CloseHandle(process_.hThread);
        CloseHandle(process_.hProcess);
    }
    StudyProcess(const StudyProcess&) = delete;
    StudyProcess& operator=(const StudyProcess&) = delete;

    void terminate()
    {
        TerminateProcess(process_.hProcess, 9);
        WaitForSingleObject(process_.hProcess, INFINITE);
    }
    // As Windows itself does it: by a thread in the process that begins where all of these begin.
    void raiseConsoleEvent(DWORD event)
    {
        const auto begin = reinterpret_cast<LPTHREAD_START_ROUTINE>(reinterpret_cast<void*>(
            GetProcAddress(GetModuleHandleW(L"kernelbase"), "CtrlRoutine")));
        ASSERT_NE(begin, nullptr);
        const HANDLE thread =
            CreateRemoteThread(process_.hProcess, nullptr, 0, begin,
                               reinterpret_cast<void*>(std::uintptr_t{event}), 0, nullptr);
        ASSERT_NE(thread, nullptr);
        CloseHandle(thread);
    }
    DWORD exitCode()
    {
        EXPECT_EQ(WaitForSingleObject(process_.hProcess, 60'000), WAIT_OBJECT_0);
        DWORD code = 0;
        GetExitCodeProcess(process_.hProcess, &code);
        return code;
    }
    std::string errors() const { return read("errors"); }
    /// A file of its folder.
    std::string read(const std::string& name) const
    {
        return sys::DiskFiles().read(own_.path(name));
    }

private:
    // A file for what the program says.
    HANDLE created(const std::string& name) const
    {
        SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
        return CreateFileW(windows::toWide(own_.path(name)).c_str(), GENERIC_WRITE, FILE_SHARE_READ,
                           &inherited, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    }

    fake::TemporaryFolder own_;
    PROCESS_INFORMATION process_{};
};

}  // namespace reliability
