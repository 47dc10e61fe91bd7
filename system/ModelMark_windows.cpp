// ModelMark.h on Windows: a mutex of the session, which nobody ever waits for.
#include "system/FileKey.h"
#include "system/ModelMark.h"
#include "windows/Text.h"

#include <windows.h>

namespace sys
{

namespace
{

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

// A path may be longer than a mutex's name, and has backslashes, which such a name must not have.
std::unique_ptr<ModelMark> markModel(const std::string& path)
{
    return std::make_unique<Mutex>(L"Local\\VelmarFemapInterface." +
                                   windows::toWide(keyOfFile(path)));
}

}  // namespace sys
