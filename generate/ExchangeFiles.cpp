#include "generate/ExchangeFiles.h"

#include "generate/ModelPath.h"
#include "generate/SolverFormat.h"
#include "generate/Targets.h"
#include "generate/TextTemplate.h"

#include <algorithm>

namespace generate
{

using form::Context;
using form::ParameterGrid;

namespace
{

constexpr std::string_view gap = "  ";

constexpr std::string_view caeInputHead = R"text(
Reference Model (FEMAP) = @model@.@extension@
Input Deck (@solver@) = @model@.@deck@
NameValue = InputValues.txt
)text";

constexpr std::string_view caeOutputHead = R"text(
Reference Model (FEMAP) = @model@.@extension@
Results File (@solver@) = @model@.@results@
OutputNameValue = OutputValues.txt
)text";

constexpr std::string_view referenceStart = "Reference Model (FEMAP) = ";
static_assert(caeInputHead.substr(1).starts_with(referenceStart));
static_assert(caeOutputHead.substr(1).starts_with(referenceStart));

constexpr std::string_view placeholderStart = "  !<";
constexpr std::string_view placeholderEnd = "%f!";

std::string_view trimmed(std::string_view text)
{
    const std::size_t first = std::min(text.find_first_not_of(' '), text.size());
    return text.substr(first, text.find_last_not_of(' ') + 1 - first);
}

std::string_view extensionOf(const form::MainForm& form, const std::string& ofFile)
{
    return trimmed(form.fileExtension.empty() ? ofFile : form.fileExtension);
}

void writeExchange(Context& context, form::Progress& progress, const std::string& folder,
                   const std::string& name, const ExchangeFormat& format, const ParameterGrid& grid)
{
    const auto open = [&](Target target) { return openTarget(context, {folder, name}, target); };
    TextFile description = open(format.description);
    TextFile values = open(format.values);
    TextFile valuesTemplate = open(format.valuesTemplate);

    description.write(exchangeHead(context, format, name));
    forEachNamedRow(progress, grid, [&](const ParameterRow& row) {
        description.line(format.parameterLine(row));
        values.line(nameValueLine(row));
        valuesTemplate.line(templateLine(row));
    });
    finish(progress, valuesTemplate);
    finish(progress, values);
    finish(progress, description);
}

}  // namespace

constinit const ExchangeFormat inputExchange = {inputDescription, inputValues, inputTemplate,
                                                caeInputHead, inputParameterLine};
constinit const ExchangeFormat outputExchange = {outputDescription, outputValues, outputTemplate,
                                                 caeOutputHead, outputResponseLine};

LinePieces inputParameterLine(const ParameterRow& row)
{
    return {row.cell(form::inputColumn::kind),
            gap,
            row.name(),
            gap,
            row.cell(form::inputColumn::id),
            gap,
            row.cell(form::inputColumn::member),
            gap,
            row.cell(form::inputColumn::index)};
}

LinePieces outputResponseLine(const ParameterRow& row)
{
    return {row.cell(form::outputColumn::kind),
            gap,
            row.name(),
            gap,
            row.cell(form::outputColumn::first),
            gap,
            row.cell(form::outputColumn::second)};
}

LinePieces nameValueLine(const ParameterRow& row)
{
    return {row.name(), gap, row.value()};
}

LinePieces templateLine(const ParameterRow& row)
{
    return {row.name(), placeholderStart, row.name(), placeholderEnd, row.value(), ">!"};
}

std::string_view nameInTemplate(std::string_view line)
{
    const std::string_view name = line.substr(0, line.find(placeholderStart));
    line.remove_prefix(std::min(name.size() + placeholderStart.size(), line.size()));
    const bool isNamedTwice =
        line.starts_with(name) && line.substr(name.size()).starts_with(placeholderEnd);
    return isNamedTwice ? name : std::string_view();
}

std::string referenceModel(const form::MainForm& form, const std::string& modelFile)
{
    const std::string ofFile = GetFileExtension(modelFile);
    return concatenated({splitModelPath(modelFile).name, ".", extensionOf(form, ofFile)});
}

std::string_view namedReference(std::string_view description)
{
    if (!description.starts_with(referenceStart))
        return {};
    description.remove_prefix(referenceStart.size());
    return description.substr(0, description.find_first_of("\r\n"));
}

std::string exchangeHead(const Context& context, const ExchangeFormat& format,
                         const std::string& modelName)
{
    const SolverFormat* const solver = findSolverFormat(context.form.Solver.Text);
    const auto ofSolver = [&](std::string_view SolverFormat::*part) {
        return solver == nullptr ? Lines{} : Lines{solver->*part};
    };
    const std::string_view extension = extensionOf(context.form, context.form.openModelExtension);
    return fillIn(format.head, {{"model", {modelName}},
                                {"extension", {extension}},
                                {"solver", ofSolver(&SolverFormat::codeName)},
                                {"deck", ofSolver(&SolverFormat::deck)},
                                {"results", ofSolver(&SolverFormat::results)}});
}

void WriteExchangeFiles(Context& context, form::Progress& progress, const std::string& folder,
                        const std::string& name)
{
    writeExchange(context, progress, folder, name, inputExchange, context.grids->InputsList);
    writeExchange(context, progress, folder, name, outputExchange, context.grids->OutputsList);
}

}  // namespace generate
