// What velmar-study does on Windows alone: it reaches the FEMAP that runs, records the form, and
// probes a FEMAP.
#include "app/Version.h"
#include "app/window/MainWindow.h"
#include "femap/com/FemapConnector.h"
#include "probe/Probe.h"
#include "study/Platform.h"
#include "study/Recorder.h"
#include "system/RuntimeError.h"
#include "system/System.h"

#include <windows.h>

#include <iostream>
#include <memory>
#include <string>

namespace study
{

namespace
{

void record(const std::string& script, const std::string& arguments)
{
    using sys::ErrorNumber;
    using sys::RuntimeError;

    femap::com::FemapConnector femap(nullptr);
    sys::System system = sys::thisMachine();
    Recorder recorder(system.files, script, arguments);
    RecordedConnector connector(femap, recorder);
    window::MainWindow window(connector, system);
    femap.reportTo([&window](const std::string& text) { window.showStatus(text); });
    femap.endWaitsWhen([&window] { return window.endsWait(); });
    recorder.follow(window.form());
    window.observe(recorder);
    if (!window.open(arguments))
        throw RuntimeError(ErrorNumber::ObjectFailed,
                           "FEMAP does not run and could not be started: " + window.femapFailure());
    window.run();
    if (!recorder.failure().empty())
        throw RuntimeError(ErrorNumber::FileError,
                           "The script ends too early: " + recorder.failure());
}

}  // namespace

std::function<std::unique_ptr<femap::Connector>(femap::SelectionDialogs&)> runningFemap()
{
    return [](femap::SelectionDialogs& dialogs) {
        auto femap = std::make_unique<femap::com::FemapConnector>(&dialogs);
        femap->reportTo([](const std::string& text) { std::cerr << text << std::endl; });
        return femap;
    };
}

std::function<void(const std::string& script, const std::string& arguments)> recordedForm()
{
    return record;
}

std::function<int(const std::vector<std::string>& arguments, std::ostream& said)> femapProbe()
{
    return [](const std::vector<std::string>& arguments, std::ostream& said) {
        sys::System system = sys::thisMachine();
        return probe::runProbe(arguments, system, app::version(), said);
    };
}

bool errorsShowColours()
{
    const HANDLE errors = GetStdHandle(STD_ERROR_HANDLE);
    DWORD mode = 0;
    return GetConsoleMode(errors, &mode) != FALSE &&
           SetConsoleMode(errors, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != FALSE;
}

}  // namespace study
