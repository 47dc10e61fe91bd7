#include "RemoteHeap.h"

#include <malloc.h>
#include <stdexcept>
#include <string>
#include <tlhelp32.h>

namespace driver
{

namespace
{

constexpr const wchar_t* library = L"msvcrt.dll";

/// Where the library lies in that process; null when it ends.
char* placeOfLibrary(DWORD process)
{
    const HANDLE modules = CreateToolhelp32Snapshot(TH32CS_SNAPMODULE, process);
    if (modules == INVALID_HANDLE_VALUE)
        return nullptr;
    char* place = nullptr;
    MODULEENTRY32W module{};
    module.dwSize = sizeof module;
    for (BOOL more = Module32FirstW(modules, &module); more != FALSE && place == nullptr;
         more = Module32NextW(modules, &module))
        if (_wcsicmp(module.szModule, library) == 0)
            place = reinterpret_cast<char*>(module.modBaseAddr);
    CloseHandle(modules);
    return place;
}

}  // namespace

std::optional<DWORD> RemoteHeap::call(const char* function, std::size_t argument) const
{
    char* const there = placeOfLibrary(GetProcessId(process_));
    if (there == nullptr)
        return std::nullopt;
    const HMODULE here = GetModuleHandleW(library);
    const auto distance =
        reinterpret_cast<char*>(GetProcAddress(here, function)) - reinterpret_cast<char*>(here);
    const auto start = reinterpret_cast<LPTHREAD_START_ROUTINE>(there + distance);
    const HANDLE thread = CreateRemoteThread(process_, nullptr, 0, start,
                                             reinterpret_cast<void*>(argument), 0, nullptr);
    if (thread == nullptr)
        return std::nullopt;
    WaitForSingleObject(thread, INFINITE);
    DWORD result = 0;
    GetExitCodeThread(thread, &result);
    CloseHandle(thread);
    if (WaitForSingleObject(process_, 0) != WAIT_TIMEOUT)
        return std::nullopt;
    return result;
}

std::optional<bool> RemoteHeap::isSound() const
{
    const auto state = call("_heapchk", 0);
    if (!state)
        return std::nullopt;
    return static_cast<int>(*state) == _HEAPOK || static_cast<int>(*state) == _HEAPEMPTY;
}

char* RemoteHeap::allocate(std::size_t size) const
{
    const auto address = call("malloc", size);
    if (!address)
        throw std::runtime_error("the program ended");
    return reinterpret_cast<char*>(static_cast<std::size_t>(*address));
}

}  // namespace driver
