#include "generate/ControlFile.h"

#include "form/FormProcedures.h"
#include "form/Progress.h"
#include "generate/ControlFileLines.h"
#include "generate/LinePieces.h"
#include "generate/PreviousSelection.h"
#include "generate/Targets.h"
#include "logging/Module1.h"
#include "system/Memory.h"
#include "system/RuntimeError.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

namespace generate
{

using form::Context;
using form::ParameterGrid;
using logging::logDebug;
using logging::logPosition;
using logging::logPositionAndClearErrorIfAny;

namespace
{

// The model; none, with a message, when it has no file yet.
std::optional<ModelPath> savedModel(Context& context, const std::string& modelFile)
{
    if (!modelFile.empty())
        return splitModelPath(modelFile);
    form::tellEngineer(context, std::string(modelMustBeSaved));
    return std::nullopt;
}

bool isEmpty(const ParameterGrid& grid)
{
    return std::ranges::all_of(grid.rows(), [](const std::string& row) {
        return form::cellOf(row, form::nameColumn).empty();
    });
}

void addLine(Context& context, ParameterGrid& grid, std::string_view line, std::string_view list)
{
    grid.AddItem(line);
    logDebug(context.log, "Added ", line, " to ", list, " list");
}

// The first line is always a row, even when it is empty; it replaces the blank row.
void readFirstRow(Context& context, LineReader& lines, ParameterGrid& grid, std::string_view list,
                  Damages& damages)
{
    const std::string_view line = lines.next();
    judgeRow(lines, line, context.form, grid, damages);
    addLine(context, grid, line, list);
    grid.RemoveItem(1);
    logDebug(context.log, "Removed 1 from ", list, " list");
}

// They end with an empty line. A file of one empty line has no rows at all.
void readInputs(Context& context, LineReader& lines, form::Progress& progress, Damages& damages)
{
    ParameterGrid& inputs = context.form.InputsList;
    readFirstRow(context, lines, inputs, "Input", damages);
    const bool hasRows = !lines.atEnd() || !inputs.text(1, form::nameColumn).empty();
    for (;;) {
        if (lines.atEnd() && hasRows)
            damages.note(lines.number() + 1, "the end of the inputs is missing");
        const std::string_view line = lines.next();
        if (line.empty())
            break;
        judgeRow(lines, line, context.form, inputs, damages);
        addLine(context, inputs, line, "Input");
        progress.step();
    }
}

// The outputs may end with an empty line or with the file.
void readOutputs(Context& context, LineReader& lines, form::Progress& progress, Damages& damages)
{
    ParameterGrid& outputs = context.form.OutputsList;
    readFirstRow(context, lines, outputs, "Output", damages);
    while (!lines.atEnd()) {
        const std::string_view line = lines.next();
        if (line.empty())
            break;
        judgeRow(lines, line, context.form, outputs, damages);
        addLine(context, outputs, line, "Output");
        progress.step();
    }
    while (!lines.atEnd())
        if (!lines.next().empty())
            damages.note(lines.number(), "the line stands behind the end of the outputs");
}

void readRows(Context& context, std::string_view text, Damages& damages)
{
    form::Progress progress(context, "Loading the selection");
    LineReader lines(text);
    readInputs(context, lines, progress, damages);
    readOutputs(context, lines, progress, damages);
    progress.finish();
}

// As far as FEMAP can show it, and in any case on the status line and in the log.
void tellAtLeastHere(Context& context, const std::string& text)
{
    sys::PendingError notShown;
    notShown.attempt([&] { form::tellEngineer(context, text); });
}

struct ControlFile
{
    enum State
    {
        Read,
        Missing,  // as usual: most models have no selection yet
        Unreadable,
    } state;
    std::string bytes;
};

ControlFile readControlFile(Context& context, const std::string& path)
{
    try {
        return {ControlFile::Read, context.system.files.read(path)};
    }
    catch (const sys::RuntimeError& error) {
        if (error.number() == sys::ErrorNumber::FileNotFound) {
            logDebug(context.log, "No selection to load: ",
                     path + " could not be opened: No such file or directory");
            return {ControlFile::Missing, {}};
        }
        logDebug(context.log, "No selection to load: ", error.description());
        tellAtLeastHere(context,
                        "The stored selection cannot be read, and \"Apply\" does not replace it "
                        "until it can: " +
                            error.description());
        return {ControlFile::Unreadable, {}};
    }
}

void takeAsApplied(form::MainForm& form, const std::string& modelFile)
{
    form.stored.applied.take(modelFile, form.InputsList, form.OutputsList);
}

// The text of a control file, without a mark of UTF-8, and whether it has one.
struct ControlText
{
    explicit ControlText(std::string_view bytes, const sys::CodePage& codePage)
    {
        constexpr std::string_view mark = "\xEF\xBB\xBF";
        hasMark = bytes.starts_with(mark);
        unmarked = bytes.substr(hasMark ? mark.size() : 0);
        if (!sys::isAscii(unmarked))
            decoded = codePage.decode(unmarked);
    }
    std::string_view text() const { return decoded.empty() ? unmarked : decoded; }

