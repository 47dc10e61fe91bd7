#include "app/window/Viewer.h"

#include "system/RuntimeError.h"
#include "windows/Text.h"

#include <windows.h>

#include <cstdint>
#include <shellapi.h>

namespace window
{

namespace
{

[[noreturn]] void raiseLastError()
{
    throw sys::RuntimeError(sys::ErrorNumber::FileError,
                            windows::describe(HRESULT_FROM_WIN32(GetLastError())));
}

}  // namespace

void WindowsViewer::open(const std::string& path)
{
    constexpr std::intptr_t lastFailure = 32;  // greater answers are none
    const HMODULE library = LoadLibraryExW(L"shell32.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    const FARPROC function =
        library == nullptr ? nullptr : GetProcAddress(library, "ShellExecuteW");
    if (function == nullptr)
        raiseLastError();
    const auto execute =
        reinterpret_cast<decltype(&ShellExecuteW)>(reinterpret_cast<void*>(function));
    const HINSTANCE answer =
        execute(nullptr, L"open", windows::toWide(path).c_str(), nullptr, nullptr, SW_SHOWNORMAL);
    if (reinterpret_cast<std::intptr_t>(answer) <= lastFailure)
        raiseLastError();
}

}  // namespace window
