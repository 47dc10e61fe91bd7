#include "findings/LatestFindings.h"

#include "findings/Findings.h"

#include <algorithm>
#include <utility>

namespace findings
{

namespace
{

constexpr std::size_t indexOf(Grid grid)
{
    return static_cast<std::size_t>(grid);
}

constexpr std::uint8_t gravityOf(Severity severity)
{
    return static_cast<std::uint8_t>(static_cast<int>(Severity::Hint) - static_cast<int>(severity) +
                                     1);
}

}  // namespace

LatestFindings::Seen LatestFindings::seenNow(const std::string& modelFile) const
{
    const form::MainForm& form = context_.form;
    return {.changes = {form.InputsList.changes(), form.OutputsList.changes()},
            .modelFile = modelFile,
            .extension = form.fileExtension,
            .solver = form.Solver.Text,
            .optimizer = form.Optimizer.Text,
            .command = form.CommandLine.Text};
}

bool LatestFindings::follow(const std::string& modelFile, bool isAction)
{
    Seen now = seenNow(modelFile);
    if (seen_ == now && !(isAction && withFilesAndFemap_))
        return false;
    keep(quickFindings(context_, modelFile));
    seen_ = std::move(now);
    withFilesAndFemap_ = false;
    return true;
}

void LatestFindings::take(std::vector<Finding> found, const std::string& modelFile,
                          bool withFilesAndFemap)
{
    keep(std::move(found));
    seen_ = seenNow(modelFile);
    withFilesAndFemap_ = withFilesAndFemap;
}

void LatestFindings::keep(std::vector<Finding> found)
{
    found_ = std::move(found);
    ++looks_;
    for (std::vector<std::uint8_t>& each : gravity_)
        each.clear();
    for (const Finding& finding : found_)
        for (const Place& place : finding.places) {
            std::vector<std::uint8_t>& rows = gravity_[indexOf(place.grid)];
            const auto row = static_cast<std::size_t>(place.row);
            if (rows.size() <= row)
                rows.resize(row + 1);
            rows[row] = std::max(rows[row], gravityOf(finding.severity));
        }
}

bool LatestFindings::isOfGridAsItIs(Grid grid) const
{
    const form::MainForm& form = context_.form;
    const form::ParameterGrid& shown = grid == Grid::Inputs ? form.InputsList : form.OutputsList;
    return seen_ && seen_->changes[indexOf(grid)] == shown.changes();
}

std::optional<Severity> LatestFindings::gravestOf(Place place) const
{
    const std::vector<std::uint8_t>& rows = gravity_[indexOf(place.grid)];
    const auto row = static_cast<std::size_t>(place.row);
    if (row >= rows.size() || rows[row] == 0 || !isOfGridAsItIs(place.grid))
        return std::nullopt;
    return static_cast<Severity>(gravityOf(Severity::Error) - rows[row]);
}

std::string LatestFindings::textOf(Place place) const
{
    std::string text;
    if (!gravestOf(place))
        return text;
    for (const Finding& finding : found_)
        if (std::ranges::find(finding.places, place) != finding.places.end())
            text.append(text.empty() ? "" : "\r\n")
                .append(finding.sentence)
                .append(" ")
                .append(finding.cure);
    return text;
}

}  // namespace findings
