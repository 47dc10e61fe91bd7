// recordedForm on Windows: shows the form and writes what is done in it as a study script.

#include "app/window/MainWindow.h"
#include "femap/com/FemapConnector.h"
#include "study/Platform.h"
#include "study/Recorder.h"
#include "system/RuntimeError.h"
#include "system/System.h"

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
    recorder.follow(window.form());
    window.observe(recorder);
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
