#include "ReportReader.h"
#include "fake/Golden.h"
#include "standin/Modes.h"
#include "system/Files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace probetest
{

namespace
{

class ReportOfAMode : public testing::TestWithParam<standin::ModeName>
{};

INSTANTIATE_TEST_SUITE_P(Each, ReportOfAMode, testing::ValuesIn(standin::modeNames),
                         [](const testing::TestParamInfo<standin::ModeName>& mode) {
                             std::string name(mode.param.name);
                             std::erase(name, '-');
                             return name;
                         });

Lines goldenReport(const std::string& generation)
{
    const std::string text =
        sys::DiskFiles().read(SOURCE_FOLDER "/tests/golden/probe-" + generation + "/report.txt");
    Lines lines;
    for (std::size_t start = 0; start < text.size(); start = text.find("\r\n", start) + 2)
        lines.push_back(text.substr(start, text.find("\r\n", start) - start));
    return lines;
}

// The lines that only one of them has, in their order: "-" those of the first, "+" of the second.
Lines differences(const Lines& first, const Lines& second)
{
    // How many lines two ends have in common, by where these begin.
    std::vector<std::vector<int>> common(first.size() + 1, std::vector<int>(second.size() + 1));
    for (std::size_t i = first.size(); i-- > 0;)
        for (std::size_t k = second.size(); k-- > 0;)
            common[i][k] = first[i] == second[k] ? common[i + 1][k + 1] + 1
                                                 : std::max(common[i + 1][k], common[i][k + 1]);
    Lines result;
    std::size_t i = 0;
    std::size_t k = 0;
    while (i < first.size() || k < second.size()) {
        if (i < first.size() && k < second.size() && first[i] == second[k]) {
            ++i;
            ++k;
        }
        else if (k == second.size() || (i < first.size() && common[i + 1][k] >= common[i][k + 1])) {
            result.push_back("- " + first[i++]);
        }
        else {
            result.push_back("+ " + second[k++]);
        }
    }
    return result;
}

}  // namespace

TEST_P(ReportOfAMode, DiffersInTheLinesOfTheModeAlone)
{
    const std::string mode(GetParam().name);
    const SolvedCopy copy;

    const Lines report = copy.masked(copy.probe("--modern --" + mode));

    fake::MemoryFiles files;
    const auto file = files.create("report\\differences.txt");
    for (const std::string& line : differences(goldenReport("modern"), report))
        file->write(line + "\r\n");
    EXPECT_THAT(fake::differencesFromGolden(files, "report\\",
                                            SOURCE_FOLDER "/tests/golden/probe-mode-" + mode),
                testing::IsEmpty());
}

}  // namespace probetest
