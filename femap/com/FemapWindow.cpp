#include "femap/com/FemapWindow.h"

#include "system/RuntimeError.h"

namespace femap::com
{

HWND mainWindowOf(Dispatch& application)
{
    std::optional<HWND>& known = application.connection().mainWindow;
    if (known)
        return *known;
    try {
        const double number = application.call("hMainWnd").real();
        known = reinterpret_cast<HWND>(static_cast<INT_PTR>(number));
    }
    catch (const sys::RuntimeError&) {
        known = nullptr;
    }
    return *known;
}

DWORD processOf(HWND window)
{
    DWORD process = 0;
    if (window != nullptr)
        GetWindowThreadProcessId(window, &process);
    return process;
}

bool handlesMessages(HWND window)
{
    constexpr UINT moment = 200;  // milliseconds
    DWORD_PTR answer = 0;
    return SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_ABORTIFHUNG, moment, &answer) != 0;
}

}  // namespace femap::com
