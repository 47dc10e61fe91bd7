#include "app/study/StudyProgram.h"

#include "app/Version.h"
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
       velmar-study --help | --version

Replays a study script without a window. SCRIPT "-" reads standard input.

  --femap=embedded  load the model into the model host of the program itself
  --femap=running   use the FEMAP that runs on this machine (Windows)
  --quiet           no progress on standard error

Exit code 0: the whole script ran. 1: it was stopped. 2: wrong arguments.
)text";

struct Call
{
    bool wantsHelp = false;
    bool wantsVersion = false;
    bool isQuiet = false;
    std::optional<bool> isEmbedded;  // as far as the call says so
    std::optional<std::string> script;
    std::string problem;  // empty: none
};

Call parseCall(const std::vector<std::string>& arguments)
{
    Call call;
    for (const std::string& argument : arguments) {
        if (argument == "--help")
            call.wantsHelp = true;
        else if (argument == "--version")
            call.wantsVersion = true;
        else if (argument == "--quiet")
            call.isQuiet = true;
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

// Runs the script and unloads the form whatever happens. Returns the exit code.
int replay(StudyRunner& runner, const std::string& name, const std::string& content,
           const Surroundings& around)
{
    try {
        StudyScript script(content);
        runner.run(script);
        return exitOk;
    }
    catch (const ScriptError& error) {
        around.errors << name << ':' << error.line() << ": " << error.what() << '\n';
        runner.unload();
        return exitStopped;
    }
}

int replay(const Call& call, const Surroundings& around)
{
    const std::string content = readScript(*call.script, around);
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

    StudyConnector connector(running ? *running : host, around.output);
    StudyRunner runner({around.system, connector, dialogs, running ? nullptr : &host, around.output,
                        around.errors, call.isQuiet ? nowhere : around.errors});
    return replay(runner, *call.script, content, around);
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
    return replay(call, around);
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
