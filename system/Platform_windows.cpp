// Platform.h on Windows.
#include "system/CodePage.h"
#include "system/Platform.h"
#include "system/System.h"
#include "windows/Text.h"

#include <windows.h>

#include <fcntl.h>
#include <io.h>

namespace sys
{

const char pathSeparator = '\\';
const std::string_view pathSeparators = "\\/";  // Windows takes a slash for a backslash

namespace
{

// Windows takes a path of 260 characters and more only in this form. It does not resolve parts such
// as ".." in it, so only long paths are given that way.
std::filesystem::path inLongForm(std::filesystem::path path)
{
    constexpr std::size_t longestPlainPath = 240;  // a folder must leave room for a short file name
    path.make_preferred();
    const std::wstring text = path.native();
    if (text.size() < longestPlainPath || !path.is_absolute() || text.starts_with(L"\\\\?\\"))
        return path;
    const std::wstring plain = path.lexically_normal().native();
    return plain.starts_with(L"\\\\") ? L"\\\\?\\UNC" + plain.substr(1) : L"\\\\?\\" + plain;
}

bool isInUse(const std::error_code& reason)
{
    return reason.category() == std::system_category() &&
           (reason.value() == ERROR_SHARING_VIOLATION || reason.value() == ERROR_LOCK_VIOLATION);
}

class AnsiCodePage : public CodePage
{
public:
    bool encode(std::string_view text, std::string& bytes) const override
    {
        return windows::appendAnsi(text, bytes);
    }
    std::string decode(std::string_view bytes) const override { return windows::fromAnsi(bytes); }
};

}  // namespace

std::filesystem::path toPath(const std::string& path)
{
    return inLongForm(std::u8string(path.begin(), path.end()));
}

std::FILE* openFile(const std::string& path, bool forWriting)
{
    return _wfopen(toPath(path).c_str(), forWriting ? L"wb" : L"rb");
}

std::FILE* openFileAlone(const std::string& path, std::error_code& reason)
{
    const auto failed = [&reason](std::errc error) {
        reason = std::make_error_code(error);
        return nullptr;
    };
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

// std::filesystem::is_directory does not take long paths here.
bool isFolder(const std::string& path)
{
    std::error_code reason;
    const std::filesystem::directory_iterator content(toPath(path), reason);
    return !reason;
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
