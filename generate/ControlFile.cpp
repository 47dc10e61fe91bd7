#include "generate/ControlFile.h"

#include "form/FormProcedures.h"
#include "form/Progress.h"
#include "generate/ModelPath.h"
#include "generate/ParameterRow.h"
#include "generate/Targets.h"
#include "logging/Module1.h"
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

// The open model; none, with a message, when it has no file yet.
std::optional<ModelPath> savedModel(Context& context)
{
    const std::string modelFile = context.femap().ModelName();
    if (!modelFile.empty())
        return splitModelPath(modelFile);
    form::tellEngineer(context, std::string(modelMustBeSaved));
    return std::nullopt;
}

/// Gives the lines of a text one by one, whether they end in CR LF or in LF. Control characters
/// become blanks, except TAB, which separates the cells. A line is valid until the next call.
class LineReader
{
public:
    explicit LineReader(std::string_view text) : rest_(text) {}

    bool atEnd() const { return rest_.empty(); }

    std::string_view next()
    {
        if (atEnd())
            throw sys::RuntimeError(sys::ErrorNumber::InputPastEnd,
                                    "The control file ends before its selection is complete");
        const std::size_t end = std::min(rest_.find('\n'), rest_.size());
        std::string_view line = rest_.substr(0, end);
        rest_.remove_prefix(std::min(end + 1, rest_.size()));
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        return holdsStray(line) ? cleaned(line) : line;
    }

private:
    static bool isStray(char c)
    {
        return (static_cast<unsigned char>(c) < 0x20 && c != '\t') || c == 0x7F;
    }

    // Always runs to the end, so that the compiler can test many characters at a time.
    static bool holdsStray(std::string_view line)
    {
        bool found = false;
        for (const char c : line)
            found |= isStray(c);
        return found;
    }
    std::string_view cleaned(std::string_view line)
    {
        cleaned_ = line;
        std::replace_if(cleaned_.begin(), cleaned_.end(), isStray, ' ');
        return cleaned_;
    }

    std::string_view rest_;
    std::string cleaned_;
};

void addLine(Context& context, ParameterGrid& grid, std::string_view line, std::string_view list)
{
    grid.AddItem(line);
    logDebug(context.log, "Added ", line, " to ", list, " list");
}

// The first line is always a row, even when it is empty; it replaces the blank row.
void readFirstRow(Context& context, LineReader& lines, ParameterGrid& grid, std::string_view list)
{
    addLine(context, grid, lines.next(), list);
    grid.RemoveItem(1);
    logDebug(context.log, "Removed 1 from ", list, " list");
}

void readRows(Context& context, LineReader& lines)
{
    form::Progress progress(context, "Loading the selection");
    ParameterGrid& inputs = context.form.InputsList;
    readFirstRow(context, lines, inputs, "Input");
    for (std::string_view line = lines.next(); !line.empty(); line = lines.next()) {
        addLine(context, inputs, line, "Input");
        progress.step();
    }

    // The outputs may end with an empty line or with the file.
    ParameterGrid& outputs = context.form.OutputsList;
    readFirstRow(context, lines, outputs, "Output");
    while (!lines.atEnd()) {
        const std::string_view line = lines.next();
        if (line.empty())
            break;
        addLine(context, outputs, line, "Output");
        progress.step();
    }
}

// False when it cannot be read. A missing file is usual: most models have no selection yet.
bool readControlFile(Context& context, const std::string& path, std::string& content)
{
    try {
        content = context.system.files.read(path);
        if (!sys::isAscii(content))
            content = context.system.codePage.decode(content);
        return true;
    }
    catch (const sys::RuntimeError& error) {
        logDebug(context.log, "No selection to load: ", error.description());
        if (error.number() != sys::ErrorNumber::FileNotFound)
            context.form.status.tellProblem(
                "The selection of the last \"Apply\" could not be read (" + error.description() +
                "). The next \"Apply\" replaces it; to keep it, see that no other program has the "
                "file open and start this tool again");
        return false;
    }
}

}  // namespace

void Save_Config(Context& context)
{
    logPosition(context.log, "At start of Save_Config");
    const std::optional<ModelPath> model = savedModel(context);
    if (!model)
        return;

    const std::string path = targetPath(*model, controlFile);
    TextFile file = openTarget(context, *model, controlFile);
    logDebug(context.log, "Opened file ", path, " to write");
    const auto writeRow = [&](const ParameterRow& row) { file.line(row.text()); };
    forEachNamedRow(context, context.form.InputsList, writeRow);
    file.line("");
    forEachNamedRow(context, context.form.OutputsList, writeRow);
    file.close();
    logDebug(context.log, "Closed file ", path);
}

void Load_Click(Context& context)
{
    logPosition(context.log, "At start of Load_Click");
    const std::optional<ModelPath> model = savedModel(context);
    if (!model)
        return;

    logDebug(context.log, "fileBase=", model->name);
    logPositionAndClearErrorIfAny(context.log, context.error, "In the Load_Click");
    std::string content;
    if (!readControlFile(context, targetPath(*model, controlFile), content))
        return;
    context.error.attempt([&] {
        form::ClearAll_Click(context);
        LineReader lines(content);
        readRows(context, lines);
    });
    if (context.error.isPending())
        logPositionAndClearErrorIfAny(context.log, context.error, "At end of Load_Click");
}

}  // namespace generate
