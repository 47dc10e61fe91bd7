#include "generate/ExchangeFiles.h"

#include "femap/NumberText.h"
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

// Takes the last cell of a line away, and the gap before it.
std::string_view takeLastCell(std::string_view& line)
{
    const std::size_t end = std::min(line.rfind(gap), line.size());
    const std::string_view cell = line.substr(std::min(end + gap.size(), line.size()));
    line = line.substr(0, end);
    return cell;
}

// The same for the ID of an input: digits, behind the blank of a sign where the row is of a load or
// a function. A name may end in blanks.
std::string_view takeID(std::string_view& line, bool isSignBlank)
{
    const std::size_t digits = line.find_last_not_of("0123456789") + 1;
    const std::size_t begin = digits - std::min<std::size_t>(isSignBlank ? 1 : 0, digits);
    const std::string_view id = line.substr(begin);
    line = line.substr(0, begin);
    const bool isBehindGap = line.ends_with(gap) && (!isSignBlank || id.front() == ' ');
    if (!isBehindGap)
        return {};
    line.remove_suffix(gap.size());
    return id;
}

// What the line of a head begins with before anything varies.
std::string_view fixedStart(std::string_view headLine)
{
    constexpr std::string_view equals = " = ";
    return headLine.substr(0, std::min(headLine.find('@'), headLine.find(equals) + equals.size()));
}

}  // namespace

constinit const ExchangeFormat inputExchange = {
    inputDescription, inputValues, inputTemplate, caeInputHead, inputParameterLine, inputRowOfLine};
constinit const ExchangeFormat outputExchange = {outputDescription,  outputValues,
                                                 outputTemplate,     caeOutputHead,
                                                 outputResponseLine, outputRowOfLine};

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

std::optional<std::string> inputRowOfLine(std::string_view line)
{
    const std::string_view kind = line.substr(0, line.find(gap));
    const form::RowKind* const known = form::findRowKind(kind);
    if (known == nullptr || !known->isInput || kind.size() == line.size())
        return std::nullopt;
    line.remove_prefix(kind.size() + gap.size());
    const std::string_view index = takeLastCell(line);
    const std::string_view member = takeLastCell(line);
    const std::string_view id = takeID(line, known->load || kind == form::functionKind);
    if (!femap::wholeNumber(id) || line.empty())
        return std::nullopt;
    std::string row;
    form::InputCells{line, {}, kind, id, member, index}.joinIn(row);
    return row;
}

std::optional<std::string> outputRowOfLine(std::string_view line)
{
    const std::string_view kind = line.substr(0, line.find(gap));
    const form::RowKind* const known = form::findRowKind(kind);
    if (known == nullptr || known->isInput || kind.size() == line.size())
        return std::nullopt;
    line.remove_prefix(kind.size() + gap.size());
    const std::string_view second = takeLastCell(line);
    const std::string_view first = takeLastCell(line);
    if (first.empty() || line.empty())
        return std::nullopt;
    std::string row;
    form::OutputCells{line, {}, first, second, kind}.joinIn(row);
    return row;
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

ExchangeHead readExchangeHead(std::span<const std::string> lines, const ExchangeFormat& format)
{
    constexpr std::string_view behindSolver = ") = ";
    ExchangeHead head;
    // What stands behind the beginning of a line of the head, if that is the next one.
    std::string_view ofHead = format.head.substr(1);
    const auto next = [&]() -> std::optional<std::string_view> {
        const std::string_view start = fixedStart(ofHead);
        ofHead.remove_prefix(ofHead.find('\n') + 1);
        if (head.lines == lines.size() || !lines[head.lines].starts_with(start))
            return std::nullopt;
        return std::string_view(lines[head.lines++]).substr(start.size());
    };

    const std::optional<std::string_view> model = next();
    if (!model)
        return head;
    head.model = *model;
    if (const std::optional<std::string_view> ofSolver = next()) {
        const std::size_t end = std::min(ofSolver->find(behindSolver), ofSolver->size());
        head.solver = findSolverCode(ofSolver->substr(0, end));
        head.solverFile = ofSolver->substr(std::min(end + behindSolver.size(), ofSolver->size()));
    }
    const std::optional<std::string_view> values = next();
    head.values = values.value_or(std::string_view());
    head.isWhole = !head.model.empty() && !head.values.empty();
    return head;
}

void WriteExchangeFiles(Context& context, form::Progress& progress, const std::string& folder,
                        const std::string& name)
{
    writeExchange(context, progress, folder, name, inputExchange, context.grids->InputsList);
    writeExchange(context, progress, folder, name, outputExchange, context.grids->OutputsList);
}

}  // namespace generate
