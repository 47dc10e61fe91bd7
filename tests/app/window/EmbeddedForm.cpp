// The form on a FEMAP of our own in the same process. Reads a neutral file and answers every
// selection dialog with all there is: what the form's window itself does can be seen without a
// FEMAP process.
//
// Usage: embedded-form MODEL.neu [ARGUMENTS], the arguments as those of the product.
#include "Everything.h"
#include "app/window/MainWindow.h"
#include "femap/embedded/Host.h"
#include "system/System.h"
#include "windows/Text.h"

#include <windows.h>

#include <cstdlib>
#include <exception>
#include <filesystem>
#include <shellapi.h>

namespace
{

int runForm(int argumentCount, wchar_t** arguments, int showCommand)
{
    driver::Everything dialogs;
    femap::embedded::Host host(dialogs);
    const std::filesystem::path model = std::filesystem::absolute(arguments[1]);
    host.openNeutralFile(windows::fromWide(model.wstring()));
    host.modelName = windows::fromWide(model.wstring());
    sys::System system = sys::thisMachine();
    window::MainWindow window(host, system);
    const std::string rest = argumentCount > 2 ? windows::fromWide(arguments[2]) : "";
    return window.open(rest, showCommand) ? window.run() : EXIT_FAILURE;
}

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int showCommand)
{
    int count = 0;
    wchar_t** const arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    if (arguments == nullptr || count < 2)
        return EXIT_FAILURE;
    try {
        return runForm(count, arguments, showCommand);
    }
    catch (const std::exception& mistake) {
        OutputDebugStringW(windows::toWide(mistake.what()).c_str());
        return EXIT_FAILURE;
    }
}
