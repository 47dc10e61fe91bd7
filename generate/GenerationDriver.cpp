#include "generate/GenerationDriver.h"

#include "form/FemapLock.h"
#include "form/Progress.h"
#include "generate/ControlFile.h"
#include "generate/ModelName.h"
#include "generate/ModelPath.h"
#include "generate/ScanProject.h"
#include "generate/SolverFormat.h"
#include "generate/TaskDescription.h"
#include "logging/Module1.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace generate
{

using form::Context;
using logging::logDebug;
using logging::logPosition;
using logging::logPositionAndClearErrorIfAny;

namespace
{

struct Tool
{
    std::string_view name;  // as the Optimizer box shows it
    void (*generate)(Context& context, form::Progress& progress);
    std::span<const Target> files;
};

// clang-format off
constexpr Tool tools[] = {
    {"Velmar", WriteDescFile,     filesOfVelmar},
    {"Ombra",  WriteOmbraProject, filesOfOmbra},  // not in the box's list, but it can be typed
};
// clang-format on

const Tool* findTool(std::string_view name)
{
    const auto* const found = std::find_if(std::begin(tools), std::end(tools),
                                           [&](const Tool& tool) { return tool.name == name; });
    return found == std::end(tools) ? nullptr : found;
}

// How many files were written, and into which folder.
void tellFinished(Context& context, const std::vector<std::string>& files)
{
    if (files.empty())
        return;
    const std::string count = files.size() == 1
                                  ? "1 file is written into "
                                  : std::to_string(files.size()) + " files are written into ";
    context.form.status.tellResult(count + modelFolder(files.back()));
}

// Shown as far as FEMAP can show it, logged in any case.
void tryToTellEngineer(Context& context, const std::string& text)
{
    context.error.attempt([&] { form::showMessage(context, text); });
    logDebug(context.log, text);
}

// False when the model was never saved. Raises when its name fits no file's code page. A name that
// cannot be read does not stop the generators: they run and fail by themselves.
bool mayGenerate(Context& context, std::string& modelFile)
{
    const bool isRead = context.error.attempt([&] { modelFile = context.femap().ModelName(); });
    if (isRead && modelFile.empty()) {
        tryToTellEngineer(context, std::string(modelMustBeSaved));
        return false;
    }
    if (isRead)
        demandNameInCodePage(context.system.codePage, modelFile);
    else {
        context.error.clear();
        tryToTellEngineer(context, "Cannot perform action without a model");
        return true;
    }
    context.form.openModelExtension = GetFileExtension(modelFile);
    context.form.openModel = modelFile;
    if (context.form.commandLineIsDue)
        renewCommandLine(context, modelFile);
    return true;
}

// Nothing is prepared for a model whose name could not be read.
std::unique_ptr<sys::FolderLock> prepared(Context& context, const std::string& modelFile)
{
    if (modelFile.empty())
        return nullptr;
    return prepareTargets(context, splitModelPath(modelFile),
                          filesOfTool(context.form.Optimizer.Text));
}

// Without a name the command line stays as it is.
void writeCommandLine(form::MainForm& form, const SolverFormat& format,
                      const std::string& modelFile)
{
    form.commandLineIsDue = modelFile.empty();
    if (modelFile.empty())
        return;
    form.ownCommandLine = commandLine(format, splitModelPath(modelFile).name);
    form.CommandLine.Text = form.ownCommandLine;
}

}  // namespace

void GenerateButton_Click(Context& context, const AfterFiles& afterFiles)
{
    logPositionAndClearErrorIfAny(context.log, context.error, "Before Generating supporting files");
    std::string modelFile;
    if (!mayGenerate(context, modelFile))
        return;
    const std::unique_ptr<sys::FolderLock> folderIsOurs = prepared(context, modelFile);

    form::FemapLock lock(context, "Acquired Femap lock");
    const Tool* const tool = findTool(context.form.Optimizer.Text);
    const std::size_t files = 1 + (tool == nullptr ? 0 : tool->files.size());
    form::Progress progress(context, "Writing files", files);
    if (tool != nullptr)
        tool->generate(context, progress);
    Save_Config(context, progress);
    progress.finish();
    logDebug(context.log, "called save cofig");  // sic
    lock.release("Released Femap lock");
    logPositionAndClearErrorIfAny(context.log, context.error, "After Generating supporting files");
    tellFinished(context, progress.finishedFiles());
    if (afterFiles && !progress.finishedFiles().empty())
        afterFiles(progress.finishedFiles());
}

std::span<const Target> filesOfTool(std::string_view tool)
{
    const Tool* const found = findTool(tool);
    return found == nullptr ? std::span<const Target>() : found->files;
}

void Solver_Click(Context& context)
{
    constexpr int beyondTheList = 5;  // sic: leaves the box without a selection

    logPosition(context.log, "At start of Solver_Click");
    if (const SolverFormat* const format = findSolverFormat(context.form.Solver.Text)) {
        context.form.commandLineIsDue = true;  // until it is written
        const auto write = [&] {
            writeCommandLine(context.form, *format, context.femap().ModelName());
        };
        if (!context.error.attempt(write))
            logPositionAndClearErrorIfAny(context.log, context.error, "Solver_Click");
    }
    else {
        form::tellEngineer(context, "Only NXNastran and NENastran formats are currently supported");
        context.form.Solver.setListIndex(beyondTheList);
    }
    logDebug(context.log, "Solver text is =", context.form.CommandLine.Text);  // sic
    logPosition(context.log, "At end of Solver_Click");
}

void renewCommandLine(Context& context, const std::string& modelFile)
{
    form::MainForm& form = context.form;
    const std::string& text = form.CommandLine.Text;
    const SolverFormat* const format = findSolverFormat(form.Solver.Text);
    if (format == nullptr || (!text.empty() && text != form.ownCommandLine))
        return;
    sys::PendingError noName;  // told where files are to be named after the model
    noName.attempt([&] { writeCommandLine(form, *format, modelFile); });
}

void Optimizer_Click(Context& context)
{
    logPosition(context.log, "At start of Optimizer_Click");
    const std::string tool = context.form.Optimizer.Text;
    if (findTool(tool) == nullptr) {
        form::tellEngineer(context, tool + " format not currently supported");
        context.form.Optimizer.setListIndex(0);
    }
    logPosition(context.log, "At end of Optimizer_Click");
}

}  // namespace generate
