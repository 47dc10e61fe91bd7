#pragma once

#include <windows.h>

#include <cstddef>
#include <string>

namespace driver
{

/// Memory inside another process, for messages that carry a pointer.
class RemoteMemory
{
public:
    RemoteMemory(HANDLE process, std::size_t size)
        : process_(process),
          start_(static_cast<char*>(
              VirtualAllocEx(process, nullptr, size, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE)))
    {}
    ~RemoteMemory() { VirtualFreeEx(process_, start_, 0, MEM_RELEASE); }
    RemoteMemory(const RemoteMemory&) = delete;
    RemoteMemory& operator=(const RemoteMemory&) = delete;

    /// Where it is in that process.
    char* address(std::size_t offset = 0) const { return start_ + offset; }
    LPARAM parameter() const { return reinterpret_cast<LPARAM>(start_); }

    template <class Value>
    void write(const Value& value)
    {
        WriteProcessMemory(process_, start_, &value, sizeof value, nullptr);
    }
    template <class Value>
    Value read() const
    {
        Value value{};
        ReadProcessMemory(process_, start_, &value, sizeof value, nullptr);
        return value;
    }
    std::wstring text(std::size_t offset, std::size_t length) const
    {
        std::wstring result(length, L'\0');
        ReadProcessMemory(process_, start_ + offset, result.data(), length * sizeof(wchar_t),
                          nullptr);
        return result;
    }

private:
    HANDLE process_;
    char* start_;
};

}  // namespace driver
