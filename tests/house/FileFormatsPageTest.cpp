#include "Project.h"
#include "system/CodePage.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <regex>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

using house::linesOf;
using house::textOf;

// tools/make-file-formats.py writes the page; here the same is made by other means.

namespace
{

using Lines = std::vector<std::string>;

const std::string golden = "tests/golden/";
const std::string formatsPage = "docs/file-formats.md";
const std::regex slotForm(R"(\{\{golden (\S+)(?: ([\d,-]+))?( blanks)?\}\})");

std::string visible(const std::string& line, bool allBlanks)
{
    const std::size_t textEnd = line.find_last_not_of(' ') + 1;
    std::string marked;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] == '\t')
            marked += "→";
        else if (line[i] == ' ' && (allBlanks || i >= textEnd))
            marked += "·";
        else
            marked += line[i];
    }
    return marked;
}

Lines chosen(const Lines& lines, const std::string& ranges)
{
    Lines taken;
    std::size_t before = 0;
    std::istringstream in(ranges);
    for (std::string range; std::getline(in, range, ',');) {
        const std::size_t first = std::stoul(range);
        const std::size_t last = std::stoul(range.substr(range.find('-') + 1));
        if (first <= before || last < first || last > lines.size())
            throw std::runtime_error("there are no such lines: " + ranges);
        if (first > before + 1)
            taken.emplace_back("⋮");
        taken.insert(taken.end(), lines.begin() + static_cast<std::ptrdiff_t>(first) - 1,
                     lines.begin() + static_cast<std::ptrdiff_t>(last));
        before = last;
    }
    if (before < lines.size())
        taken.emplace_back("⋮");
    return taken;
}

Lines linesOfSlot(const std::smatch& slot)
{
    Lines lines = linesOf(sys::windows1252().decode(textOf(golden + slot[1].str())), "\r\n");
    for (std::string& line : lines)
        line = visible(line, slot[3].matched);
    return slot[2].matched ? chosen(lines, slot[2]) : lines;
}

Lines templateLines()
{
    return linesOf(textOf("docs/file-formats.template.md"));
}

TEST(FileFormatsPage, ShowsWhatTheGoldenFilesHold)
{
    std::string expected;
    for (const std::string& line : templateLines()) {
        std::smatch slot;
        if (!std::regex_match(line, slot, slotForm)) {
            expected += line + "\n";
            continue;
        }
        expected += "```text\n";
        for (const std::string& each : linesOfSlot(slot))
            expected += each + "\n";
        expected += "```\n";
    }

    const std::string actual = textOf(formatsPage);

    EXPECT_EQ(actual, expected) << "Run tools/make-file-formats.py.";
}

TEST(FileFormatsPage, HasAnExampleOfEveryKindOfFile)
{
    std::string shown;
    for (const std::string& line : templateLines()) {
        std::smatch slot;
        if (std::regex_match(line, slot, slotForm))
            shown += slot[1].str() + "\n";
    }

    for (const std::string& path : house::paths()) {
        if (!path.starts_with(golden + "example/"))
            continue;
        // Of files that are named after the model only the endings count.
        const std::size_t model = path.rfind("panel");
        const std::size_t name = path.rfind('/');
        const std::size_t telling = model == std::string::npos || model < name ? name : model + 5;
        EXPECT_THAT(shown, testing::HasSubstr(path.substr(telling) + "\n"));
    }
}

TEST(FileFormatsPage, LeavesNoSlotAsItIs)
{
    EXPECT_THAT(textOf(formatsPage), testing::Not(testing::HasSubstr("{{")));
}

}  // namespace
