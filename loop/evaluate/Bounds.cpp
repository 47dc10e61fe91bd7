#include "loop/evaluate/Bounds.h"

#include "femap/NumberText.h"
#include "form/ParameterRow.h"
#include "generate/ScanProject.h"
#include "generate/Targets.h"
#include "generate/TaskDescription.h"
#include "loop/evaluate/Csv.h"

#include <array>
#include <optional>
#include <utility>
#include <vector>

namespace loop::evaluate
{

namespace
{

constexpr std::string_view columnsOfBounds[] = {"name", "kind", "value", "lower", "upper"};
constexpr std::size_t lowerColumn = 3;
constexpr std::size_t upperColumn = 4;
static_assert(columnsOfBounds[lowerColumn] == "lower" && columnsOfBounds[upperColumn] == "upper");

std::vector<std::string> headOfTable()
{
    return {std::begin(columnsOfBounds), std::end(columnsOfBounds)};
}

// Those that the files of "Apply" give to the input.
Bounds::Range writtenBounds(const sys::System& system, const Study& study,
                            const form::ParameterRow& row)
{
    const generate::ModelPath model = {study.folder, study.name()};
    const auto isThere = [&](generate::Target target) {
        return system.files.fileExists(generate::targetPath(model, target));
    };
    const auto range = [](const generate::FixedBounds& bounds) {
        return Bounds::Range{std::string(bounds.lower), std::string(bounds.upper)};
    };
    if (isThere(generate::taskFile))
        return generate::isVaried(row) ? range(generate::boundsOfVariables()) : Bounds::Range{};
    return isThere(generate::parameterFile) ? range(generate::boundsOfParameters())
                                            : Bounds::Range{};
}

void demandBounds(const Bounds::Range& range, const std::string& name, std::string_view file,
                  Problems& problems)
{
    std::array<std::optional<double>, 2> numbers;
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const std::string& text = i == 0 ? range.lower : range.upper;
        numbers[i] = ::femap::realNumberOfOthers(text);
        if (!numbers[i] && !text.empty())
            problems.add(file, range.line,
                         "the bound \"" + text + "\" of " + name +
                             " is no number; write it as 12.5 or 1.5E-05, or leave it empty");
    }
    if (numbers[0] && numbers[1] && *numbers[0] > *numbers[1])
        problems.add(file, range.line,
                     "the lower bound of " + name + " is above the upper one; exchange them");
}

}  // namespace

Bounds::Bounds(std::string file, std::map<std::string, Range> ranges)
    : file_(std::move(file)), ranges_(std::move(ranges))
{}

const Bounds::Range* Bounds::find(const std::string& name) const
{
    const auto found = ranges_.find(name);
    return found == ranges_.end() ? nullptr : &found->second;
}

void Bounds::demand(const std::string& name, double number, std::string_view file, std::size_t line,
                    Problems& problems) const
{
    const Range* const range = find(name);
    if (range == nullptr)
        return;
    const std::optional<double> lower = ::femap::realNumberOfOthers(range->lower);
    const std::optional<double> upper = ::femap::realNumberOfOthers(range->upper);
    if ((lower && number < *lower) || (upper && number > *upper))
        problems.add(file, line,
                     name + " is " + ::femap::numberText(number) + ", beyond its bounds in " +
                         file_ + ':' + std::to_string(range->line) +
                         "; give another value, or other bounds there");
}

std::string boundsFile(const Study& study)
{
    return study.name() + "Bounds.csv";
}

Bounds readBounds(sys::System& system, const Study& study, Problems& problems)
{
    const std::string file = boundsFile(study);
    if (system.files.isMissing(study.pathOf(file)))
        return {};
    const std::vector<CsvRecord> records = readCsv(system.files.read(study.pathOf(file)));
    if (records.empty() || records.front().cells != headOfTable()) {
        problems.add(file, 1,
                     "the head is not name,kind,value,lower,upper; remove the file, and let "
                     "velmar-evaluate --table write it anew");
        return {};
    }
    std::map<std::string, Bounds::Range> ranges;
    for (const CsvRecord& record : std::span(records).subspan(1)) {
        if (record.cells.size() != std::size(columnsOfBounds) || record.isOpen) {
            problems.add(file, record.line, "the row has not the five cells of the head");
            continue;
        }
        const std::string& name = record.cells.front();
        const Bounds::Range range = {record.cells[lowerColumn], record.cells[upperColumn],
                                     record.line};
        demandBounds(range, name, file, problems);
        ranges.try_emplace(name, range);
    }
    return {file, std::move(ranges)};
}

std::string boundsTable(const sys::System& system, const Study& study, const Bounds& before)
{
    std::string text = csvLine(headOfTable());
    for (const Variable& variable : study.variables) {
        const form::ParameterRow row(study.inputs.rows[variable.row].text);
        const Bounds::Range* const edited = before.find(variable.name);
        const Bounds::Range range = edited == nullptr ? writtenBounds(system, study, row) : *edited;
        text += csvLine(std::array{variable.name, std::string(row.cell(form::inputColumn::kind)),
                                   variable.nominal, range.lower, range.upper});
    }
    return text;
}

}  // namespace loop::evaluate
