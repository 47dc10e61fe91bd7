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

int runForm(int showCommand)
{
    femap::com::FemapConnector femap(nullptr);
    sys::System system = sys::thisMachine();
    window::MainWindow window(femap, system);
    femap.reportTo([&window](const std::string& text) { window.showStatus(text); });
    femap.beforeWaits([&window] { window.show(); });
    femap.endWaitsWhen([&window] { return window.endsWait(); });
    if (!window.open(argumentString(), showCommand))
        return EXIT_FAILURE;
    return window.run();
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
        // Only a debugger can still show this.
        OutputDebugStringW(windows::toWide(mistake.what()).c_str());
        return EXIT_FAILURE;
    }
}
