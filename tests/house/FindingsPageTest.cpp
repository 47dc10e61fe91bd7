#include "Project.h"
#include "findings/Rules.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <regex>
#include <string>
#include <vector>

using findings::Rule;
using testing::ElementsAreArray;

namespace
{

// What differs from time to time, as pages show it.
std::string shown(std::string_view sentence)
{
    return std::regex_replace(std::string(sentence), std::regex("@[a-z]+@"), "…");
}

std::string rowOf(const Rule& rule)
{
    const findings::Wording& wording = rule.wording;
    std::string row = "| `" + std::string(rule.code) + "` | ";
    row.append(wordOf(rule.severity)).append(" | ");
    row.append(rule.when == findings::When::Always ? "always" : "on demand").append(" | ");
    row.append(shown(wording.one));
    if (!wording.several.empty())
        row.append("<br>").append(shown(wording.several));
    return row.append(" | ").append(wording.cure).append(" |");
}

TEST(PageOfFindings, HasTheRulesAsTheyAreInTheirTable)
{
    std::vector<std::string> rows;
    for (const Rule& rule : findings::rules())
        rows.push_back(rowOf(rule));
    std::vector<std::string> ofPage;
    for (const std::string& line : house::linesOf(house::textOf("docs/findings.md")))
        if (line.starts_with("| `"))
            ofPage.push_back(line);

    EXPECT_THAT(ofPage, ElementsAreArray(rows));
}

}  // namespace