    bool hasMark = false;
    std::string_view unmarked;
    std::string decoded;  // empty: as it stands there
};

// Fills the grids from the bytes of the control file and judges whether nothing of them was lost.
void fillGrids(Context& context, const std::string& modelFile, const std::string& path,
               std::string_view bytes)
{
    Damages damages(context.log);
    const ControlText file(bytes, context.system.codePage);
    context.error.attempt([&] {
        form::ClearAll_Click(context);
        judgeText(file.unmarked, file.hasMark, file.text(), context.system.codePage, damages);
        readRows(context, file.text(), damages);
    });
    if (context.error.isPending())
        logPositionAndClearErrorIfAny(context.log, context.error, "At end of Load_Click");
    if (damages.none()) {
        rememberControlFile(context, path, bytes);
        takeAsApplied(context.form, modelFile);
    }
    else
        tellAtLeastHere(context, "The stored selection did not come back as it was: " +
                                     damages.summary() + ". \"Apply\" keeps a copy: " + path);
}

}  // namespace

void Save_Config(Context& context, form::Progress& progress)
{
    logPosition(context.log, "At start of Save_Config");
    const std::string modelFile = context.femap().ModelName();
    const std::optional<ModelPath> model = savedModel(context, modelFile);
    if (!model)
        return;

    const std::string path = targetPath(*model, controlFile);
    keepPreviousSelection(context, path);
    TextFile file = openTarget(context, *model, controlFile);
    logDebug(context.log, "Opened file ", path, " to write");
    const auto writeRow = [&](const ParameterRow& row) { file.line(row.text()); };
    forEachNamedRow(progress, context.grids->InputsList, writeRow);
    file.line("");
    forEachNamedRow(progress, context.grids->OutputsList, writeRow);
    finish(progress, file);
    rememberWrittenControlFile(context, path);
    takeAsApplied(context.form, modelFile);
    logDebug(context.log, "Closed file ", path);
}

std::optional<std::string> storedSelection(Context& context, const ModelPath& model)
{
    const std::string path = targetPath(model, controlFile);
    if (!context.system.files.fileExists(path))
        return std::nullopt;
    std::string bytes = context.system.files.read(path);
    const ControlText file(bytes, context.system.codePage);
    return file.text().data() == bytes.data() ? std::move(bytes) : std::string(file.text());
}

void Load_Click(Context& context, const std::string& modelFile)
{
    logPosition(context.log, "At start of Load_Click");
    const std::optional<ModelPath> model = savedModel(context, modelFile);
    if (!model)
        return;

    logDebug(context.log, "fileBase=", model->name);
    logPositionAndClearErrorIfAny(context.log, context.error, "In the Load_Click");
    const std::string path = targetPath(*model, controlFile);
    sys::whileMemoryLasts(path, [&] {
        const ControlFile file = readControlFile(context, path);
        if (file.state == ControlFile::Unreadable)
            return;
        if (file.state == ControlFile::Read)
            fillGrids(context, modelFile, path, file.bytes);
        context.form.stored.readFiles.insert(path);
    });
}

void takeOverSelection(Context& context, const std::string& modelFile)
{
    form::MainForm& form = context.form;
    if (modelFile.empty() || !isEmpty(form.InputsList) || !isEmpty(form.OutputsList))
        return;
    if (!form.stored.readFiles.contains(targetPath(splitModelPath(modelFile), controlFile)))
        Load_Click(context, modelFile);
}

}  // namespace generate
