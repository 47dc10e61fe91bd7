#include "loop/evaluate/ResultTable.h"

#include "femap/NumberText.h"
#include "loop/evaluate/Csv.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace loop::evaluate
{

namespace
{

constexpr const char* numberColumn = "row";
constexpr const char* statusColumn = "status";
constexpr const char* doneStatus = "done";
constexpr const char* failedStart = "failed: ";

std::vector<std::string> headOf(const Study& study)
{
    std::vector<std::string> head = {numberColumn};
    std::ranges::copy(variableNames(study), std::back_inserter(head));
    std::ranges::copy(study.outputNames(), std::back_inserter(head));
    head.emplace_back(statusColumn);
    return head;
}

bool isSameNumber(const std::string& one, const std::string& other)
{
    const std::optional<double> number = ::femap::realNumberOfOthers(one);
    return one == other || (number && number == ::femap::realNumberOfOthers(other));
}

}  // namespace

ResultTable::ResultTable(sys::System& system, std::string path, const Study& study,
                         Problems& problems)
    : system_(system), path_(std::move(path)), head_(headOf(study))
{
    if (system_.files.isMissing(path_))
        return;
    std::vector<CsvRecord> records = readCsv(system_.files.read(path_));
    std::erase_if(records, [](const CsvRecord& record) { return !record.isEnded; });
    if (records.empty())
        return;
    if (records.front().cells != head_) {
        problems.add(path_, 1,
                     "the table has other names than this study; name another file for the "
                     "results, or remove this one");
        return;
    }
    for (CsvRecord& record : std::span(records).subspan(1)) {
        if (record.cells.size() != head_.size())
            continue;
        const auto begin = record.cells.begin() + 1;
        const auto variables = static_cast<std::ptrdiff_t>(study.variables.size());
        const std::optional<int> number = ::femap::wholeNumber(record.cells.front());
        const auto place = static_cast<std::size_t>(std::max(number.value_or(0), 0));
        placesOfNumber_.emplace(place, entries_.size());
        entries_.push_back({place, Values(begin, begin + variables),
                            record.cells.back() != doneStatus, std::move(record.cells)});
    }
}

bool ResultTable::isOf(const Entry& entry, const Point& point)
{
    return entry.number == point.number &&
           std::ranges::equal(entry.values, point.values, isSameNumber);
}

ResultTable::Known ResultTable::known(const Point& point) const
{
    Known known = Known::Nothing;
    const auto [begin, end] = placesOfNumber_.equal_range(point.number);
    for (auto each = begin; each != end; ++each)
        if (const Entry& entry = entries_[each->second]; isOf(entry, point))
            known = std::max(known, entry.hasFailed ? Known::Failure : Known::Outputs);
    return known;
}

std::size_t ResultTable::strangers(std::span<const Point> points) const
{
    const auto isStranger = [&](const Entry& entry) {
        return entry.number == 0 || entry.number > points.size() ||
               !isOf(entry, points[entry.number - 1]);
    };
    return static_cast<std::size_t>(std::ranges::count_if(entries_, isStranger));
}

void ResultTable::open(bool forgetsFailures)
{
    if (forgetsFailures)
        std::erase_if(entries_, [](const Entry& entry) { return entry.hasFailed; });
    std::string text = csvLine(head_);
    for (const Entry& entry : entries_)
        text += csvLine(entry.cells);
    writeWhole(system_, path_, text);
    file_ = system_.files.append(path_);
}

void ResultTable::add(const Point& point, const Result& result)
{
    std::vector<std::string> cells = {std::to_string(point.number)};
    std::ranges::copy(point.values, std::back_inserter(cells));
    for (std::size_t left = head_.size() - cells.size() - 1, i = 0; i < left; ++i)
        cells.push_back(result.problem.empty() ? ::femap::numberText(result.outputs[i]) : "");
    cells.push_back(result.problem.empty() ? doneStatus : failedStart + result.problem);
    file_->write(csvLine(cells));
    file_->flush();
}

}  // namespace loop::evaluate
