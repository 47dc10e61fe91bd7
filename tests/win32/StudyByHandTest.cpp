#include "Engineer.h"
#include "FormFiles.h"
#include "femap/com/Text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>

using driver::Engineer;
using driver::FormFiles;
using driver::Process;
using driver::StandIn;

namespace
{

using Contents = std::map<std::string, std::string>;  // by file name

// A study of the examples, done twice in the same folder: replayed without a window and without
// FEMAP, and by hand.
class StudyByHand : public testing::TestWithParam<const char*>
{
protected:
    // The model by its full path, for FEMAP has a current folder of its own, and without the lines
    // that change the model: an engineer does that in FEMAP.
    std::vector<std::string> lines() const
    {
        std::ifstream file(std::filesystem::path(SOURCE_FOLDER) / "examples" / GetParam());
        std::vector<std::string> result;
        const std::string start = "start ";
        for (std::string line; std::getline(file, line);) {
            if (line.starts_with(start))
                line = start + (files.folder() / line.substr(start.size())).string();
            if (!line.empty() && line[0] != '#' && !line.starts_with("put "))
                result.push_back(line);
        }
        return result;
    }

    Contents replay()
    {
        {
            std::ofstream script(files.folder() / "script.study", std::ios::binary);
            for (const std::string& line : lines())
                script << line << '\n';
        }
        return replay(L"script.study");
    }

    Contents replay(const std::wstring& script)
    {
        Process study(driver::programPath("../../app/study/velmar-study.exe"),
                      L"--quiet --femap=embedded " + script, files.folder());
        EXPECT_EQ(study.exitCode(), 0U);
        return takeFiles();
    }

    Contents doByHand(const std::string& recording = "")
    {
        StandIn femap(files.folder() / "panel.neu");
        Engineer engineer(femap, files.folder(), recording);
        for (const std::string& line : lines())
            engineer.perform(line);
        EXPECT_EQ(engineer.close(), 0U);
        return takeFiles();
    }

    // What a study left, the log too.
    Contents takeFiles() const
    {
        Contents result;
        const std::vector<std::string> own = {"panel.neu", "script.study", "session.study"};
        for (const auto& entry : std::filesystem::recursive_directory_iterator(files.folder())) {
            const std::string name = entry.path().filename().string();
            if (!entry.is_regular_file() || std::ranges::find(own, name) != own.end())
                continue;
            std::ifstream file(entry.path(), std::ios::binary);
            result[name] = {std::istreambuf_iterator<char>(file), {}};
            file.close();
            std::filesystem::remove(entry.path());
        }
        return result;
    }

    FormFiles files;
};

INSTANTIATE_TEST_SUITE_P(OfTheExamples, StudyByHand, testing::Values("panel.study", "ombra.study"),
                         [](const auto& study) {
                             const std::string name = study.param;
                             return name.substr(0, name.find('.'));
                         });

// The line that holds the time differs from run to run.
void forgetTime(std::string& log)
{
    const std::size_t begin = log.find("Execution starts at ");
    if (begin != std::string::npos)
        log.erase(begin, log.find("\r\n", begin) - begin);
}

// A form that is shown gets its size once; a replay shows none.
void forgetFirstSize(std::string& log)
{
    const std::string before = "DEBUG: Position at ";
    const std::string lines = before + "At start of Form_Resize\r\nDEBUG: Form resized\r\n" +
                              before + "At end of Form_Resize\r\n";
    const std::size_t begin = log.find(lines);
    if (begin != std::string::npos)
        log.erase(begin, lines.size());
}

// What is left of a text where it begins to differ from another one, from the start of that line.
std::string_view fromFirstDifference(const std::string& text, const std::string& other)
{
    const auto end =
        text.begin() + static_cast<std::ptrdiff_t>(std::min(text.size(), other.size()));
    const auto place = std::mismatch(text.begin(), end, other.begin()).first;
    const std::string_view before(text.data(), static_cast<std::size_t>(place - text.begin()));
    return std::string_view(text).substr(before.rfind('\n') + 1);
}

void expectTheSame(Contents& byHand, Contents& replayed)
{
    EXPECT_GT(replayed.size(), 8U);
    ASSERT_EQ(byHand.size(), replayed.size());
    for (auto& [name, content] : replayed) {
        std::string& other = byHand[name];
        if (name.ends_with(".log")) {
            forgetTime(content);
            forgetTime(other);
            forgetFirstSize(other);
        }
        EXPECT_EQ(fromFirstDifference(other, content).substr(0, 1000),
                  fromFirstDifference(content, other).substr(0, 1000))
            << name;
    }
}

TEST_P(StudyByHand, LeavesTheFilesAndTheLogOfTheReplay)
{
    Contents replayed = replay();

    Contents byHand = doByHand();

    expectTheSame(byHand, replayed);
}

TEST_P(StudyByHand, IsRecordedAsAScriptThatLeavesTheSameFilesAndLog)
{
    Contents byHand = doByHand("session.study");

    Contents replayed = replay(L"session.study");

    expectTheSame(byHand, replayed);
}

}  // namespace
