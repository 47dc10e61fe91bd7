// Replacing.h on Windows.
#include "system/Platform.h"
#include "system/Replacing.h"

#include <windows.h>

#include <vector>

namespace sys
{

namespace
{

std::error_code lastReason()
{
    return {static_cast<int>(GetLastError()), std::system_category()};
}

// Whom the file lets do what. Where the disk keeps no such thing, there is nothing to take.
void takeAccess(const wchar_t* path, const wchar_t* by)
{
    DWORD size = 0;
    GetFileSecurityW(path, DACL_SECURITY_INFORMATION, nullptr, 0, &size);
    std::vector<char> bytes(size);
    const auto access = static_cast<PSECURITY_DESCRIPTOR>(bytes.data());
    if (size == 0 || !GetFileSecurityW(path, DACL_SECURITY_INFORMATION, access, size, &size))
        return;
    SECURITY_DESCRIPTOR_CONTROL control = 0;
    DWORD revision = 0;
    // What the file has from its folder stays marked as that.
    if (GetSecurityDescriptorControl(access, &control, &revision) &&
        (control & SE_DACL_AUTO_INHERITED) != 0)
        SetSecurityDescriptorControl(access, SE_DACL_AUTO_INHERIT_REQ, SE_DACL_AUTO_INHERIT_REQ);
    SetFileSecurityW(by, DACL_SECURITY_INFORMATION, access);
}

void takeAttributes(const wchar_t* path, const wchar_t* by)
{
    constexpr DWORD lasting = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM |
                              FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;
    const DWORD attributes = GetFileAttributesW(path);
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & lasting) != 0)
        SetFileAttributesW(by, attributes & lasting);
}

}  // namespace

std::error_code reasonAgainstReplacing(const std::string& path)
{
    if (namesDevice(path))
        return std::make_error_code(std::errc::no_such_device);
    constexpr std::size_t longestName = 255;  // on every file system of Windows
    if (toPath(path).filename().native().size() > longestName)
        return std::make_error_code(std::errc::filename_too_long);
    const std::wstring name = toPath(path).native();
    const HANDLE file =
        CreateFileW(name.c_str(), DELETE | FILE_READ_ATTRIBUTES,
                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                    FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return GetLastError() == ERROR_FILE_NOT_FOUND ? std::error_code() : lastReason();
    CloseHandle(file);
    const DWORD attributes = GetFileAttributesW(name.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return lastReason();
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
        return std::make_error_code(std::errc::is_a_directory);
    if ((attributes & FILE_ATTRIBUTE_READONLY) != 0)
        return std::make_error_code(std::errc::permission_denied);
    return {};
}

std::error_code reasonAgainstCreatingIn(const std::string& folder)
{
    const HANDLE opened = CreateFileW(toPath(folder.empty() ? "." : folder).c_str(), FILE_ADD_FILE,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                      nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (opened == INVALID_HANDLE_VALUE)
        return lastReason();
    CloseHandle(opened);
    return {};
}

std::error_code replaceFile(const std::string& path, const std::string& by)
{
    if (const std::error_code reason = reasonAgainstReplacing(path))
        return reason;
    const std::wstring name = toPath(path).native();
    const std::wstring fresh = toPath(by).native();
    takeAccess(name.c_str(), fresh.c_str());
    takeAttributes(name.c_str(), fresh.c_str());
    if (!MoveFileExW(fresh.c_str(), name.c_str(),
                     MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
        return lastReason();
    return {};
}

}  // namespace sys
