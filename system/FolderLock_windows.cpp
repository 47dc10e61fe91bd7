// FolderLock.h on Windows: a hidden file that Windows deletes when its process has ended. It says
// who has the folder.
#include "system/FolderLock.h"
#include "system/Platform.h"
#include "windows/Text.h"

#include <windows.h>

#include <array>

namespace sys
{

namespace
{

constexpr std::string_view lockName = "velmar-apply.lock~";

class Handle
{
public:
    explicit Handle(HANDLE handle) : handle_(handle) {}
    ~Handle()
    {
        if (isOpen())
            CloseHandle(handle_);
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    bool isOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
    HANDLE get() const { return handle_; }

private:
    HANDLE handle_;
};

class LockFile : public FolderLock
{
public:
    explicit LockFile(const std::wstring& path)
        : file_(CreateFileW(path.c_str(), GENERIC_WRITE | DELETE, FILE_SHARE_READ, nullptr,
                            OPEN_ALWAYS,
                            FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_TEMPORARY |
                                FILE_FLAG_DELETE_ON_CLOSE | FILE_FLAG_OPEN_REPARSE_POINT,
                            nullptr))
    {}

    bool isTaken() const { return file_.isOpen(); }
    // What cannot be written is missing in a message and nowhere else.
    void say(const std::string& text) const
    {
        DWORD written = 0;
        SetEndOfFile(file_.get());
        WriteFile(file_.get(), text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
    }

private:
    Handle file_;
};

std::string programName()
{
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return windows::fromWide(path.substr(path.find_last_of(L"\\/") + 1));
}

std::string thisProcess()
{
    return programName() + " (process " + std::to_string(GetCurrentProcessId()) + ") of user " +
           environmentVariable("USERNAME") + " on computer " + environmentVariable("COMPUTERNAME");
}

// Empty when there is no such file.
std::string sayingOf(const std::wstring& path)
{
    const Handle file(CreateFileW(path.c_str(), GENERIC_READ,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                  OPEN_EXISTING, FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
    if (!file.isOpen())
        return GetLastError() == ERROR_FILE_NOT_FOUND ? "" : "a process that is just ending";
    std::array<char, 1024> text = {};
    DWORD size = 0;
    ReadFile(file.get(), text.data(), text.size(), &size, nullptr);
    return size == 0 ? "a process that is just beginning" : std::string(text.data(), size);
}

}  // namespace

std::unique_ptr<FolderLock> takeFolder(const std::string& folder, std::string& holder)
{
    const std::wstring path = (toPath(folder) / lockName).native();
    auto lock = std::make_unique<LockFile>(path);
    const DWORD reason = GetLastError();
    if (lock->isTaken()) {
        lock->say(thisProcess());
        return lock;
    }
    // While the file of another process goes, access to it is denied; so it is in a folder that
    // this user may not change, but there is no file.
    if (reason == ERROR_SHARING_VIOLATION || reason == ERROR_ACCESS_DENIED)
        holder = sayingOf(path);
    return nullptr;
}

}  // namespace sys
