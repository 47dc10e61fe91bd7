#include "loop/evaluate/EvaluateProgram.h"

#include "loop/evaluate/Platform.h"
#include "loop/evaluate/WayBack.h"
#include "loop/evaluate/Ways.h"
#include "system/Memory.h"
#include "system/PendingError.h"
#include "system/Platform.h"

#include <exception>
#include <ostream>

namespace loop::evaluate
{

using sys::ErrorNumber;
using sys::RuntimeError;

namespace
{

std::string folderOf(const Call& call)
{
    std::error_code reason;
    std::string folder = sys::fullPath(call.folder.empty() ? "." : call.folder, reason);
    if (folder.empty())
        throw RuntimeError(ErrorNumber::PathNotFound,
                           "The folder has no full path: " + call.folder);
    while (folder.size() > 1 && sys::pathSeparators.find(folder.back()) != std::string_view::npos)
        folder.pop_back();
    if (folder.back() == '.' && folder.size() > 1 &&
        sys::pathSeparators.find(folder[folder.size() - 2]) != std::string_view::npos)
        folder.resize(folder.size() - 2);
    if (isOnShare(folder))
        throw RuntimeError(
            ErrorNumber::PathNotFound,
            "The shell of Windows cannot work in a folder on a share; give the share "
            "a drive letter (net use Z: \\\\SERVER\\SHARE) and go there: " +
                folder);
    return folder + sys::pathSeparator;
}

int runWay(const Call& call, const Environment& environment, const Setting& setting,
           const std::string& folder)
{
    Problems problems;
    const Study study = readStudy(environment.system, folder, problems);
    if (!problems.empty())
        return tellProblems(problems, environment);
    const Work work = {call, environment, setting, study};
    if (call.writesTable)
        return writeTable(work);
    if (call.proves)
        return prove(work);
    if (!call.points.empty())
        return runPoints(work);
    return call.dakotaParameters.empty() ? runPoint(work) : runForDakota(work);
}

// Whatever happens meanwhile, the way back is gone.
int runBetween(const Call& call, const Environment& environment, const Setting& setting,
               const std::string& folder)
{
    Problems problems;
    const Description inputs =
        readDescription(environment.system, folder, generate::inputExchange, problems);
    if (!problems.empty())
        return tellProblems(problems, environment);
    WayBack wayBack(setting, inputs, environment.running, environment.errors);
    wayBack.putBackLeft();
    const bool givesPoints = !call.points.empty() || !call.dakotaParameters.empty();
    if (wayBack.hasChangedInputs() && !givesPoints)
        throw RuntimeError(ErrorNumber::InvalidCall,
                           inputs.valuesFile +
                               " has its values from before that run; write those "
                               "of your point again and repeat the call");
    wayBack.keep(givesPoints, problems);
    if (!problems.empty())
        return tellProblems(problems, environment);
    int code = exitNotDone;
    sys::PendingError failed;
    if (!failed.attempt([&] { code = runWay(call, environment, setting, folder); }))
        environment.errors << ownName << failed.description() << '\n';
    wayBack.putBack();
    return code;
}

void demandPrograms(const Environment& environment)
{
    for (const char* const program : {"CAEInput", "CAEOutput"}) {
        const std::string file = environment.programFolder + programFile(program);
        if (!environment.system.files.fileExists(file))
            throw RuntimeError(ErrorNumber::FileNotFound,
                               "A program is missing; install the tool again, all of it in one "
                               "folder: " +
                                   file);
    }
}

int runCall(const Call& call, const Environment& environment)
{
    if (call.wantsHelp) {
        environment.output << usage;
        return exitDone;
    }
    if (!call.problem.empty()) {
        environment.errors << ownName << call.problem << '\n' << usage;
        return exitWrongCall;
    }
    const std::string folder = folderOf(call);
    loop::Call ofFolder;
    ofFolder.folder = folder;
    const std::unique_ptr<sys::FolderLock> lock = lockFolder(ofFolder, environment.system);
    const Setting setting = {environment.system, environment.programFolder,
                             call.isEmbedded.value_or(!hasFemap()), call.timeout, call.solver};
    if (call.writesTable)
        return runWay(call, environment, setting, folder);
    demandPrograms(environment);
    return runBetween(call, environment, setting, folder);
}

}  // namespace

int tellProblems(const Problems& problems, const Environment& environment)
{
    environment.errors << problems.text();
    return exitNotDone;
}

int runEvaluate(const std::vector<std::string>& arguments, const Environment& environment)
{
    int exitCode = exitNotDone;
    try {
        exitCode = runCall(parseCall(arguments), environment);
    }
    catch (const std::exception& error) {
        environment.errors << ownName << sys::reasonOf(error) << '\n';
    }
    if (!environment.output.flush()) {
        environment.errors << ownName << "standard output could not be written\n";
        return exitNotDone;
    }
    return exitCode;
}

}  // namespace loop::evaluate
