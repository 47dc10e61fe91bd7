#include "windows/Processes.h"

#include "windows/Handle.h"
#include "windows/Text.h"

#include <array>
#include <tlhelp32.h>

namespace windows
{

namespace
{

std::optional<DWORD> sessionOf(DWORD process)
{
    DWORD session = 0;
    return ProcessIdToSessionId(process, &session) ? std::optional(session) : std::nullopt;
}

// The default value of a key below Software\Classes, the user's own first; empty when there is
// none. Wine's HKEY_CLASSES_ROOT lacks the user's.
std::string classValue(const std::wstring& key)
{
    for (const HKEY root : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE})
        for (const int width : {KEY_WOW64_64KEY, KEY_WOW64_32KEY}) {
            HKEY opened = nullptr;
            if (RegOpenKeyExW(root, (L"Software\\Classes\\" + key).c_str(), 0,
                              static_cast<REGSAM>(KEY_QUERY_VALUE | width),
                              &opened) != ERROR_SUCCESS)
                continue;
            std::array<wchar_t, 2048> text{};
            DWORD size = sizeof text - sizeof(wchar_t);
            const LSTATUS result = RegQueryValueExW(opened, nullptr, nullptr, nullptr,
                                                    reinterpret_cast<BYTE*>(text.data()), &size);
            RegCloseKey(opened);
            if (result == ERROR_SUCCESS)
                return fromWide(text.data());
        }
    return {};
}

}  // namespace

std::vector<Process> processes()
{
    const std::optional<DWORD> own = sessionOf(GetCurrentProcessId());
    std::vector<Process> found;
    const Handle all(CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
    PROCESSENTRY32W entry{};
    entry.dwSize = sizeof entry;
    for (BOOL more = Process32FirstW(all.get(), &entry); more;
         more = Process32NextW(all.get(), &entry))
        found.push_back({entry.th32ProcessID, fromWide(entry.szExeFile),
                         sessionOf(entry.th32ProcessID) == own});
    return found;
}

std::optional<bool> isElevated(HANDLE process)
{
    HANDLE opened = nullptr;
    if (process == nullptr || !OpenProcessToken(process, TOKEN_QUERY, &opened))
        return std::nullopt;
    const Handle token(opened);
    TOKEN_ELEVATION elevation{};
    DWORD size = 0;
    if (!GetTokenInformation(token.get(), TokenElevation, &elevation, sizeof elevation, &size))
        return std::nullopt;
    return elevation.TokenIsElevated != 0;
}

std::optional<bool> isElevated(DWORD process)
{
    return isElevated(Handle(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, process)).get());
}

std::string serverProgramOf(const std::string& progID)
{
    const std::string id = classValue(toWide(progID) + L"\\CLSID");
    if (id.empty())
        return {};
    std::string path = classValue(L"CLSID\\" + toWide(id) + L"\\LocalServer32");
    path = path.substr(path.find_last_of('\\') + 1);
    return path.substr(0, path.find_first_of("\" "));
}

bool isSameFileName(const std::string& one, const std::string& other)
{
    return CompareStringOrdinal(toWide(one).c_str(), -1, toWide(other).c_str(), -1, TRUE) ==
           CSTR_EQUAL;
}

}  // namespace windows
