#include "app/StartUp.h"

#include "app/CommandLine.h"
#include "app/CurrentModel.h"
#include "app/WhichFemap.h"
#include "generate/ControlFile.h"
#include "generate/ModelPath.h"
#include "logging/Module1.h"

#include <functional>
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

constexpr int rightOfFemap = 2;   // where the pane goes
constexpr int unknownCount = -1;  // of output vectors

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

// Takes what the connector gives. Returns why there is nothing; empty when there is.
std::string failureOf(Context& context,
                      const std::function<std::unique_ptr<femap::Application>()>& connect)
{
    try {
        context.application = connect();
        return context.application == nullptr ? "FEMAP handed out no application" : "";
    }
    catch (const RuntimeError& error) {
        return error.description();
    }
    catch (const femap::ConnectionLost& lost) {  // it is just ending
        return lost.what();
    }
}

// Attaches to a running FEMAP or starts one. False when neither is possible.
bool reachFemap(Session& session)
{
    Context& context = session.context;
    logging::FemapLogger& log = context.log;
    logPosition(log, "Before getting femap object");
    const std::string noRunning = failureOf(context, [&] { return session.connector.attach(); });
    if (noRunning.empty()) {
        logDebug(log, "Existing instance of FEMAP is used");
        return true;
    }
    logDebug(log, "Unable to get existing instance of FEMAP");
    const std::string noNew = failureOf(context, [&] { return session.connector.create(); });
    if (!noNew.empty()) {
        session.femapFailure = noRunning + "; " + noNew;
        logDebug(log, "Why no running FEMAP is used: ", noRunning);
        logDebug(log, "Why no FEMAP was started: ", noNew);
        log.writeLogWithLevel(log.LogLevel_error, "Unable to get new instance of FEMAP");
        log.writeLogWithLevel(log.LogLevel_error, "FEMAP not found");
        return false;
    }
    session.femapWasStarted = true;
    logDebug(log, "New instance of FEMAP is created");
    logDebug(log, "Femap visibility mode is changed to True");
    return true;
}

// The same; false as well when the engineer did not wait until it answered.
bool waitForFemap(Session& session)
{
    try {
        return reachFemap(session);
    }
    catch (const femap::WaitEnded& ended) {
        logging::FemapLogger& log = session.context.log;
        session.femapFailure = ended.what();
        log.writeLogWithLevel(log.LogLevel_error, session.femapFailure);
        return false;
    }
}

// FEMAP's own reasons do not tell that a path is wrong.
void demandFile(Context& context, const std::string& path)
{
    if (!context.system.files.isMissing(path))
        return;
    std::string open;
    sys::PendingError notTold;
    notTold.attempt([&] { open = context.femap().ModelName(); });
    throw RuntimeError(ErrorNumber::FileNotFound,
                       "There is no file " + path +
                           (open.empty() ? ". FEMAP has no model open that has a file"
                                         : ". FEMAP has this one open instead: " + open));
}

// Raises RuntimeError that names the file.
void openInFemap(Context& context, const std::string& path)
{
    femap::ReturnCode status = femap::ReturnCode::Fail;
    sys::PendingError reason;
    const bool isAnswered =
        reason.attempt([&] { status = context.femap().feFileOpen(false, path); });
    if (status != femap::ReturnCode::Ok)
        demandFile(context, path);
    if (!isAnswered)
        throw RuntimeError(ErrorNumber::FileError,
                           "FEMAP could not open the model: " + reason.description() + ": " + path);
    if (status != femap::ReturnCode::Ok)
        throw RuntimeError(ErrorNumber::FileError,
                           "FEMAP could not open the model: it answered with status " +
                               std::to_string(static_cast<int>(status)) + ": " + path);
}

void openModel(Session& session, const std::string& path)
{
    Context& context = session.context;
    if (!path.empty()) {
        if (context.error.attempt([&] { openInFemap(context, path); })) {
            logDebug(context.log, "Opened file: ", path);
        }
        else {
            session.openFailure = context.error.description();
            context.form.status.tellFailure(session.openFailure);
        }
    }
    logPositionAndClearErrorIfAny(context.log, context.error, "After opening femap file");
}

