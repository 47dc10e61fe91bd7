#include "study/StudyProgram.h"

#include "app/Version.h"
#include "study/ScratchFiles.h"
#include "study/StudyCheck.h"
#include "study/StudyFemap.h"
#include "study/StudyRunner.h"
#include "system/Memory.h"

#include <algorithm>
#include <exception>
#include <iterator>
#include <optional>
#include <string_view>
#include <utility>

namespace study
{

namespace
{

constexpr int exitOk = 0;
constexpr int exitStopped = 1;
constexpr int exitWrongCall = 2;
constexpr int exitFoundErrors = 3;

constexpr std::string_view usage =
    R"text(usage: velmar-study [--femap=embedded|running] [--quiet] [--findings text|json] [--strict]
                    [--provenance] SCRIPT
       velmar-study [--femap=embedded|running] [--quiet] [--findings text|json] [--strict]
                    --check SCRIPT
       velmar-study --record SCRIPT [ARGUMENTS]
       velmar-study --probe [--ask] [--events SECONDS] [--write COPY] [--no-names] REPORT
       velmar-study --help | --version

Replays a study script without a window. SCRIPT "-" reads standard input.

  --record          show the form, started with the argument string, and write what is done
                    in it as a script (Windows)
  --check           try the script on the model, tell every problem and write nothing; end
                    with what would fail or mislead in the loop
  --femap=embedded  load the model into the model host of the program itself
  --femap=running   use the FEMAP that runs on this machine (Windows)
  --quiet           no progress on standard error
  --findings json   write the findings of --check, and of lines "check", as JSON
  --strict          exit code 3 when there are errors among these findings
  --provenance      leave a sheet beside the files of each "Apply", MODELStudy.json: what they
                    were made of, and when
  --probe           write a report of what the running FEMAP does otherwise than the tool
                    believes (Windows); it changes nothing, but for a copy of a model with --write
  --ask             show selection dialogs as well
  --events SECONDS  watch FEMAP's event messages for so long as well
  --write COPY      change values of the open model as well, which must be that copy
  --no-names        put marks for titles and paths

Exit code 0: the whole script ran, or --check found no problem. 1: it was stopped, or there are
problems. 2: wrong arguments. 3: with --strict, errors were found.
)text";

struct Call
{
    bool wantsHelp = false;
    bool wantsVersion = false;
    bool isQuiet = false;
    bool isCheck = false;
    bool isRecording = false;
    bool isStrict = false;
    bool keepsProvenance = false;
    FindingsForm findingsForm = FindingsForm::Text;
    std::optional<bool> isEmbedded;  // none: the call does not say
    std::optional<std::string> script;
    std::string formArguments;  // of the form that is recorded
    std::string problem;        // empty: none
};

void takeFindingsForm(Call& call, const std::string& word)
{
    if (word == "json")
        call.findingsForm = FindingsForm::Json;
    else if (word != "text")
        call.problem = "--findings takes text or json";
}

Call parseCall(const std::vector<std::string>& arguments)
{
    Call call;
    bool findingsFormIsNext = false;
    for (const std::string& argument : arguments) {
        if (std::exchange(findingsFormIsNext, false))
            takeFindingsForm(call, argument);
        else if (call.isRecording && call.script)
            call.formArguments += (call.formArguments.empty() ? "" : " ") + argument;
        else if (argument == "--help")
            call.wantsHelp = true;
        else if (argument == "--version")
            call.wantsVersion = true;
        else if (argument == "--quiet")
            call.isQuiet = true;
        else if (argument == "--strict")
            call.isStrict = true;
        else if (argument == "--provenance")
            call.keepsProvenance = true;
        else if (argument == "--findings")
            findingsFormIsNext = true;
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
    if (findingsFormIsNext)
        takeFindingsForm(call, {});
    if (call.problem.empty() && call.isCheck && call.isRecording)
        call.problem = "a script is either checked or recorded";
    if (call.problem.empty() && !call.script)
        call.problem = "no script is named";
    return call;
}

std::string readScript(const std::string& script, const Environment& environment)
{
    if (script != "-")
        return sys::whileMemoryLasts(script, [&] { return environment.system.files.read(script); });
    return {std::istreambuf_iterator<char>(environment.input), std::istreambuf_iterator<char>()};
}

// Writes "SCRIPT:LINE: what is wrong", so that editors find the line.
void tell(const ScriptError& problem, const std::string& name, const Environment& environment)
{
    const std::string where = name + ':' + std::to_string(problem.line()) + ':';
    environment.errors << (environment.showsColours ? "\x1b[1;31m" + where + "\x1b[0m" : where)
                       << ' ' << problem.what() << '\n';
}

// Runs the script and unloads the form whatever happens. Returns the exit code.
int replay(StudyRunner& runner, const std::string& name, StudyScript& script,
           const Environment& environment)
{
    int code = exitOk;
    try {
        runner.run(script);
    }
    catch (const ScriptError& error) {
        tell(error, name, environment);
        code = exitStopped;
    }
    runner.unload();
    return code;
}

// Returns the exit code.
int tellProblems(const std::vector<ScriptError>& problems, const std::string& name,
                 const Environment& environment)
{
    for (const ScriptError& problem : problems)
        tell(problem, name, environment);
    environment.output << name << ": "
                       << (problems.empty()       ? "no problem found"
                           : problems.size() == 1 ? "1 problem"
                                                  : std::to_string(problems.size()) + " problems")
                       << '\n';
    return problems.empty() ? exitOk : exitStopped;
}

// What was found in the studies of a script that has no problems. Returns the exit code.
int tellStudies(const std::vector<StudyCheck::Found>& studies, const Call& call,
                const Environment& environment)
{
    int code = exitOk;
    for (const StudyCheck::Found& study : studies) {
        environment.output << findingsText(study.findings, call.findingsForm,
                                           *call.script + ':' + std::to_string(study.line) + ": ");
        if (call.isStrict && findings::counted(study.findings).errors != 0)
            code = exitFoundErrors;
    }
    return code;
}

int check(StudyRunner& runner, StudyDialogs& dialogs, StudyScript& script, const Call& call,
          const Environment& environment)
{
    StudyCheck checked(runner, dialogs);
    const int code = tellProblems(checked.problemsIn(script), *call.script, environment);
    return code == exitOk ? tellStudies(checked.studies(), call, environment) : code;
}

int runScript(const Call& call, const Environment& environment)
{
    StudyScript script(readScript(*call.script, environment));
    std::ostream nowhere(nullptr);
    StudyDialogs dialogs;
    femap::embedded::Host host(dialogs);
    host.model.reset();  // nothing is open before the script opens it
    std::unique_ptr<femap::Connector> running;
    if (!call.isEmbedded.value_or(!environment.runningFemap)) {
        if (!environment.runningFemap) {
            environment.errors << "velmar-study: a running FEMAP can be used on Windows only; "
                                  "start it with --femap=embedded\n";
            return exitStopped;
        }
        running = environment.runningFemap(dialogs);
    }

    ScratchFiles scratch(environment.system.files);
    sys::System dry = sys::withDisk(environment.system, scratch);
    // The model host speaks of itself, too, so its whole message window is written.
    host.messageShown = [&](const femap::embedded::Host::Message& message) {
        writeMessage(environment.output, message.text);
    };
    StudyConnector connector(running ? *running : host, running ? environment.output : nowhere);
    StudyRunner runner({call.isCheck ? dry : environment.system, connector, dialogs,
                        running ? nullptr : &host, call.isCheck ? nowhere : environment.output,
                        environment.errors, call.isQuiet ? nowhere : environment.errors,
                        call.findingsForm, call.keepsProvenance});
    if (call.isCheck)
        return check(runner, dialogs, script, call, environment);
    const int code = replay(runner, *call.script, script, environment);
    return code == exitOk && call.isStrict && runner.foundErrors() ? exitFoundErrors : code;
}

int record(const Call& call, const Environment& environment)
{
    if (!environment.recordedForm) {
        environment.errors
            << "velmar-study: the form can be shown, and recorded, on Windows only\n";
        return exitStopped;
    }
    environment.recordedForm(*call.script, call.formArguments);
    environment.output << *call.script << " is recorded\n";
    return exitOk;
}

constexpr std::string_view probeOption = "--probe";

// Elsewhere than on Windows nobody looks at the arguments.
int probe(std::vector<std::string> arguments, const Environment& environment)
{
    std::erase(arguments, probeOption);
    if (environment.femapProbe)
        return environment.femapProbe(arguments, environment.errors);
    environment.errors << "velmar-study: a FEMAP can be probed on Windows only\n";
    return exitStopped;
}

int runCall(const Call& call, const Environment& environment)
{
    if (call.wantsHelp) {
        environment.output << usage;
        return exitOk;
    }
    if (call.wantsVersion) {
        environment.output << "velmar-study " << app::version() << '\n';
        return exitOk;
    }
    if (!call.problem.empty()) {
        environment.errors << "velmar-study: " << call.problem << '\n' << usage;
        return exitWrongCall;
    }
    return call.isRecording ? record(call, environment) : runScript(call, environment);
}

}  // namespace

int runStudy(const std::vector<std::string>& arguments, const Environment& environment)
{
    int exitCode = exitStopped;
    try {
        exitCode = std::ranges::find(arguments, probeOption) == arguments.end()
                       ? runCall(parseCall(arguments), environment)
                       : probe(arguments, environment);
    }
    catch (const std::exception& error) {
        environment.errors << "velmar-study: " << sys::reasonOf(error) << '\n';
    }
    if (!environment.output.flush()) {
        environment.errors << "velmar-study: standard output could not be written\n";
        return exitStopped;
    }
    return exitCode;
}

}  // namespace study
