// Platform.h on Windows.
#include "system/CodePage.h"
#include "system/Platform.h"
#include "system/RuntimeError.h"
#include "system/System.h"
#include "windows/Text.h"

#include <windows.h>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <io.h>
#include <iterator>
#include <string_view>

namespace sys
{

const char pathSeparator = '\\';
const std::string_view pathSeparators = "\\/";  // Windows takes a slash for a backslash

namespace
{

constexpr std::wstring_view asItStands = L"\\\\?\\";  // in such a path Windows resolves nothing
constexpr std::wstring_view ofDevices = L"\\\\.\\";

std::wstring withBackslashes(const std::string& path)
{
    std::wstring text = windows::toWide(path);
    std::ranges::replace(text, L'/', L'\\');
    return text;
}

std::wstring fullForm(const std::wstring& path)
{
    std::wstring full(GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0');
    full.resize(
        GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    return full;
}

// Names that stand for devices in every folder, whatever comes after a point.
constexpr std::wstring_view deviceNames[] = {L"CON", L"PRN", L"AUX", L"NUL", L"CONIN$", L"CONOUT$"};
constexpr std::wstring_view numberedDevices[] = {L"COM", L"LPT"};
constexpr std::wstring_view deviceNumbers = L"0123456789\u00B9\u00B2\u00B3";

bool isDeviceName(const std::wstring& name)
{
    if (std::ranges::find(deviceNames, name) != std::end(deviceNames))
        return true;
    return name.size() == 4 && deviceNumbers.find(name[3]) != std::wstring_view::npos &&
           std::ranges::find(numberedDevices, name.substr(0, 3)) != std::end(numberedDevices);
}

bool isInUse(const std::error_code& reason)
{
    return reason.category() == std::system_category() &&
           (reason.value() == ERROR_SHARING_VIOLATION || reason.value() == ERROR_LOCK_VIOLATION);
}

template <class Step>
auto raisingRuntimeError(const Step& convert)
{
    try {
        return convert();
    }
    catch (const std::runtime_error& error) {
        throw RuntimeError(ErrorNumber::FileError, error.what());
    }
}

class AnsiCodePage : public CodePage
{
public:
    bool encode(std::string_view text, std::string& bytes) const override
    {
        return raisingRuntimeError([&] { return windows::appendAnsi(text, bytes); });
    }
    std::string decode(std::string_view bytes) const override
    {
        return raisingRuntimeError([&] { return windows::fromAnsi(bytes); });
    }
};

}  // namespace

std::filesystem::path toPath(const std::string& path)
{
    // Windows takes a path of 260 characters and more only in the form that it does not resolve.
    constexpr std::size_t longestPlainPath = 240;  // a folder must leave room for a short file name
    const std::wstring text = withBackslashes(path);
    if (text.size() < longestPlainPath || text.starts_with(asItStands))
        return text;
    const std::wstring full = fullForm(text);
    if (full.starts_with(asItStands))
        return full;
    return full.starts_with(L"\\\\") ? std::wstring(asItStands) + L"UNC" + full.substr(1)
                                     : std::wstring(asItStands) + full;
}

std::string fullPath(const std::string& path, std::error_code& reason)
{
    const std::wstring full = fullForm(withBackslashes(path));
    if (full.empty())
        reason.assign(static_cast<int>(GetLastError()), std::system_category());
    return windows::fromWide(full);
}

// In capital letters, as Windows compares names of files, and with slashes of one kind.
std::string foldedPath(const std::string& path)
{
    const std::wstring text = withBackslashes(path);
    std::wstring upper(text.size(), L'\0');
    const int length = static_cast<int>(text.size());
    const int done = LCMapStringEx(LOCALE_NAME_INVARIANT, LCMAP_UPPERCASE, text.data(), length,
                                   upper.data(), length, nullptr, nullptr, 0);
    return windows::fromWide(done == length ? upper : text);
}

bool namesDevice(const std::string& path)
{
    const std::wstring text = withBackslashes(path);
    std::wstring name = text.substr(text.rfind(L'\\') + 1);
    name = name.substr(0, name.find_first_of(L".:"));
    name.resize(name.find_last_not_of(L' ') + 1);
    for (wchar_t& c : name)
        c = c >= L'a' && c <= L'z' ? static_cast<wchar_t>(c - L'a' + L'A') : c;
    return text.starts_with(ofDevices) || isDeviceName(name);
}

std::FILE* openFile(const std::string& path, Access access)
{
    const wchar_t* const mode = access == Access::Read    ? L"rb"
                                : access == Access::Write ? L"wb"
                                                          : L"ab";
    if (namesDevice(path) || isFolder(path)) {
        errno = namesDevice(path) ? ENODEV : EISDIR;
        return nullptr;
    }
    std::FILE* const file = _wfopen(toPath(path).c_str(), mode);
    if (file == nullptr)
        return nullptr;
    const auto handle = reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(file)));
    if (GetFileType(handle) == FILE_TYPE_DISK)
        return file;
    static_cast<void>(std::fclose(file));
    errno = ENODEV;
    return nullptr;
}

std::FILE* openFileAlone(const std::string& path, std::error_code& reason)
{
    const auto failed = [&reason](std::errc error) {
        reason = std::make_error_code(error);
        return nullptr;
    };
    if (namesDevice(path))
        return failed(std::errc::no_such_device);
    // Others may read it; to write it they would have to share it.
    const HANDLE handle =
        CreateFileW(toPath(path).c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                    OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        reason = {static_cast<int>(GetLastError()), std::system_category()};
        if (isInUse(reason))
            failed(std::errc::device_or_resource_busy);
        return nullptr;
    }
    if (GetFileType(handle) != FILE_TYPE_DISK) {
        CloseHandle(handle);
        return failed(std::errc::no_such_device);
    }
    const int number = _open_osfhandle(reinterpret_cast<std::intptr_t>(handle), _O_BINARY);
    std::FILE* const file = _fdopen(number, "r+b");
    return file != nullptr ? file : failed(std::errc::too_many_files_open);
}

int emptyFile(std::FILE* file)
{
    return std::fseek(file, 0, SEEK_SET) != 0 ? -1 : _chsize(_fileno(file), 0);
}

int bringToDisk(std::FILE* file)
{
    return _commit(_fileno(file));
}

bool isFolder(const std::string& path)
{
    const DWORD attributes = GetFileAttributesW(toPath(path).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

void removeFile(const std::string& path)
{
    static_cast<void>(_wremove(toPath(path).c_str()));  // there may be none
}

std::error_condition conditionOf(const std::error_code& reason)
{
    return isInUse(reason) ? std::errc::permission_denied : reason.default_error_condition();
}

const CodePage& usersCodePage()
{
    static const AnsiCodePage codePage;
    return codePage;
}

LocalTime localTime()
{
    SYSTEMTIME now{};
    GetLocalTime(&now);
    return {now.wYear,   now.wMonth,  now.wDay,         now.wHour,
            now.wMinute, now.wSecond, now.wMilliseconds};
}

std::string environmentVariable(const std::string& name)
{
    const std::wstring wideName = windows::toWide(name);
    const DWORD size = GetEnvironmentVariableW(wideName.c_str(), nullptr, 0);
    if (size == 0)
        return {};
    std::wstring value(size, L'\0');
    value.resize(GetEnvironmentVariableW(wideName.c_str(), value.data(), size));
    return windows::fromWide(value);
}

}  // namespace sys
