// The proof of a study: what its stored values give now, beside the results that are stored.
#include "femap/NumberText.h"
#include "loop/Values.h"
#include "loop/evaluate/Ways.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <ostream>

namespace loop::evaluate
{

namespace
{

// Relative to the larger of both.
double difference(double one, double other)
{
    const double scale = std::max(std::abs(one), std::abs(other));
    return scale == 0 ? 0 : std::abs(one - other) / scale;
}

std::string roughly(double number)
{
    constexpr int digitsBehindPoint = 1;
    std::array<char, 32> text = {};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), number,
                                   std::chars_format::scientific, digitsBehindPoint);
    return {text.data(), end.ptr};
}

// Beneath each other, each column as wide as its widest cell.
void writeColumns(std::ostream& output, const std::vector<std::array<std::string, 4>>& rows)
{
    std::array<std::size_t, 4> widths = {};
    for (const auto& row : rows)
        for (std::size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], row[i].size());
    for (const auto& row : rows) {
        output << row[0] << std::string(widths[0] - row[0].size(), ' ');
        for (std::size_t i = 1; i < row.size(); ++i)
            output << "  " << std::string(widths[i] - row[i].size(), ' ') << row[i];
        output << '\n';
    }
}

void writeReport(const Work& work, const std::vector<GivenValue>& stored,
                 const std::vector<double>& now)
{
    const std::vector<std::string> names = work.study.outputNames();
    std::vector<std::array<std::string, 4>> rows = {{"output", "stored", "now", "difference"}};
    double largest = 0;
    for (std::size_t i = 0; i < names.size(); ++i) {
        const std::optional<double>& before = stored[i].number;
        const double differs = before ? difference(*before, now[i]) : 0;
        largest = std::max(largest, differs);
        rows.push_back({names[i], before ? ::femap::numberText(*before) : "-",
                        ::femap::numberText(now[i]), before ? roughly(differs) : "-"});
    }
    writeColumns(work.environment.output, rows);
    work.environment.output << "largest relative difference: " << roughly(largest) << '\n';
}

}  // namespace

int prove(const Work& work)
{
    sys::System& system = work.environment.system;
    const std::string file = work.study.pathOf(work.study.outputs.valuesFile);
    Problems missing;  // rows without a stored number are shown so
    const std::vector<GivenValue> stored = readValues(system, work.study.outputs, missing);
    if (system.files.isMissing(file))
        return tellProblems(missing, work.environment);
    const std::string before = system.files.read(file);

    const Result result = runInFolder(work, std::nullopt);
    if (result.problem.empty())
        writeReport(work, stored, result.outputs);
    writeWhole(system, file, before);
    return result.problem.empty() ? exitDone : exitNotDone;
}

}  // namespace loop::evaluate
