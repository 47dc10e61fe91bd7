#include "app/StartUp.h"

#include "app/CommandLine.h"
#include "generate/ControlFile.h"
#include "logging/Module1.h"

#include <utility>

namespace app
{

using form::Context;
using logging::logDebug;
using logging::logPosition;
using logging::logPositionAndClearErrorIfAny;
using sys::ErrorNumber;
using sys::RuntimeError;

namespace
{

constexpr int nameWidth = 2412;    // twips
constexpr int valueWidth = 10000;  // twips
constexpr int rightOfFemap = 2;    // where the pane goes

constexpr std::string_view banner = "===============command line arguments===============";

// Without a log the tool works as well; why there is none is told when start-up is done.
void startLog(Context& context, CommandLine& arguments)
{
    context.error.attempt(
        [&] { context.log.InitialiseLogger(arguments.logFileName, arguments.logLevel); });
}

void logArguments(Context& context, const CommandLine& arguments)
{
    logging::FemapLogger& log = context.log;
    const auto always = [&log](std::string_view before, std::string_view text) {
        log.writeLogWithLevel(log.LogLevel_always, std::string(before).append(text));
    };
    always(logging::firstWords, " " + logging::GetTimeStamp(context.system));
    always(banner, "");
    always("Input mod file: ", arguments.modelFile);
    always("Log File Name: ", arguments.logFileName);
    always("Loglevel:", arguments.logLevel);
    always("FileExtension:", context.form.fileExtension);
    always(banner, "");
}

bool attachToFemap(Session& session)
{
    Context& context = session.context;
    context.error.attempt([&] { context.application = session.connector.attach(); });
    if (context.application == nullptr)
        context.error.clear();
    return context.application != nullptr;
}

// Attaches to a running FEMAP or starts one. False when neither is possible.
bool reachFemap(Session& session)
{
    Context& context = session.context;
    logPosition(context.log, "Before getting femap object");
    if (attachToFemap(session)) {
        logDebug(context.log, "Existing instance of FEMAP is used");
        return true;
    }
    logDebug(context.log, "Unable to get existing instance of FEMAP");
    context.error.attempt([&] { context.application = session.connector.create(); });
    if (context.application == nullptr) {
        logging::FemapLogger& log = context.log;
        log.writeLogWithLevel(log.LogLevel_error, "Unable to get new instance of FEMAP");
        log.writeLogWithLevel(log.LogLevel_error, "FEMAP not found");
        return false;
    }
    logDebug(context.log, "New instance of FEMAP is created");
    logDebug(context.log, "Femap visibility mode is changed to True");
    return true;
}

// Raises RuntimeError that names the file.
void openModelFile(Context& context, const std::string& path)
{
    const std::string failure = "FEMAP could not open the model " + path;
    femap::ReturnCode status = femap::ReturnCode::Fail;
    sys::PendingError reason;
    if (!reason.attempt([&] { status = context.femap().feFileOpen(false, path); }))
        throw RuntimeError(ErrorNumber::FileError, failure + ": " + reason.description());
    if (status != femap::ReturnCode::Ok)
        throw RuntimeError(ErrorNumber::FileError, failure + ": it answered with status " +
                                                       std::to_string(static_cast<int>(status)));
}

void openModel(Session& session, const std::string& path)
{
    Context& context = session.context;
    if (!path.empty()) {
        if (context.error.attempt([&] { openModelFile(context, path); })) {
            logDebug(context.log, "Opened file: ", path);
        }
        else {
            session.openFailure = context.error.description();
            context.form.status.tellFailure(session.openFailure);
        }
    }
    logPositionAndClearErrorIfAny(context.log, context.error, "After opening femap file");
}

void makeInitialChoices(form::MainForm& form)
{
    form.InputSelection.setListIndex(0);   // "Nodes"
    form.OutputSelection.setListIndex(0);  // "Nodes"
    form.Solver.setListIndex(1);           // "NXNastran"
    form.Optimizer.setListIndex(0);        // "Velmar"
}

void setColumnWidths(form::MainForm& form)
{
    for (form::ParameterGrid* grid : {&form.InputsList, &form.OutputsList}) {
        grid->ColWidth[form::ParameterGrid::nameColumn] = nameWidth;
        grid->ColWidth[form::ParameterGrid::valueColumn] = valueWidth;
    }
}

void restoreSelection(Session& session)
{
    Context& context = session.context;
    if (!enableWhileModelIsOpen(session))
        return;
    session.propertyList.Form_Load();
    session.propertyList.UpdateCollection();
    logDebug(context.log, "Form property collection updated");
    context.form.modelEntityCount = countOutputVectors(session);
    generate::Load_Click(context);
}

// FEMAP has no way to tell which panes it has, so the answer is always no.
bool IsPluginAlreadyPresent()
{
    return false;
}

void registerPlugin(Session& session)
{
    Context& context = session.context;
    if (IsPluginAlreadyPresent()) {
        logDebug(context.log, "Plugin is not initialized as it was already present in Femap");
        return;
    }
    logPosition(context.log, "Before registering plugin");
    context.form.addInPaneResult = context.femap().feAppRegisterAddInPane(addInPane(context));
    logPosition(context.log, "After registering plugin");
    InitFormEvents(session);
    logDebug(context.log, "Intialized form events");  // sic
    logDebug(context.log, "Plugin is initialized");
}

}  // namespace

StartUp Form_Load(Session& session, const std::string& arguments)
{
    Context& context = session.context;
    CommandLine commandLine = parseCommandLine(arguments);
    context.form.fileExtension = GetFileExtension(commandLine.modelFile);
    startLog(context, commandLine);
    logArguments(context, commandLine);
    if (!reachFemap(session)) {
        context.log.DeinitialiseLogger();
        return StartUp::FemapNotFound;
    }
    context.error.attempt([&] { context.femap().feAppVisible(true); });
    logDebug(context.log, "Femap made to visible");
    logPosition(context.log, "After getting femap object");

    openModel(session, commandLine.modelFile);
    makeInitialChoices(context.form);
    setColumnWidths(context.form);
    restoreSelection(session);
    registerPlugin(session);
    logPosition(context.log, "At end of Load Form");
    return StartUp::Done;
}

void femapReturned(Session& session, std::unique_ptr<femap::Application> application)
{
    Context& context = session.context;
    context.application = std::move(application);
    logDebug(context.log, "FEMAP is back");
    context.form.status.withdraw(femapIsGone);
    context.form.status.tellResult(femapIsBack);
    RestoreFormEvents(session);
    registerPlugin(session);
    if (!enableWhileModelIsOpen(session))
        return;
    session.propertyList.UpdateCollection();
    context.form.modelEntityCount = countOutputVectors(session);
}

void Form_Unload(Session& session)
{
    Context& context = session.context;
    logPosition(context.log, "Unloading the form");
    RestoreFormEvents(session);
    context.form.function.reset();
    context.application.reset();
    logDebug(context.log, "Setting Main femap instance to Nothing");
    context.log.DeinitialiseLogger();
}

void InitFormEvents(Session& session)
{
    session.eventFemap = session.connector.attach();
    session.context.host.hookEvents();
    session.eventsAreHooked = true;
}

void RestoreFormEvents(Session& session)
{
    session.eventFemap.reset();
    if (std::exchange(session.eventsAreHooked, false))
        session.context.host.unhookEvents();
}

bool enableWhileModelIsOpen(Session& session)
{
    Context& context = session.context;
    const bool isOpen = context.error.attempt([&] { context.femap().ModelName(); });
    context.error.clear();
    context.form.setEnabled(isOpen);
    if (isOpen)
        context.form.status.withdraw(noModelOpen);
    else if (session.openFailure.empty())
        context.form.status.tellProblem(noModelOpen);
    return isOpen;
}

int countOutputVectors(Session& session)
{
    const std::unique_ptr<femap::EntitySet> set = session.context.femap().feSet();
    set->AddAll(femap::EntityType::OutputVector);
    return set->count();
}

femap::AddInPane addInPane(Context& context)
{
    const std::intptr_t window = context.host.windowHandle();
    femap::AddInPane pane;
    pane.windowID = window;
    pane.messageID = window;
    pane.location = rightOfFemap;
    return pane;
}

}  // namespace app
