#include "probe/Machine.h"

#include "windows/Handle.h"
#include "windows/Processes.h"
#include "windows/Text.h"

#include <array>
#include <optional>
#include <vector>

namespace probe
{

namespace
{

using windows::fromWide;
using windows::Handle;
using windows::isElevated;
using windows::Process;

std::string reasonOfLastError()
{
    return windows::describe(HRESULT_FROM_WIN32(GetLastError()));
}

// Null where the library lacks it.
template <class Function>
Function* functionOf(HMODULE library, const char* name)
{
    return reinterpret_cast<Function*>(
        reinterpret_cast<void*>(library == nullptr ? nullptr : GetProcAddress(library, name)));
}

std::string windowsVersion()
{
    const HMODULE library = GetModuleHandleW(L"ntdll.dll");
    const auto version = functionOf<LONG WINAPI(OSVERSIONINFOW*)>(library, "RtlGetVersion");
    const auto wine = functionOf<const char * CDECL()>(library, "wine_get_version");
    OSVERSIONINFOW info{};
    info.dwOSVersionInfoSize = sizeof info;
    if (version == nullptr || version(&info) != 0)
        return "not known";
    return std::to_string(info.dwMajorVersion) + '.' + std::to_string(info.dwMinorVersion) + '.' +
           std::to_string(info.dwBuildNumber) +
           (wine == nullptr ? "" : " (Wine " + std::string(wine()) + ", no Windows)");
}

std::string bitness()
{
    SYSTEM_INFO system{};
    GetNativeSystemInfo(&system);
    const bool is64 = system.wProcessorArchitecture == PROCESSOR_ARCHITECTURE_AMD64 ||
                      system.wProcessorArchitecture == PROCESSOR_ARCHITECTURE_ARM64;
    return std::string("Windows ") + (is64 ? "64" : "32") + " bit, this program " +
           std::to_string(8 * sizeof(void*)) + " bit";
}

std::string elevationText(std::optional<bool> elevated)
{
    return !elevated ? "rights cannot be read" : *elevated ? "elevated" : "not elevated";
}

std::string session()
{
    DWORD number = 0;
    ProcessIdToSessionId(GetCurrentProcessId(), &number);
    return std::string(GetSystemMetrics(SM_REMOTESESSION) != 0 ? "remote desktop" : "console") +
           ", number " + std::to_string(number);
}

std::string codePages()
{
    const UINT ansi = GetACP();
    return "ANSI " + std::to_string(ansi) +
           (ansi == CP_UTF8 ? " (UTF-8 as ANSI)" : " (not UTF-8)") + ", OEM " +
           std::to_string(GetOEMCP()) + ", console " + std::to_string(GetConsoleCP()) + " in, " +
           std::to_string(GetConsoleOutputCP()) + " out";
}

std::string region()
{
    std::array<wchar_t, LOCALE_NAME_MAX_LENGTH> name{};
    std::array<wchar_t, 8> point{};
    const bool isNamed =
        GetUserDefaultLocaleName(name.data(), static_cast<int>(name.size())) != 0 &&
        GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, point.data(),
                       static_cast<int>(point.size())) != 0;
    return isNamed ? fromWide(name.data()) + ", decimal sign \"" + fromWide(point.data()) + '"'
                   : "not known";
}

// The library is asked for at run time, from the system's folder only: one that the program itself
// imports would be taken from the program's folder first.
std::string versionOf(const std::wstring& path)
{
    static const HMODULE library =
        LoadLibraryExW(L"version.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    const auto sizeOf =
        functionOf<decltype(GetFileVersionInfoSizeW)>(library, "GetFileVersionInfoSizeW");
    const auto read = functionOf<decltype(GetFileVersionInfoW)>(library, "GetFileVersionInfoW");
    const auto query = functionOf<decltype(VerQueryValueW)>(library, "VerQueryValueW");
    if (sizeOf == nullptr || read == nullptr || query == nullptr)
        return "cannot be read";
    DWORD ignored = 0;
    std::vector<char> data(sizeOf(path.c_str(), &ignored));
    VS_FIXEDFILEINFO* info = nullptr;
    UINT size = 0;
    if (data.empty() || !read(path.c_str(), 0, static_cast<DWORD>(data.size()), data.data()) ||
        !query(data.data(), L"\\", reinterpret_cast<void**>(&info), &size))
        return "none in the file";
    return std::to_string(HIWORD(info->dwFileVersionMS)) + '.' +
           std::to_string(LOWORD(info->dwFileVersionMS)) + '.' +
           std::to_string(HIWORD(info->dwFileVersionLS)) + '.' +
           std::to_string(LOWORD(info->dwFileVersionLS));
}

std::string bitnessOf(HANDLE process)
{
    BOOL isWow = FALSE;
    if (!IsWow64Process(process, &isWow))
        return "bitness cannot be read";
    return isWow ? "32 bit" : "64 bit";
}

std::wstring lowerCase(std::wstring text)
{
    CharLowerBuffW(text.data(), static_cast<DWORD>(text.size()));
    return text;
}

// FEMAP's own programs, and the one that is registered for FEMAP, whatever its name.
std::vector<Process> findFemap()
{
    const std::string server = windows::serverProgramOf("femap.model");
    std::vector<Process> found = windows::processes();
    std::erase_if(found, [&](const Process& each) {
        return !lowerCase(windows::toWide(each.program)).starts_with(L"femap") &&
               !windows::isSameFileName(each.program, server);
    });
    return found;
}

void tellProcess(Session& session, const Process& process)
{
    const std::string what = process.program + ", process " + std::to_string(process.number);
    session.report.begin(what);
    const Handle handle(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, process.number));
    if (!handle.isValid()) {
        session.report.end(Verdict::Refused, reasonOfLastError());
        return;
    }
    std::wstring path(32768, L'\0');
    DWORD length = static_cast<DWORD>(path.size());
    const bool hasPath = QueryFullProcessImageNameW(handle.get(), 0, path.data(), &length) != FALSE;
    path.resize(hasPath ? length : 0);
    const std::optional<bool> own = isElevated(GetCurrentProcess());
    const std::optional<bool> its = isElevated(handle.get());
    const bool differ = own && its && *own != *its;
    session.report.end(
        differ ? Verdict::Differs : Verdict::Found,
        (hasPath ? session.report.name(fromWide(path)) : "path cannot be read") + ", version " +
            versionOf(path) + ", " + bitnessOf(handle.get()) + ", " + elevationText(its) +
            (differ ? "; this program has other rights: neither sees the other's objects" : ""));
}

}  // namespace

std::set<DWORD> femapProcesses()
{
    std::set<DWORD> numbers;
    for (const Process& process : findFemap())
        numbers.insert(process.number);
    return numbers;
}

void probeMachine(Session& session)
{
    Report& report = session.report;
    report.section("A The machine");
    report.line("Windows", Verdict::Found, windowsVersion());
    report.line("bitness", Verdict::Found, bitness());
    report.line("rights of this program", Verdict::Found,
                elevationText(isElevated(GetCurrentProcess())));
    report.line("session", Verdict::Found, probe::session());
    report.line("code pages", Verdict::Found, codePages());
    report.line("region", Verdict::Found, region());

    const std::vector<Process> processes = findFemap();
    for (const Process& process : processes)
        tellProcess(session, process);
    if (processes.empty())
        report.line("femap.exe", Verdict::NotTried, "no such program runs");
    if (processes.size() > 1)
        report.line("number of FEMAPs", Verdict::Found,
                    std::to_string(processes.size()) + "; COM chooses which one is found");
    for (const Process& process : processes)
        session.processes.insert(process.number);
}

}  // namespace probe
