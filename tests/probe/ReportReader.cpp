#include "ReportReader.h"

#include "femap/com/Apartment.h"
#include "standin/StartedStandin.h"
#include "system/Files.h"
#include "windows/Text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <regex>
#include <thread>

namespace probetest
{

namespace
{

Lines linesOf(const std::string& text)
{
    Lines lines;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = text.find("\r\n", start);
        EXPECT_NE(end, std::string::npos) << "a line without its end: " << text.substr(start);
        if (end == std::string::npos)
            break;
        lines.push_back(text.substr(start, end - start));
        start = end + 2;
    }
    return lines;
}

// meanwhile: on this thread, while the probe runs on another one.
Lines report(const std::string& options, DWORD exitCode,
             const std::function<void()>& meanwhile = {})
{
    const fake::TemporaryFolder folder;
    const std::string file = folder.path("report.txt");
    DWORD ended = STILL_ACTIVE;
    const auto run = [&] {
        ended = comtest::runProgram(PROGRAM_FOLDER "/velmar-study.exe",
                                    "--probe " + options + " \"" + file + '"');
    };
    if (meanwhile) {
        std::thread other(run);
        meanwhile();
        other.join();
    }
    else {
        run();
    }
    EXPECT_EQ(ended, exitCode);
    return linesOf(sys::DiskFiles().read(file));
}

void replaceAll(std::string& line, const std::string& what, const std::string& by)
{
    for (std::size_t place; (place = line.find(what)) != std::string::npos;)
        line.replace(place, what.size(), by);
}

// A heading is underlined.
bool isHeading(const Lines& report, std::size_t line)
{
    return line + 1 < report.size() && report[line + 1].starts_with("---");
}

// Up to the next heading.
bool isOfMachine(const std::string& section)
{
    return section.starts_with("A ") || section.starts_with("A2 ");
}

}  // namespace

Lines probe(const std::string& standin, const std::string& options)
{
    return probeModel(standin, comtest::panelModel(), options);
}

Lines probeModel(const std::string& standin, const std::string& model, const std::string& options,
                 const Control& before, const Control& meanwhile, int exitCode)
{
    const femap::com::Apartment apartment;
    comtest::StartedStandin started(standin + " --model \"" + model + '"');
    if (before)
        before(started.control());
    std::function<void()> beside;
    if (meanwhile)
        beside = [&] { meanwhile(started.control()); };
    return report(options, static_cast<DWORD>(exitCode), beside);
}

Lines probeAlone(int exitCode)
{
    return report("", static_cast<DWORD>(exitCode));
}

bool comesInAMinute(const std::function<bool()>& condition)
{
    for (int tries = 0; tries < 12; ++tries)
        if (comtest::comesTrue(condition))
            return true;
    return false;
}

Lines masked(const Lines& report)
{
    const std::regex time(R"( \[\d+\.\d ms\])");
    const std::regex rest(R"(-?\d(\.\d+)?e-(1[3-9]|[2-9]\d))");  // what rounding leaves
    const std::regex start(R"(velmar-study .*)");
    const std::regex window(R"(^(Imodel\.hMainWnd .* I8|  its process .*) \d+$)");
    const std::string model = comtest::panelModel();
    const std::string folder = model.substr(0, model.rfind("\\examples"));
    Lines result;
    std::string section;
    for (std::size_t i = 0; i < report.size(); ++i) {
        if (isHeading(report, i))
            section = report[i];
        if (isOfMachine(section) || isOfMachine(report[i]))
            continue;
        std::string line = std::regex_replace(report[i], time, "");
        line = std::regex_replace(line, rest, "0");
        line = std::regex_replace(line, window, "$1 <number>");
        if (i == 0)
            line = std::regex_replace(line, start, "velmar-study");
        replaceAll(line, folder, "<project>");
        result.push_back(line);
    }
    return result;
}

SolvedCopy::SolvedCopy()
{
    const std::filesystem::path panel = windows::toWide(comtest::panelModel());
    std::filesystem::copy_file(panel, windows::toWide(model()));
    std::filesystem::copy_file(panel, windows::toWide(folder_.path("panel.results.neu")));
    std::ofstream(std::filesystem::path(windows::toWide(folder_.path("panel.op2")))) << "results";
}

Lines SolvedCopy::probe(const std::string& standin, const Control& before) const
{
    return probeModel(standin, model(), "--write \"" + model() + '"', before);
}

Lines SolvedCopy::masked(const Lines& report) const
{
    const std::regex set(R"(^(Imodel\.feDelete\(28), \d+\))");
    Lines result = probetest::masked(report);
    for (std::string& line : result) {
        line = std::regex_replace(line, set, "$1, <set>)");
        replaceAll(line, folder_.path(), "<folder>");
    }
    return result;
}

std::string lineOf(const Lines& report, const std::string& what)
{
    const auto found = std::ranges::find_if(
        report, [&](const std::string& line) { return line.starts_with(what + ' '); });
    return found == report.end() ? "" : *found;
}

Lines answersTo(int question, const Lines& report)
{
    const std::string number = std::to_string(question) + '.';
    auto line = std::ranges::find(report, std::string("Q Open questions"));
    line = std::find_if(line, report.end(),
                        [&](const std::string& each) { return each.starts_with(number); });
    Lines answers;
    while (line != report.end() && ++line != report.end() && line->starts_with("    "))
        answers.push_back(line->substr(4));
    return answers;
}

}  // namespace probetest
