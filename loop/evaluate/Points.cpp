#include "loop/evaluate/Points.h"

#include "femap/NumberText.h"
#include "loop/evaluate/Csv.h"

#include <algorithm>
#include <map>

namespace loop::evaluate
{

std::string withoutBlanks(std::string_view text)
{
    constexpr std::string_view taken = " \t\r";
    text.remove_prefix(std::min(text.find_first_not_of(taken), text.size()));
    return std::string(text.substr(0, text.find_last_not_of(taken) + 1));
}

std::vector<std::size_t> placesOf(std::span<const NamedValue> wanted,
                                  std::span<const std::string> names, std::string_view file,
                                  Problems& problems)
{
    std::map<std::string, std::vector<std::size_t>> known;
    for (std::size_t i = 0; i < names.size(); ++i)
        known[withoutBlanks(names[i])].push_back(i);
    std::map<std::string, std::size_t> times;
    for (const NamedValue& each : wanted)
        ++times[withoutBlanks(each.name)];

    std::vector<std::size_t> places;
    std::map<std::string, std::size_t> taken;
    for (const NamedValue& each : wanted) {
        const std::string name = withoutBlanks(each.name);
        const std::vector<std::size_t>& rows = known[name];
        const std::size_t time = taken[name]++;
        if (rows.empty())
            problems.add(file, each.line,
                         "the study has no \"" + name + "\"; write its names as they are");
        else if (time == 0 && times[name] != rows.size())
            problems.add(file, each.line,
                         "the study has " + std::to_string(rows.size()) + " of \"" + name +
                             "\", not " + std::to_string(times[name]) +
                             "; name it as often as it is there, in its order");
        places.push_back(time < rows.size() ? rows[time] : 0);
    }
    return places;
}

std::vector<std::string> variableNames(const Study& study)
{
    std::vector<std::string> names;
    for (const Variable& variable : study.variables)
        names.push_back(variable.name);
    return names;
}

Values pointValues(const Study& study, const Bounds& bounds, std::span<const std::size_t> places,
                   std::span<const NamedValue> given, std::string_view file, Problems& problems)
{
    Values result = nominalValues(study);
    for (std::size_t i = 0; i < places.size(); ++i) {
        const Variable& variable = study.variables[places[i]];
        const std::string text = withoutBlanks(given[i].value);
        const std::optional<double> number = ::femap::realNumberOfOthers(text);
        if (!number)
            problems.add(file, given[i].line,
                         variable.name + " is \"" + text +
                             "\", which is no number; write it as 12.5 or 1.5E-05");
        else
            bounds.demand(variable.name, *number, file, given[i].line, problems);
        result[places[i]] = text;
    }
    return result;
}

void demandNominal(const Study& study, std::span<const std::size_t> places, Problems& problems)
{
    for (std::size_t i = 0; i < study.variables.size(); ++i) {
        const Variable& variable = study.variables[i];
        if (std::ranges::find(places, i) == places.end() &&
            !::femap::realNumberOfOthers(variable.nominal))
            problems.add(study.inputs.valuesFile, variable.line,
                         variable.name +
                             " has no number, and no point gives it one; press "
                             "\"Refresh Values\" and \"Apply\" in the form");
    }
}

std::vector<Point> readPoints(std::string_view text, std::string_view file, const Study& study,
                              const Bounds& bounds, Problems& problems)
{
    const std::vector<CsvRecord> records = readCsv(text);
    if (records.empty()) {
        problems.add(file, 1, "the table is empty; its first line has names of inputs");
        return {};
    }
    std::vector<NamedValue> given;
    for (const std::string& name : records.front().cells)
        given.push_back({name, {}, records.front().line});
    const std::vector<std::size_t> places = placesOf(given, variableNames(study), file, problems);
    if (!problems.empty())
        return {};
    demandNominal(study, places, problems);
    std::vector<Point> points;
    for (const CsvRecord& record : std::span(records).subspan(1)) {
        points.push_back({points.size() + 1, {}});
        if (record.isOpen)
            problems.add(file, record.line, "a quotation mark is not closed; close it");
        else if (record.cells.size() != given.size())
            problems.add(file, record.line,
                         "the row has " + std::to_string(record.cells.size()) +
                             " cells, but the head has " + std::to_string(given.size()) +
                             "; a row has a value for each name of the head");
        else {
            for (std::size_t i = 0; i < given.size(); ++i)
                given[i] = {given[i].name, record.cells[i], record.line};
            points.back().values = pointValues(study, bounds, places, given, file, problems);
        }
    }
    return points;
}

}  // namespace loop::evaluate
