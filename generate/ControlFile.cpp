#include "generate/ControlFile.h"

#include "app/form/FormProcedures.h"
#include "generate/ModelPath.h"
#include "generate/ParameterRow.h"
#include "logging/Module1.h"
#include "logging/RuntimeError.h"
#include "logging/TextFile.h"

#include <algorithm>
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

constexpr std::string_view fileNameEnd = "Control.txt";

std::string controlFilePath(const ModelPath& model)
{
    return concatenated({model.folder, model.name, fileNameEnd});
}

/// Hands out the lines of a text, whether they end in CR LF or in LF. A stray control character
/// becomes a blank; only TAB, which parts the cells, stays.
class LineReader
{
public:
    explicit LineReader(std::string_view text) : rest_(text) {}

    bool atEnd() const { return rest_.empty(); }

    std::string next()
    {
        if (atEnd())
            throw logging::RuntimeError(logging::ErrorNumber::InputPastEnd,
                                        "The control file ends before its selection is complete");
        const std::size_t end = std::min(rest_.find('\n'), rest_.size());
        std::string line(rest_.substr(0, end));
        rest_.remove_prefix(std::min(end + 1, rest_.size()));
        if (line.ends_with('\r'))
            line.pop_back();
        std::replace_if(line.begin(), line.end(), isStray, ' ');
        return line;
    }

private:
    static bool isStray(char c)
    {
        return (static_cast<unsigned char>(c) < 0x20 && c != '\t') || c == 0x7F;
    }

    std::string_view rest_;
};

void addLine(Context& context, ParameterGrid& grid, std::string_view line, std::string_view list)
{
    grid.AddItem(line);
    logDebug(context.log, "Added ", line, " to ", list, " list");
}

// The first line is a row whatever it holds; it takes the place of the blank row.
void readFirstRow(Context& context, LineReader& lines, ParameterGrid& grid, std::string_view list)
{
    addLine(context, grid, lines.next(), list);
    grid.RemoveItem(1);
    logDebug(context.log, "Removed 1 from ", list, " list");
}

void readRows(Context& context, LineReader& lines)
{
    ParameterGrid& inputs = context.form.InputsList;
    readFirstRow(context, lines, inputs, "Input");
    for (std::string line = lines.next(); !line.empty(); line = lines.next())
        addLine(context, inputs, line, "Input");

    // The outputs may end with an empty line or with the file.
    ParameterGrid& outputs = context.form.OutputsList;
    readFirstRow(context, lines, outputs, "Output");
    while (!lines.atEnd()) {
        const std::string line = lines.next();
        if (line.empty())
            break;
        addLine(context, outputs, line, "Output");
    }
}

}  // namespace

void Save_Config(Context& context)
{
    logPosition(context.log, "At start of Save_Config");
    const std::string modelFile = context.femap().ModelName();
    if (modelFile.empty()) {
        form::tellEngineer(context, std::string(modelMustBeSaved));
        return;
    }

    const std::string path = controlFilePath(splitModelPath(modelFile));
    logging::TextFile file(context.system, context.log, path);
    logDebug(context.log, "Opened file ", path, " to write");
    const auto writeRow = [&](const ParameterRow& row) { file.line(row.text()); };
    forEachNamedRow(context.form.InputsList, writeRow);
    file.line("");
    forEachNamedRow(context.form.OutputsList, writeRow);
    file.close();
    logDebug(context.log, "Closed file ", path);
}

void Load_Click(Context& context)
{
    logPosition(context.log, "At start of Load_Click");
    const std::string modelFile = context.femap().ModelName();
    if (modelFile.empty()) {
        form::tellEngineer(context, std::string(modelMustBeSaved));
        return;
    }

    const ModelPath model = splitModelPath(modelFile);
    logDebug(context.log, "fileBase=", model.name);
    logPositionAndClearErrorIfAny(context.log, context.error, "In the Load_Click");
    std::string content;
    if (!context.error.attempt([&] {
            content =
                context.system.codePage.decode(context.system.files.read(controlFilePath(model)));
        })) {
        // Nothing unusual: most models have no selection yet.
        logDebug(context.log, "No selection to load: ", context.error.description());
        context.error.clear();
        return;
    }
    context.error.attempt([&] {
        form::ClearAll_Click(context);
        LineReader lines(content);
        readRows(context, lines);
    });
    if (context.error.isPending())
        logPositionAndClearErrorIfAny(context.log, context.error, "At end of Load_Click");
}

}  // namespace generate
