#include "com/StartedStandin.h"

#include "femap/com/Text.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <oleauto.h>
#include <stdexcept>

namespace comtest
{

using femap::com::Dispatch;

namespace
{

std::string fullPath(const std::string& path)
{
    return femap::com::fromWide(std::filesystem::absolute(path).make_preferred().wstring());
}

// Starts the program; its output goes to the handle when there is one.
HANDLE start(const std::string& arguments, HANDLE output)
{
    std::wstring line = femap::com::toWide('"' + fullPath(STANDIN_PROGRAM) + "\" " + arguments);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = output;
    startup.hStdError = GetStdHandle(STD_ERROR_HANDLE);
    PROCESS_INFORMATION process{};
    // While many programs end at once Wine now and then has no place for a new one.
    const auto isStarted = [&] {
        return CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                              &startup, &process) != FALSE;
    };
    if (!comesTrue(isStarted))
        throw std::runtime_error("femap-standin cannot be started: " +
                                 std::to_string(GetLastError()));
    CloseHandle(process.hThread);
    return process.hProcess;
}

Dispatch asControl(IDispatch* application)
{
    return {application, "control",
            std::make_shared<femap::com::Connection>(std::make_shared<femap::com::Patience>())};
}

}  // namespace

std::string panelModel()
{
    return fullPath(SOURCE_FOLDER "/examples/panel.neu");
}

std::string temporaryFile(const std::string& name)
{
    const std::filesystem::path path = std::filesystem::temp_directory_path() / name;
    std::filesystem::remove(path);
    return femap::com::fromWide(path.wstring());
}

std::vector<std::string> linesOf(const std::string& path)
{
    std::ifstream file{std::filesystem::path(femap::com::toWide(path))};
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

DWORD runStandin(const std::string& arguments)
{
    const HANDLE process = start(arguments, GetStdHandle(STD_OUTPUT_HANDLE));
    WaitForSingleObject(process, 20'000);
    DWORD code = STILL_ACTIVE;
    GetExitCodeProcess(process, &code);
    CloseHandle(process);
    return code;
}

std::optional<Dispatch> runningFemap()
{
    CLSID id{};
    IUnknown* running = nullptr;
    if (FAILED(CLSIDFromProgID(L"femap.model", &id)) ||
        FAILED(GetActiveObject(id, nullptr, &running)))
        return std::nullopt;
    IDispatch* application = nullptr;
    running->QueryInterface(IID_PPV_ARGS(&application));
    running->Release();
    return asControl(application);
}

StartedStandin::StartedStandin(const std::string& arguments)
{
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    HANDLE output = nullptr;
    HANDLE input = nullptr;
    if (!CreatePipe(&output, &input, &inherited, 0))
        throw std::runtime_error("no pipe");
    SetHandleInformation(output, HANDLE_FLAG_INHERIT, 0);
    process_ = start(arguments, input);
    CloseHandle(input);
    std::array<char, 16> said{};
    DWORD length = 0;
    const bool isReady = ReadFile(output, said.data(), said.size(), &length, nullptr) &&
                         std::string_view(said.data(), length).starts_with("ready");
    CloseHandle(output);
    if (!isReady)
        throw std::runtime_error("femap-standin did not become ready");
    CLSID id{};
    IDispatch* application = nullptr;
    if (FAILED(CLSIDFromProgID(L"femap.model", &id)) ||
        FAILED(CoCreateInstance(id, nullptr, CLSCTX_LOCAL_SERVER, IID_PPV_ARGS(&application))))
        throw std::runtime_error("femap-standin does not answer");
    control_.emplace(asControl(application));
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
            TerminateProcess(process_, EXIT_FAILURE);
        }
    }
}

StartedStandin::~StartedStandin()
{
    if (WaitForSingleObject(process_, 0) == WAIT_TIMEOUT)
        quit();
    control_.reset();
    if (WaitForSingleObject(process_, 5000) == WAIT_TIMEOUT)
        TerminateProcess(process_, EXIT_FAILURE);
    CloseHandle(process_);
}

}  // namespace comtest
