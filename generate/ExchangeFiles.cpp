#include "generate/ExchangeFiles.h"

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

std::string_view trimmed(std::string_view text)
{
    const std::size_t first = std::min(text.find_first_not_of(' '), text.size());
    return text.substr(first, text.find_last_not_of(' ') + 1 - first);
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
    return {row.name(), "  !<", row.name(), "%f!", row.value(), ">!"};
}

std::string exchangeHead(const Context& context, const ExchangeFormat& format,
                         const std::string& modelName)
{
    const SolverFormat* const solver = findSolverFormat(context.form.Solver.Text);
    const auto ofSolver = [&](std::string_view SolverFormat::*part) {
        return solver == nullptr ? Lines{} : Lines{solver->*part};
    };
    const std::string& named = context.form.fileExtension;
    const std::string& extension = named.empty() ? context.form.openModelExtension : named;
    return fillIn(format.head, {{"model", {modelName}},
                                {"extension", {trimmed(extension)}},
                                {"solver", ofSolver(&SolverFormat::codeName)},
                                {"deck", ofSolver(&SolverFormat::deck)},
                                {"results", ofSolver(&SolverFormat::results)}});
}

void WriteExchangeFiles(Context& context, form::Progress& progress, const std::string& folder,
                        const std::string& name)
{
    writeExchange(context, progress, folder, name, inputExchange, context.form.InputsList);
    writeExchange(context, progress, folder, name, outputExchange, context.form.OutputsList);
}

}  // namespace generate
