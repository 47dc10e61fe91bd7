#include "app/study/Platform.h"
#include "app/study/Recorder.h"
#include "app/win32/MainWindow.h"
#include "femap/com/WayToFemap.h"
#include "logging/RuntimeError.h"

namespace study
{

namespace
{

void record(const std::string& script, const std::string& arguments)
{
    using logging::ErrorNumber;
    using logging::RuntimeError;

    femap::com::WayToFemap femap(nullptr);
    logging::System system = platformSystem();
    Recorder recorder(system.files, script, arguments);
    RecordedConnector connector(femap, recorder);
    win32::MainWindow window(connector, system);
    femap.reportTo([&window](const std::string& text) { window.showStatus(text); });
    recorder.follow(window.form());
    window.watch(recorder);
    if (!window.open(arguments))
        throw RuntimeError(ErrorNumber::ObjectFailed,
                           "FEMAP does not run and could not be started");
    window.run();
    if (!recorder.failure().empty())
        throw RuntimeError(ErrorNumber::FileError,
                           "The script ends too early: " + recorder.failure());
}

}  // namespace

std::function<void(const std::string& script, const std::string& arguments)> recordedForm()
{
    return record;
}

}  // namespace study
