#include "loop/evaluate/Run.h"

#include "femap/NumberText.h"
#include "generate/TaskDescription.h"
#include "loop/StudyFiles.h"
#include "loop/evaluate/Platform.h"
#include "system/PendingError.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace loop::evaluate
{

using sys::ErrorNumber;
using sys::RuntimeError;

struct Run::Step
{
    std::string_view name;
    void (Run::*prepare)();  // null: nothing is to be done before
    Command (Run::*command)() const;
    void (Run::*judge)(int code);
};

// clang-format off
constinit const Run::Step Run::steps[] = {
    {"CAEInput",  nullptr,             &Run::inputCommand,  &Run::demandDone},
    {"solver",    &Run::prepareSolver, &Run::solverCommand, &Run::demandSolved},
    {"CAEOutput", nullptr,             &Run::outputCommand, &Run::takeOutputs},
};
// clang-format on

namespace
{

constexpr std::size_t linesShown = 20;

// The last lines of a text that say something, in UTF-8.
std::string lastLines(std::string_view text)
{
    constexpr std::string_view blanks = " \t\r\n";
    text = text.substr(0, text.find_last_not_of(blanks) + 1);
    std::size_t begin = text.size();
    for (std::size_t left = linesShown; left > 0 && begin != std::string_view::npos; --left)
        begin = begin == 0 ? std::string_view::npos : text.rfind('\n', begin - 1);
    std::string clean;
    sys::utf8().encode(text.substr(begin == std::string_view::npos ? 0 : begin + 1), clean);
    std::erase(clean, '\r');
    return clean;
}

std::string lastLine(const std::string& lines)
{
    return lines.substr(lines.rfind('\n') + 1);
}

std::string inOneLine(std::string lines)
{
    lines.erase(lines.find_last_not_of('\n') + 1);
    for (std::size_t at = 0; (at = lines.find('\n', at)) != std::string::npos;)
        lines.replace(at, 1, "; ");
    return lines;
}

void makeEmpty(sys::System& system, const std::string& path)
{
    system.files.create(path)->close();
}

// As the script does it: the solver says what it lacks.
void copySettings(sys::System& system, const std::string& from, const std::string& to)
{
    if (!from.empty() && system.files.fileExists(from))
        writeWhole(system, to, system.files.read(from));
}

}  // namespace

Command programCommand(const Setting& setting, const std::string& program,
                       const std::string& folder, std::vector<std::string> arguments)
{
    const std::vector<std::string> all = {
        setting.isEmbedded ? "--femap=embedded" : "--femap=running", "--folder", folder,
        "--locked"};
    arguments.insert(arguments.begin(), all.begin(), all.end());
    return {setting.programFolder + programFile(program), std::move(arguments), {}};
}

std::string runLog(const Study& study, const std::string& folder)
{
    return folder + study.name() + "Evaluate.log";
}

Run::Run(const Setting& setting, const Study& study, std::string folder,
         const std::optional<Values>& values)
    : setting_(setting), study_(study), folder_(std::move(folder))
{
    try {
        setting_.system.files.remove(pathOf(study_.outputs.valuesFile));
        if (values)
            writeWhole(setting_.system, pathOf(study_.inputs.valuesFile),
                       valuesBytes(setting_.system, study_, *values));
        makeEmpty(setting_.system, runLog(study_, folder_));
    }
    catch (const RuntimeError& error) {
        failToRun(error);
    }
}

bool Run::goesOn()
{
    try {
        while (!hasEnded_) {
            if (process_ == nullptr)
                begin();
            const std::optional<int> code = process_->exitCode();
            const double seconds = setting_.system.monotonicSeconds() - began_;
            if (code)
                endStep(*code);
            else if (setting_.timeout && seconds > *setting_.timeout)
                fail("took longer than " + ::femap::numberText(*setting_.timeout) +
                     " s and was ended");
            else
                return true;
        }
    }
    catch (const RuntimeError& error) {
        failToRun(error);
    }
    return false;
}

void Run::stop()
{
    process_.reset();
    hasEnded_ = true;
    result_.isStopped = true;
    result_.problem = "stopped";
}

void Run::begin()
{
    const Step& step = steps[step_];
    const std::string log = runLog(study_, folder_);
    const auto facts = setting_.system.files.facts(log);
    saidBefore_ = facts ? static_cast<std::size_t>(facts->size) : 0U;
    began_ = setting_.system.monotonicSeconds();
    if (step.prepare != nullptr)
        (this->*step.prepare)();
    process_ = std::make_unique<Process>((this->*step.command)(), folder_, log);
}

void Run::endStep(int code)
{
    const Step& step = steps[step_];
    process_.reset();
    result_.seconds.push_back(setting_.system.monotonicSeconds() - began_);
    (this->*step.judge)(code);
    if (!hasEnded_)
        hasEnded_ = ++step_ == std::size(steps);
}

void Run::failToRun(const RuntimeError& error)
{
    fail("could not be run: " + error.description());
}

void Run::fail(const std::string& problem)
{
    process_.reset();
    hasEnded_ = true;
    sys::PendingError unreadable;
    unreadable.attempt([&] {
        std::string said;
        if (saidBefore_)
            said = setting_.system.files.read(runLog(study_, folder_));
        said.erase(0, saidBefore_.value_or(0));
        result_.endOfOutput = lastLines(said);
    });
    result_.problem = std::string(steps[step_].name) + " " + problem;
    if (!result_.endOfOutput.empty())
        result_.problem += ": " + lastLine(result_.endOfOutput);
}

Command Run::inputCommand() const
{
    return programCommand(setting_, "CAEInput", folder_);
}

Command Run::outputCommand() const
{
    return programCommand(setting_, "CAEOutput", folder_);
}

Command Run::solverCommand() const
{
    return {{}, {}, setting_.solver ? *setting_.solver : batchLine(setting_.system, folder_)};
}

// The files in which the solver leaves its results; the model host takes either.
std::vector<std::string> Run::resultFiles() const
{
    std::vector<std::string> files = {study_.outputs.solverFile};
    if (setting_.isEmbedded)
        files.push_back(neutralResults(study_.outputs));
    return files;
}

void Run::prepareSolver()
{
    std::vector<std::string> old = resultFiles();
    for (const std::string_view ending : generate::leftBySolver)
        old.push_back(study_.name() + "." + std::string(ending));
    for (const std::string& file : old)
        setting_.system.files.remove(pathOf(file));
    for (const std::string& file : resultFiles())
        if (!setting_.system.files.isMissing(pathOf(file)))
            throw RuntimeError(ErrorNumber::PermissionDenied,
                               "old results cannot be deleted; close the program that has them "
                               "open: " +
                                   pathOf(file));
    if (study_.outputs.solver != nullptr)
        copySettings(setting_.system, generate::copiedSettings(*study_.outputs.solver),
                     pathOf(std::string(generate::settingsFile)));
}

void Run::demandDone(int code)
{
    if (code != 0)
        fail("ended with code " + std::to_string(code));
}

void Run::demandSolved(int code)
{
    if (std::ranges::find(generate::codesOfSolver, code) == std::end(generate::codesOfSolver)) {
        fail("ended with code " + std::to_string(code));
        return;
    }
    const std::vector<std::string> files = resultFiles();
    const auto isThere = [&](const std::string& file) {
        return setting_.system.files.fileExists(pathOf(file));
    };
    if (std::ranges::none_of(files, isThere))
        fail("left no results, which would be " + files.back());
}

void Run::takeOutputs(int code)
{
    demandDone(code);
    if (hasEnded_)
        return;
    Problems problems;
    result_.outputs = readOutputs(setting_.system, study_, folder_, problems);
    if (!problems.empty())
        fail("left " + inOneLine(problems.text()));
}

Result finished(Run& run, const sys::System& system, const std::function<bool()>& isToStop)
{
    const double began = system.monotonicSeconds();
    while (run.goesOn()) {
        if (isToStop())
            run.stop();
        else
            system.wait(pauseAfter(system.monotonicSeconds() - began));
    }
    return run.result();
}

std::chrono::milliseconds pauseAfter(double seconds)
{
    constexpr double share = 0.02;  // of the time that has gone may be lost by waiting
    constexpr double longest = 0.1;
    return std::chrono::milliseconds(1 +
                                     static_cast<int>(1000 * std::min(share * seconds, longest)));
}

}  // namespace loop::evaluate
