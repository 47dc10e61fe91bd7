#include "standin/ClientWatch.h"

#include <memory>

namespace standin
{

namespace
{

class ClientWatch
{
public:
    explicit ClientWatch(DWORD process)
        : thread_(GetCurrentThreadId()), process_(OpenProcess(SYNCHRONIZE, FALSE, process))
    {
        if (process_ != nullptr &&
            RegisterWaitForSingleObject(&wait_, process_, ended, this, INFINITE,
                                        WT_EXECUTEONLYONCE) == FALSE)
            wait_ = nullptr;
    }
    ~ClientWatch()
    {
        if (wait_ != nullptr)
            UnregisterWaitEx(wait_, INVALID_HANDLE_VALUE);
        if (process_ != nullptr)
            CloseHandle(process_);
    }
    ClientWatch(const ClientWatch&) = delete;
    ClientWatch& operator=(const ClientWatch&) = delete;

private:
    static void CALLBACK ended(void* watch, BOOLEAN)
    {
        PostThreadMessageW(static_cast<const ClientWatch*>(watch)->thread_, WM_QUIT, 0, 0);
    }

    DWORD thread_;
    HANDLE process_;
    HANDLE wait_ = nullptr;
};

}  // namespace

void endWithProgramOf(HWND window)
{
    static std::unique_ptr<ClientWatch> watch;
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    watch.reset();
    if (process != 0 && process != GetCurrentProcessId())
        watch = std::make_unique<ClientWatch>(process);
}

}  // namespace standin
