// ModelMark.h on Windows: a mutex of the session, which nobody ever waits for.
#include "system/ModelMark.h"
#include "windows/Text.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>

namespace sys
{

namespace
{

// Its capital letters, as Windows compares names of files, and its slashes of one kind.
std::wstring folded(const std::string& path)
{
    std::wstring text = windows::toWide(path);
    std::ranges::replace(text, L'/', L'\\');
    std::wstring upper(text.size(), L'\0');
    const int length = static_cast<int>(text.size());
    const int done = LCMapStringEx(LOCALE_NAME_INVARIANT, LCMAP_UPPERCASE, text.data(), length,
                                   upper.data(), length, nullptr, nullptr, 0);
    return done == length ? upper : text;
}

// A path may be longer than a mutex's name, and has backslashes, which such a name must not have.
std::wstring nameOf(const std::string& path)
{
    constexpr std::uint64_t offset = 0xCBF29CE484222325;  // of the FNV-1a digest
    constexpr std::uint64_t prime = 0x100000001B3;
    std::uint64_t digest = offset;
    for (const wchar_t unit : folded(path)) {
        digest = (digest ^ (unit & 0xFFU)) * prime;
        digest = (digest ^ (static_cast<unsigned>(unit) >> 8U)) * prime;
    }
    std::array<wchar_t, 17> digits{};
    std::swprintf(digits.data(), digits.size(), L"%016llX",
                  static_cast<unsigned long long>(digest));
    return std::wstring(L"Local\\VelmarFemapInterface.") + digits.data();
}

class Mutex : public ModelMark
{
public:
    explicit Mutex(const std::wstring& name)
        : handle_(CreateMutexW(nullptr, FALSE, name.c_str())), isSecond_(isThere(GetLastError()))
    {}
    ~Mutex() override
    {
        if (handle_ != nullptr)
            CloseHandle(handle_);
    }
    Mutex(const Mutex&) = delete;
    Mutex& operator=(const Mutex&) = delete;

    bool isSecond() const override { return isSecond_; }

private:
    // One of a program with more rights is refused.
    static bool isThere(DWORD reason)
    {
        return reason == ERROR_ALREADY_EXISTS || reason == ERROR_ACCESS_DENIED;
    }

    HANDLE handle_;
    bool isSecond_;
};

}  // namespace

std::unique_ptr<ModelMark> markModel(const std::string& path)
{
    return std::make_unique<Mutex>(nameOf(path));
}

}  // namespace sys
