#include "loop/Program.h"

#include "system/Memory.h"
#include "system/PatientFiles.h"
#include "system/RuntimeError.h"

#include <algorithm>
#include <exception>
#include <utility>

namespace loop
{

using sys::ErrorNumber;
using sys::RuntimeError;

namespace
{

struct ParsedCall
{
    Call call;
    bool wantsHelp = false;
    std::string problem;  // empty: none
};

// As the beginning of paths.
std::string asFolder(std::string path)
{
    if (!path.empty() && sys::pathSeparators.find(path.back()) == std::string_view::npos)
        path += sys::pathSeparator;
    return path;
}

ParsedCall parseCall(const ProgramWords& words, const std::vector<std::string>& arguments)
{
    ParsedCall result;
    bool folderIsNext = false;
    for (const std::string& argument : arguments) {
        if (std::exchange(folderIsNext, false))
            result.call.folder = asFolder(argument);
        else if (argument == "--help")
            result.wantsHelp = true;
        else if (argument == "--folder")
            folderIsNext = true;
        else if (argument == "--femap=embedded" || argument == "--femap=running")
            result.call.isEmbedded = argument == "--femap=embedded";
        else if (argument == "--locked")
            result.call.isLocked = true;
        else if (std::ranges::find(words.flags, argument) != words.flags.end())
            result.call.flags.push_back(argument);
        else
            result.problem = "unknown option " + argument;
    }
    if (folderIsNext)
        result.problem = "--folder takes the folder of the study";
    return result;
}

int runCall(const ProgramWords& words, const ParsedCall& parsed, const Environment& environment,
            const std::function<int(const Call&)>& work)
{
    if (parsed.wantsHelp) {
        environment.output << words.usage;
        return exitDone;
    }
    if (!parsed.problem.empty()) {
        environment.errors << words.name << ": " << parsed.problem << '\n' << words.usage;
        return exitWrongCall;
    }
    return work(parsed.call);
}

}  // namespace

bool Call::has(std::string_view flag) const
{
    return std::ranges::find(flags, flag) != flags.end();
}

int runProgram(const ProgramWords& words, const std::vector<std::string>& arguments,
               const Environment& environment, const std::function<int(const Call&)>& work)
{
    int exitCode = exitNotDone;
    try {
        exitCode = runCall(words, parseCall(words, arguments), environment, work);
    }
    catch (const std::exception& error) {
        environment.errors << words.name << ": " << sys::reasonOf(error) << '\n';
    }
    if (!environment.output.flush()) {
        environment.errors << words.name << ": standard output could not be written\n";
        return exitCode == exitDone ? exitNotDone : exitCode;
    }
    return exitCode;
}

Connection connect(const Call& call, const Environment& environment)
{
    if (call.isEmbedded.value_or(!environment.running))
        return environment.embedded();
    if (!environment.running)
        throw RuntimeError(ErrorNumber::InvalidCall,
                           "a running FEMAP can be used on Windows only; start the program with "
                           "--femap=embedded");
    return environment.running();
}

std::unique_ptr<sys::FolderLock> lockFolder(const Call& call, sys::System& system)
{
    constexpr int tries = 30;  // a tenth of a second each
    if (call.isLocked)
        return nullptr;
    try {
        return sys::retriedWhileDenied(
            system.wait, [&] { return system.files.lockFolder(call.folder); }, tries);
    }
    catch (const RuntimeError& held) {
        throw RuntimeError(held.number(), "another program works in the folder: " +
                                              held.description() + ". Try again when it has ended");
    }
}

}  // namespace loop
