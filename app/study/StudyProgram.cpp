#include "app/study/StudyProgram.h"

#include "app/Version.h"
#include "app/study/ScratchFiles.h"
#include "app/study/StudyCheck.h"
#include "app/study/StudyFemap.h"
#include "app/study/StudyRunner.h"

#include <exception>
#include <iterator>
#include <optional>
#include <string_view>

namespace study
{

namespace
{

constexpr int exitOk = 0;
constexpr int exitStopped = 1;
constexpr int exitWrongCall = 2;

constexpr std::string_view usage =
    R"text(usage: velmar-study [--femap=embedded|running] [--quiet] SCRIPT
       velmar-study [--femap=embedded|running] [--quiet] --check SCRIPT
       velmar-study --record SCRIPT [ARGUMENTS]
       velmar-study --help | --version

Replays a study script without a window. SCRIPT "-" reads standard input.

  --record          show the form, started with the argument string, and write what is done
                    in it as a script (Windows)
  --check           try the script on the model, tell every problem and write nothing
  --femap=embedded  load the model into the model host of the program itself
  --femap=running   use the FEMAP that runs on this machine (Windows)
  --quiet           no progress on standard error

Exit code 0: the whole script ran, or --check found no problem. 1: it was stopped, or there are
problems. 2: wrong arguments.
)text";

struct Call
{
    bool wantsHelp = false;
    bool wantsVersion = false;
    bool isQuiet = false;
    bool isCheck = false;
    bool isRecording = false;
    std::optional<bool> isEmbedded;  // as far as the call says so
    std::optional<std::string> script;
    std::string formArguments;  // of the form that is recorded
    std::string problem;        // empty: none
};

Call parseCall(const std::vector<std::string>& arguments)
{
    Call call;
    for (const std::string& argument : arguments) {
        if (call.isRecording && call.script)
            call.formArguments += (call.formArguments.empty() ? "" : " ") + argument;
        else if (argument == "--help")
            call.wantsHelp = true;
        else if (argument == "--version")
            call.wantsVersion = true;
        else if (argument == "--quiet")
            call.isQuiet = true;
        else if (argument == "--check")
            call.isCheck = true;
        else if (argument == "--record")
            call.isRecording = true;
        else if (argument == "--femap=embedded")
            call.isEmbedded = true;
        else if (argument == "--femap=running")
            call.isEmbedded = false;
        else if (argument.size() > 1 && argument.starts_with('-'))
            call.problem = "unknown option " + argument;
        else if (call.script)
            call.problem = "one script at a time, not also " + argument;
        else
            call.script = argument;
    }
    if (call.problem.empty() && call.isCheck && call.isRecording)
        call.problem = "a script is either checked or recorded";
    if (call.problem.empty() && !call.script)
        call.problem = "no script is named";
    return call;
}

std::string readScript(const std::string& script, const Surroundings& around)
{
    if (script != "-")
        return around.system.files.read(script);
    return {std::istreambuf_iterator<char>(around.input), std::istreambuf_iterator<char>()};
}

// "SCRIPT:LINE: what is wrong", so that editors find the place.
void tell(const ScriptError& problem, const std::string& name, const Surroundings& around)
{
    const std::string place = name + ':' + std::to_string(problem.line()) + ':';
    around.errors << (around.showsColours ? "\x1b[1;31m" + place + "\x1b[0m" : place) << ' '
                  << problem.what() << '\n';
}

// Runs the script and unloads the form whatever happens. Returns the exit code.
int replay(StudyRunner& runner, const std::string& name, StudyScript& script,
           const Surroundings& around)
{
    try {
        runner.run(script);
        return exitOk;
    }
    catch (const ScriptError& error) {
        tell(error, name, around);
        runner.unload();
        return exitStopped;
    }
}

// Returns the exit code.
int tellProblems(const std::vector<ScriptError>& problems, const std::string& name,
                 const Surroundings& around)
{
    for (const ScriptError& problem : problems)
        tell(problem, name, around);
    around.output << name << ": "
                  << (problems.empty()       ? "no problem found"
                      : problems.size() == 1 ? "1 problem"
                                             : std::to_string(problems.size()) + " problems")
                  << '\n';
    return problems.empty() ? exitOk : exitStopped;
}

int runScript(const Call& call, const Surroundings& around)
{
    StudyScript script(readScript(*call.script, around));
    std::ostream nowhere(nullptr);
    StudyDialogs dialogs;
    femap::embedded::Host host(dialogs);
    host.model.reset();  // nothing is open before the script opens it
    std::unique_ptr<femap::Connector> running;
    if (!call.isEmbedded.value_or(!around.runningFemap)) {
        if (!around.runningFemap) {
            around.errors << "velmar-study: a running FEMAP can be used on Windows only; "
                             "start it with --femap=embedded\n";
            return exitStopped;
        }
        running = around.runningFemap(dialogs);
    }

    ScratchFiles scratch(around.system.files);
    logging::System dry = {scratch,
                           around.system.codePage,
                           around.system.localTime,
                           around.system.monotonicSeconds,
                           around.system.environment,
                           around.system.wait};
    StudyConnector connector(running ? *running : host, around.output);
    StudyRunner runner({call.isCheck ? dry : around.system, connector, dialogs,
                        running ? nullptr : &host, call.isCheck ? nowhere : around.output,
                        around.errors, call.isQuiet ? nowhere : around.errors});
    if (!call.isCheck)
        return replay(runner, *call.script, script, around);
    return tellProblems(StudyCheck(runner, dialogs).problemsIn(script), *call.script, around);
}

int record(const Call& call, const Surroundings& around)
{
    if (!around.recordedForm) {
        around.errors << "velmar-study: the form can be shown, and recorded, on Windows only\n";
        return exitStopped;
    }
    around.recordedForm(*call.script, call.formArguments);
    around.output << *call.script << " is recorded\n";
    return exitOk;
}

int runCall(const Call& call, const Surroundings& around)
{
    if (call.wantsHelp) {
        around.output << usage;
        return exitOk;
    }
    if (call.wantsVersion) {
        around.output << "velmar-study " << app::version() << '\n';
        return exitOk;
    }
    if (!call.problem.empty()) {
        around.errors << "velmar-study: " << call.problem << '\n' << usage;
        return exitWrongCall;
    }
    return call.isRecording ? record(call, around) : runScript(call, around);
}

}  // namespace

int runStudy(const std::vector<std::string>& arguments, const Surroundings& around)
{
    int exitCode = exitStopped;
    try {
        exitCode = runCall(parseCall(arguments), around);
    }
    catch (const std::exception& error) {
        around.errors << "velmar-study: " << error.what() << '\n';
    }
    if (!around.output.flush()) {
        around.errors << "velmar-study: standard output could not be written\n";
        return exitStopped;
    }
    return exitCode;
}

}  // namespace study
