#include "loop/evaluate/Study.h"

#include "form/ParameterRow.h"
#include "generate/ExchangeFiles.h"
#include "loop/Values.h"
#include "loop/WholeFile.h"

#include <memory>
#include <optional>

namespace loop::evaluate
{

namespace
{

using form::ParameterRow;

bool isFunction(const DescribedRow& row)
{
    return ParameterRow(row.text).cell(form::inputColumn::kind) == form::functionKind;
}

std::string nameOf(const DescribedRow& row)
{
    return std::string(ParameterRow(row.text).name());
}

// The variables, each with its line. Numbers that are missing are no problem here: a point may have
// them.
std::vector<Variable> variablesOf(sys::System& system, const Study& study, Problems& problems)
{
    Problems ofValues;
    const std::vector<GivenValue> given = readValues(system, study.inputs, ofValues);
    std::vector<Variable> variables;
    bool areAllThere = true;
    for (std::size_t i = 0; i < given.size(); ++i) {
        const DescribedRow& row = study.inputs.rows[i];
        if (isFunction(row))
            continue;
        const std::size_t line = given[i].line;
        areAllThere = areAllThere && line != 0 && line <= study.valueLines.size();
        if (!areAllThere)
            break;
        const std::string name = nameOf(row);
        const auto value = valueBehind(name, study.valueLines[line - 1]);
        variables.push_back({name, std::string(value.value_or("")), i, line});
    }
    if (!areAllThere)
        static_cast<void>(readValues(system, study.inputs, problems));
    return variables;
}

}  // namespace

std::vector<std::string> Study::outputNames() const
{
    std::vector<std::string> names;
    for (const DescribedRow& row : outputs.rows)
        names.push_back(nameOf(row));
    return names;
}

Study readStudy(sys::System& system, const std::string& folder, Problems& problems)
{
    Study study;
    study.folder = folder;
    study.inputs = readDescription(system, folder, generate::inputExchange, problems);
    study.outputs = readDescription(system, folder, generate::outputExchange, problems);
    if (!problems.empty())
        return study;
    auto lines = readLines(system, folder, study.inputs.valuesFile,
                           "; press \"Apply\" in the form again", problems);
    if (!lines)
        return study;
    study.valueLines = *std::move(lines);
    study.variables = variablesOf(system, study, problems);
    return study;
}

Values nominalValues(const Study& study)
{
    Values values;
    for (const Variable& variable : study.variables)
        values.push_back(variable.nominal);
    return values;
}

std::string valuesBytes(const sys::System& system, const Study& study,
                        std::span<const std::string> values)
{
    std::vector<std::string> lines = study.valueLines;
    for (std::size_t i = 0; i < study.variables.size(); ++i) {
        const Variable& variable = study.variables[i];
        std::string row;
        form::InputCells{variable.name, values[i], {}, {}, {}, {}}.joinIn(row);
        lines[variable.line - 1] =
            generate::concatenated(generate::nameValueLine(ParameterRow(row)));
    }
    std::string text;
    for (const std::string& line : lines)
        text.append(line).append("\r\n");
    std::string bytes;
    system.codePage.encode(text, bytes);
    return bytes;
}

void writeWhole(sys::System& system, const std::string& path, std::string_view bytes)
{
    WholeFile file(system, path);
    file.write(bytes);
    file.close();
}

std::vector<double> readOutputs(sys::System& system, const Study& study, const std::string& folder,
                                Problems& problems)
{
    Description outputs = study.outputs;
    outputs.folder = folder;
    std::vector<double> numbers;
    for (const GivenValue& value : readValues(system, outputs, problems))
        numbers.push_back(value.number.value_or(0));
    return numbers;
}

}  // namespace loop::evaluate
