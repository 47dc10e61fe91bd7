#include "standin/StartedStandin.h"

#include "windows/Text.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <oleauto.h>
#include <stdexcept>
#include <utility>

namespace comtest
{

using femap::com::Dispatch;

namespace
{

std::string fullPath(const std::string& path)
{
    return windows::fromWide(std::filesystem::absolute(path).make_preferred().wstring());
}

// Starts the program with its output going to the handle.
HANDLE start(const std::string& program, const std::string& arguments, HANDLE output)
{
    std::wstring line = windows::toWide('"' + fullPath(program) + "\" " + arguments);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = output;
    startup.hStdError = GetStdHandle(STD_ERROR_HANDLE);
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                        &process))
        throw std::runtime_error(program + " cannot be started: " + std::to_string(GetLastError()));
    CloseHandle(process.hThread);
    endWithThisProgram(process.hProcess);
    return process.hProcess;
}

Dispatch asControl(IDispatch* application)
{
    return {application, "control",
            std::make_shared<femap::com::Connection>(std::make_shared<femap::com::RetryPolicy>())};
}

// Of the server that has announced its class; COM starts one where there is none.
std::optional<Dispatch> offeredFemap()
{
    CLSID id{};
    IDispatch* application = nullptr;
    if (FAILED(CLSIDFromProgID(L"femap.model", &id)) ||
        FAILED(CoCreateInstance(id, nullptr, CLSCTX_LOCAL_SERVER, IID_PPV_ARGS(&application))))
        return std::nullopt;
    return asControl(application);
}

// What is announced under FEMAP's name, if there is any.
HRESULT findRunning(IUnknown*& running)
{
    CLSID id{};
    const HRESULT named = CLSIDFromProgID(L"femap.model", &id);
    return FAILED(named) ? named : GetActiveObject(id, nullptr, &running);
}

// Why a stand-in that was ready is not found.
std::string whyNotRunning(HANDLE process)
{
    DWORD code = STILL_ACTIVE;
    GetExitCodeProcess(process, &code);
    if (code != STILL_ACTIVE)
        return "it has ended with " + std::to_string(code);
    IUnknown* running = nullptr;
    const HRESULT found = findRunning(running);
    if (running != nullptr)
        running->Release();
    return windows::describe(found);
}

// The library has no import for these.
void tellSystem(const char* function, HANDLE process)
{
    const auto call = reinterpret_cast<LONG(NTAPI*)(HANDLE)>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), function)));
    if (call == nullptr || call(process) < 0)
        throw std::runtime_error(std::string(function) + " failed");
}

}  // namespace

void endWithThisProgram(HANDLE process)
{
    static const HANDLE job = [] {
        const HANDLE created = CreateJobObjectW(nullptr, nullptr);
        JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
        limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
        SetInformationJobObject(created, JobObjectExtendedLimitInformation, &limits, sizeof limits);
        return created;
    }();
    AssignProcessToJobObject(job, process);
}

std::string panelModel()
{
    return fullPath(SOURCE_FOLDER "/examples/panel.neu");
}

std::string temporaryFile(const std::string& name)
{
    const std::filesystem::path path = std::filesystem::temp_directory_path() / name;
    std::filesystem::remove(path);
    return windows::fromWide(path.wstring());
}

std::vector<std::string> linesOf(const std::string& path)
{
    std::ifstream file{std::filesystem::path(windows::toWide(path))};
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);)
        lines.push_back(line);
    return lines;
}

bool comesTrue(const std::function<bool()>& condition)
{
    for (int tries = 0; tries < 500; ++tries) {
        if (condition())
            return true;
        Sleep(10);
    }
    return false;
}

DWORD runProgram(const std::string& program, const std::string& arguments)
{
    constexpr DWORD limit = 50'000;  // milliseconds
    const HANDLE process = start(program, arguments, GetStdHandle(STD_OUTPUT_HANDLE));
    WaitForSingleObject(process, limit);
    DWORD code = STILL_ACTIVE;
    GetExitCodeProcess(process, &code);
    CloseHandle(process);
    return code;
}

DWORD runStandin(const std::string& arguments)
{
    return runProgram(PROGRAM_FOLDER "/test-standin.exe", arguments);
}

std::optional<Dispatch> runningFemap()
{
    IUnknown* running = nullptr;
    if (FAILED(findRunning(running)))
        return std::nullopt;
    IDispatch* application = nullptr;
    running->QueryInterface(IID_PPV_ARGS(&application));
    running->Release();
    return asControl(application);
}

StartedStandin::Process::~Process()
{
    if (WaitForSingleObject(handle, 0) == WAIT_TIMEOUT)
        TerminateProcess(handle, EXIT_FAILURE);
    CloseHandle(handle);
}

StartedStandin::StartedStandin(const std::string& arguments)
{
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    HANDLE output = nullptr;
    HANDLE input = nullptr;
    if (!CreatePipe(&output, &input, &inherited, 0))
        throw std::runtime_error("no pipe");
    SetHandleInformation(output, HANDLE_FLAG_INHERIT, 0);
    process_.handle = start(PROGRAM_FOLDER "/test-standin.exe", arguments, input);
    CloseHandle(input);
    std::array<char, 16> said{};
    DWORD length = 0;
    const bool isReady = ReadFile(output, said.data(), said.size(), &length, nullptr) &&
                         std::string_view(said.data(), length).starts_with("ready");
    CloseHandle(output);
    if (!isReady)
        throw std::runtime_error("test-standin did not become ready");
    // One that was killed leaves its class behind; Windows would start another one for that.
    const bool isAnnounced = arguments.find("--no-rot") == std::string::npos;
    comesTrue([&] {
        if (auto found = isAnnounced ? runningFemap() : offeredFemap())
            control_.emplace(*std::move(found));
        return control_.has_value();
    });
    if (!control_)
        throw std::runtime_error("test-standin does not answer; " + whyNotRunning(process_.handle));
}

// Under Wine this process's connection may go when another client of the same server ends; then a
// fresh one is taken. A server that cannot be asked at all is ended by force.
void StartedStandin::quit()
{
    try {
        control_->call("standinQuit");
    }
    catch (const femap::ConnectionLost&) {
        try {
            if (auto fresh = runningFemap())
                fresh->call("standinQuit");
        }
        catch (const std::exception&) {
            kill();
        }
    }
}

// Windows forgets the class of a program that was killed. Wine keeps it, and starts no other one.
void StartedStandin::kill()
{
    try {
        control_->call("standinWithdraw");
    }
    catch (const std::exception&) {
        // It is killed because it does not answer.
    }
    TerminateProcess(process_.handle, EXIT_FAILURE);
    WaitForSingleObject(process_.handle, 5000);
}

void StartedStandin::stop()
{
    tellSystem("NtSuspendProcess", process_.handle);
}

void StartedStandin::goOn()
{
    tellSystem("NtResumeProcess", process_.handle);
}

StartedStandin::~StartedStandin()
{
    if (WaitForSingleObject(process_.handle, 0) == WAIT_TIMEOUT)
        quit();
    control_.reset();
    WaitForSingleObject(process_.handle, 5000);
}

}  // namespace comtest
