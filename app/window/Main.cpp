// VelmarFemapInterface.exe: shows the form, with the FEMAP that runs or a new one.
#include "app/window/MainWindow.h"
#include "femap/com/FemapConnector.h"
#include "system/System.h"
#include "system/TemporaryFiles.h"
#include "windows/Libraries.h"
#include "windows/Text.h"

#include <windows.h>

#include <cstdlib>
#include <exception>
#include <string>

namespace
{

// What follows the program's own name on the command line, with all quotes.
std::string argumentString()
{
    const wchar_t* rest = GetCommandLineW();
    bool quoted = false;
    for (; *rest != L'\0' && (quoted || (*rest != L' ' && *rest != L'\t')); ++rest)
        if (*rest == L'"')
            quoted = !quoted;
    while (*rest == L' ' || *rest == L'\t')
        ++rest;
    return windows::fromWide(rest);
}

// The console that the program was started from; null when there is none.
HANDLE parentsConsole()
{
    if (AttachConsole(ATTACH_PARENT_PROCESS) == FALSE && GetLastError() != ERROR_ACCESS_DENIED)
        return nullptr;
    const HANDLE console =
        CreateFileW(L"CONOUT$", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                    nullptr, OPEN_EXISTING, 0, nullptr);
    return console == INVALID_HANDLE_VALUE ? nullptr : console;
}

// Why the program ends by an error, where standard error goes, or else on the console: it has no
// window then, and shows no boxes.
void tell(const std::string& text)
{
    const std::string line = "VelmarFemapInterface: " + text + "\r\n";
    DWORD written = 0;
    const HANDLE errors = GetStdHandle(STD_ERROR_HANDLE);
    if (errors != nullptr &&
        WriteFile(errors, line.data(), static_cast<DWORD>(line.size()), &written, nullptr) != FALSE)
        return;
    const HANDLE console = parentsConsole();
    if (console == nullptr)
        return;
    const std::wstring wide = windows::toWide(line);
    WriteConsoleW(console, wide.data(), static_cast<DWORD>(wide.size()), &written, nullptr);
    CloseHandle(console);
}

int runForm(int showCommand)
{
    femap::com::FemapConnector femap(nullptr);
    sys::System system = sys::thisMachine();
    window::MainWindow window(femap, system);
    femap.reportTo([&window](const std::string& text) { window.showStatus(text); });
    femap.beforeWaits([&window] { window.show(); });
    femap.endWaitsWhen([&window] { return window.endsWait(); });
    try {
        if (window.open(argumentString(), showCommand))
            return window.run();
        tell("FEMAP does not run and could not be started: " + window.femapFailure());
    }
    catch (const std::exception& mistake) {
        tell("The program has a mistake and ends: " + std::string(mistake.what()));
    }
    tell(window.whereLogIs());
    return EXIT_FAILURE;
}

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int showCommand)
{
    try {
        windows::takeLibrariesFromSystemOnly();
        sys::removeTemporariesWhenEnded();
        return runForm(showCommand);
    }
    catch (const std::exception& mistake) {
        tell(mistake.what());
        return EXIT_FAILURE;
    }
}
