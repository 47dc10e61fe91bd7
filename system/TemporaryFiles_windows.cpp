// TemporaryFiles.h on Windows, which ends a program on a thread of its own.
#include "system/Platform.h"
#include "system/TemporaryFiles.h"

#include <windows.h>

#include <array>
#include <cstring>
#include <fcntl.h>
#include <io.h>

namespace sys
{

namespace
{

constexpr std::size_t longestPath = 32768;

struct Entry
{
    bool isUsed = false;
    std::array<wchar_t, longestPath> path = {};
};

std::array<Entry, 16> entries;
// Between the program and the thread on which it is ended.
SRWLOCK entriesLock = SRWLOCK_INIT;

class Locked
{
public:
    Locked() { AcquireSRWLockExclusive(&entriesLock); }
    ~Locked() { ReleaseSRWLockExclusive(&entriesLock); }
    Locked(const Locked&) = delete;
    Locked& operator=(const Locked&) = delete;
};

void remember(const std::wstring& path)
{
    for (Entry& entry : entries)
        if (!entry.isUsed && path.size() < entry.path.size()) {
            std::memcpy(entry.path.data(), path.c_str(), (path.size() + 1) * sizeof(wchar_t));
            entry.isUsed = true;
            return;
        }
}

// Never lets go of the entries: no other file is begun until the process has ended.
void removeForGood()
{
    AcquireSRWLockExclusive(&entriesLock);
    for (const Entry& entry : entries)
        if (entry.isUsed)
            DeleteFileW(entry.path.data());
}

BOOL WINAPI removeAndEnd(DWORD /*event*/)
{
    removeForGood();
    return FALSE;  // the usual way
}

LRESULT CALLBACK hearSessionEnd(HWND window, UINT message, WPARAM isEnding, LPARAM reason)
{
    if (message == WM_ENDSESSION && isEnding != FALSE)
        removeForGood();
    return DefWindowProcW(window, message, isEnding, reason);
}

// A program that uses windows hears of the session's end through windows alone, and those of its
// own answer nothing while it works. So there is a hidden one on a thread that does nothing else.
DWORD WINAPI waitForSessionEnd(void* isWaiting)
{
    WNDCLASSW kind{};
    kind.lpfnWndProc = hearSessionEnd;
    kind.hInstance = GetModuleHandleW(nullptr);
    kind.lpszClassName = L"VelmarSessionEnd";
    RegisterClassW(&kind);
    CreateWindowW(kind.lpszClassName, L"", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, kind.hInstance,
                  nullptr);
    SetEvent(isWaiting);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0)
        DispatchMessageW(&message);
    return 0;
}

// Others may read it, and this process may delete it, while it is open. A link is not followed.
HANDLE createNew(const std::wstring& path)
{
    return CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr,
                       CREATE_NEW, FILE_ATTRIBUTE_NORMAL | FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
}

std::FILE* asStream(HANDLE file)
{
    const int descriptor = _open_osfhandle(reinterpret_cast<intptr_t>(file), _O_BINARY);
    if (descriptor < 0) {
        CloseHandle(file);
        return nullptr;
    }
    std::FILE* const stream = _fdopen(descriptor, "wb");
    if (stream == nullptr)
        _close(descriptor);
    return stream;
}

}  // namespace

std::FILE* createTemporary(const std::string& path, std::string& temporary, std::error_code& reason)
{
    const Locked untilItIsRemembered;
    const std::string folder = folderPartOf(path);
    HANDLE file = INVALID_HANDLE_VALUE;
    for (int left = temporaryNamesTried; left > 0; --left) {
        temporary = folder + nextTemporaryName(GetCurrentProcessId());
        file = createNew(toPath(temporary).native());
        if (file != INVALID_HANDLE_VALUE || GetLastError() != ERROR_FILE_EXISTS)
            break;
    }
    if (file == INVALID_HANDLE_VALUE) {
        reason.assign(static_cast<int>(GetLastError()), std::system_category());
        return nullptr;
    }
    std::FILE* const stream = asStream(file);
    if (stream == nullptr) {
        reason.assign(errno, std::generic_category());
        removeFile(temporary);
        return nullptr;
    }
    remember(toPath(temporary).native());
    return stream;
}

void forgetTemporary(const std::string& temporary)
{
    const Locked together;
    const std::wstring path = toPath(temporary).native();
    for (Entry& entry : entries)
        if (entry.isUsed && path == entry.path.data())
            entry.isUsed = false;
}

void removeTemporariesWhenEnded()
{
    SetConsoleCtrlHandler(removeAndEnd, TRUE);
    const HANDLE isWaiting = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    const HANDLE thread = CreateThread(nullptr, 0, waitForSessionEnd, isWaiting, 0, nullptr);
    if (thread != nullptr) {
        WaitForSingleObject(isWaiting, INFINITE);
        CloseHandle(thread);
    }
    CloseHandle(isWaiting);
}

}  // namespace sys