// A FEMAP that told the model's name a moment ago is asked once more.
std::optional<std::string> openModelFile(Session& session)
{
    const std::optional<std::string> modelFile = enableWhileModelIsOpen(session);
    const bool wasTold = !session.form.ownCommandLine.empty();
    return modelFile || !wasTold ? modelFile : enableWhileModelIsOpen(session);
}

void restoreSelection(Session& session, Steps& steps)
{
    Context& context = session.context;
    const std::optional<std::string> modelFile = openModelFile(session);
    if (!modelFile)
        return;
    steps.run([&] { session.propertyList.Form_Load(); });
    steps.run([&] {
        session.propertyList.UpdateCollection();
        logDebug(context.log, "Form property collection updated");
        context.form.modelEntityCount = countOutputVectors(session);
    });
    steps.run([&] { generate::Load_Click(context, *modelFile); });
}

// FEMAP has no way to tell which panes it has, so the answer is always no.
bool IsPluginAlreadyPresent()
{
    return false;
}

void registerPlugin(Session& session, Steps& steps)
{
    Context& context = session.context;
    if (IsPluginAlreadyPresent()) {
        logDebug(context.log, "Plugin is not initialized as it was already present in Femap");
        return;
    }
    logPosition(context.log, "Before registering plugin");
    const bool isRegistered = steps.run([&] {
        context.form.addInPaneResult = context.femap().feAppRegisterAddInPane(addInPane(context));
    });
    logPosition(context.log, "After registering plugin");
    steps.run([&] { InitFormEvents(session); });
    logDebug(context.log, "Intialized form events");  // sic
    if (isRegistered)
        logDebug(context.log, "Plugin is initialized");
}

}  // namespace

StartUp Form_Load(Session& session, const std::string& arguments)
{
    Context& context = session.context;
    CommandLine commandLine = parseCommandLine(arguments);
    context.form.fileExtension = generate::GetFileExtension(commandLine.modelFile);
    startLog(context, commandLine);
    logArguments(context, commandLine);
    if (!waitForFemap(session)) {
        session.closedLog = context.log.path();
        context.log.DeinitialiseLogger();
        return StartUp::FemapNotFound;
    }
    context.host.show();  // before the first call: a busy FEMAP keeps it waiting
    context.error.attempt([&] { context.femap().feAppVisible(true); });
    logDebug(context.log, "Femap made to visible");
    logPosition(context.log, "After getting femap object");

    openModel(session, commandLine.modelFile);
    Steps steps;
    steps.run([&] { makeInitialChoices(session); });
    restoreSelection(session, steps);
    registerPlugin(session, steps);
    steps.run([&] { tellWhichFemap(session); });
    steps.raiseFirst();
    logPosition(context.log, "At end of Load Form");
    return StartUp::Done;
}

void femapReturned(Session& session, std::unique_ptr<femap::Application> application)
{
    Context& context = session.context;
    context.application = std::move(application);
    session.femapWasStarted = false;
    logDebug(context.log, "FEMAP is back");
    context.form.status.withdraw(femapIsGone);
    context.form.status.withdraw(paneIsGone);
    context.form.status.tellResult(femapIsBack);
    RestoreFormEvents(session);
    takeOverFemap(session);
}

void takeOverFemap(Session& session)
{
    Steps steps;
    if (!session.eventsAreHooked)
        registerPlugin(session, steps);
    session.form.modelEntityCount = unknownCount;  // so that the lists are built anew
    takeOverModel(session, steps);
    steps.run([&] { tellWhichFemap(session); });
    steps.raiseFirst();
}

void Form_Unload(Session& session)
{
    Context& context = session.context;
    logPosition(context.log, "Unloading the form");
    RestoreFormEvents(session);
    context.form.function.reset();
    context.application.reset();
    logDebug(context.log, "Setting Main femap instance to Nothing");
    session.modelMark.reset();
    if (!context.log.path().empty())
        session.closedLog = context.log.path();
    context.log.DeinitialiseLogger();
}

void InitFormEvents(Session& session)
{
    session.context.host.hookEvents();
    session.eventsAreHooked = true;
    session.eventFemap = session.connector.attach();
}

void RestoreFormEvents(Session& session)
{
    session.eventFemap.reset();
    if (std::exchange(session.eventsAreHooked, false))
        session.context.host.unhookEvents();
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
