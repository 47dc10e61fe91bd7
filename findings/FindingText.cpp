#include "findings/FindingText.h"

#include "system/Json.h"

#include <algorithm>

namespace findings
{

using sys::quotedJson;

namespace
{

constexpr std::size_t mostRanges = 10;  // of rows in a line, for each grid

std::vector<int> rowsIn(const Finding& finding, Grid grid)
{
    std::vector<int> rows;
    for (const Place& place : finding.places)
        if (place.grid == grid)
            rows.push_back(place.row);
    std::ranges::sort(rows);
    return rows;
}

// "3-5,9"; further ranges are cut.
std::string rangesOf(std::span<const int> rows)
{
    std::string text;
    std::size_t ranges = 0;
    while (!rows.empty()) {
        if (ranges++ == mostRanges)
            return text + ",…";
        std::size_t length = 1;
        while (length < rows.size() && rows[length] == rows[length - 1] + 1)
            ++length;
        text.append(text.empty() ? "" : ",").append(std::to_string(rows.front()));
        if (length > 1)
            text.append("-").append(std::to_string(rows[length - 1]));
        rows = rows.subspan(length);
    }
    return text;
}

std::string rowsJson(const Finding& finding, Grid grid)
{
    std::string text;
    for (const int row : rowsIn(finding, grid))
        text.append(text.empty() ? "" : ",").append(std::to_string(row));
    return quotedJson(wordOf(grid)) + ":[" + text + "]";
}

}  // namespace

std::string rowsOf(const Finding& finding)
{
    std::string text;
    for (const Grid grid : {Grid::Inputs, Grid::Outputs})
        if (const std::vector<int> rows = rowsIn(finding, grid); !rows.empty())
            text.append(text.empty() ? "" : " ")
                .append(wordOf(grid))
                .append(":")
                .append(rangesOf(rows));
    return text;
}

std::string lineOf(const Finding& finding)
{
    std::string line(wordOf(finding.severity));
    line.append(" ").append(finding.code);
    if (const std::string rows = rowsOf(finding); !rows.empty())
        line.append(" ").append(rows);
    if (!finding.name.empty())
        line.append(" ").append(finding.name);
    return line + ": " + finding.sentence + " Cure: " + std::string(finding.cure);
}

std::string jsonOf(const Finding& finding)
{
    return R"({"severity":)" + quotedJson(wordOf(finding.severity)) + R"(,"code":)" +
           quotedJson(finding.code) + ',' + rowsJson(finding, Grid::Inputs) + ',' +
           rowsJson(finding, Grid::Outputs) + R"(,"name":)" + quotedJson(finding.name) +
           R"(,"sentence":)" + quotedJson(finding.sentence) + R"(,"cure":)" +
           quotedJson(finding.cure) + '}';
}

std::string jsonOf(std::span<const Finding> found)
{
    const Count count = counted(found);
    std::string text = R"({"errors":)" + std::to_string(count.errors) + R"(,"warnings":)" +
                       std::to_string(count.warnings) + R"(,"hints":)" +
                       std::to_string(count.hints) + R"(,"findings":[)";
    for (const Finding& finding : found) {
        text += &finding == &found.front() ? "" : ",";
        text += jsonOf(finding);
    }
    return text + "]}";
}

}  // namespace findings
