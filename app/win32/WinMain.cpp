#include "app/win32/MainWindow.h"
#include "femap/com/Text.h"
#include "femap/com/WayToFemap.h"
#include "femap/com/WindowsSystem.h"

#include <windows.h>

#include <cstdlib>
#include <exception>
#include <memory>

namespace
{

// What stands behind the program's own name on the command line, quotes and all.
std::string argumentString()
{
    const wchar_t* rest = GetCommandLineW();
    bool quoted = false;
    for (; *rest != L'\0' && (quoted || (*rest != L' ' && *rest != L'\t')); ++rest)
        if (*rest == L'"')
            quoted = !quoted;
    while (*rest == L' ' || *rest == L'\t')
        ++rest;
    return femap::com::fromWide(rest);
}

int runForm(int showCommand)
{
    femap::com::WayToFemap femap(nullptr);
    logging::System system = femap::com::windowsSystem();
    win32::MainWindow window(femap, system);
    femap.reportTo([&window](const std::string& text) { window.showStatus(text); });
    if (!window.open(argumentString(), showCommand))
        return EXIT_FAILURE;
    return window.run();
}

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int showCommand)
{
    try {
        femap::com::takeLibrariesFromSystemOnly();
        return runForm(showCommand);
    }
    catch (const std::exception& mistake) {
        // Nobody can be told any more but a debugger.
        OutputDebugStringW(femap::com::toWide(mistake.what()).c_str());
        return EXIT_FAILURE;
    }
}
