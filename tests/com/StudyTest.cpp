#include "com/StartedStandin.h"
#include "femap/com/Apartment.h"
#include "femap/com/Text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <windows.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace comtest
{

namespace
{

using Contents = std::map<std::string, std::string>;  // by file name

std::string contentOf(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

// A study of the examples in a folder of its own.
class StudyOverCom : public testing::TestWithParam<const char*>
{
protected:
    StudyOverCom()
        : folder_(std::filesystem::temp_directory_path() /
                  ("study" + std::to_string(GetCurrentProcessId())))
    {
        std::filesystem::create_directory(folder_);
        std::filesystem::copy_file(panelModel(), folder_ / "panel.neu");
    }
    ~StudyOverCom() override
    {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }

    // Replays the study and takes away what it left; the log is among it.
    Contents replay(const std::string& study, const std::string& femap)
    {
        writeScript(study);
        SetEnvironmentVariableW(L"TEMP", folder_.c_str());
        EXPECT_EQ(run(femap), 0U);

        Contents result;
        const std::vector<std::string> own = {"panel.neu", "script.study"};
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder_)) {
            const std::string name = entry.path().filename().string();
            if (!entry.is_regular_file() || std::find(own.begin(), own.end(), name) != own.end())
                continue;
            result[name] = contentOf(entry.path());
            std::filesystem::remove(entry.path());
        }
        return result;
    }

private:
    // The model by its full path, for FEMAP has a current folder of its own, and without the lines
    // that change the model: an engineer does that in FEMAP.
    void writeScript(const std::string& study)
    {
        std::ifstream original(SOURCE_FOLDER "/examples/" + study);
        std::ofstream script(folder_ / "script.study", std::ios::binary);
        const std::string start = "start ";
        for (std::string line; std::getline(original, line);) {
            if (line.starts_with(start))
                line = start + (folder_ / line.substr(start.size())).string();
            if (!line.starts_with("put "))
                script << line << '\n';
        }
    }

    DWORD run(const std::string& femap)
    {
        std::wstring command = femap::com::toWide("\"" STUDY_PROGRAM "\" --quiet --femap=" + femap);
        command += L" \"" + (folder_ / "script.study").wstring() + L"\"";
        STARTUPINFOW start{};
        start.cb = sizeof start;
        PROCESS_INFORMATION process{};
        if (CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                           &start, &process) == FALSE)
            return MAXDWORD;
        WaitForSingleObject(process.hProcess, 50000);
        DWORD code = MAXDWORD;
        GetExitCodeProcess(process.hProcess, &code);
        CloseHandle(process.hThread);
        CloseHandle(process.hProcess);
        return code;
    }

    std::filesystem::path folder_;
};

INSTANTIATE_TEST_SUITE_P(OfBothGenerations, StudyOverCom, testing::Values("--classic", "--modern"),
                         [](const auto& generation) {
                             return std::string(generation.param).substr(2);
                         });

// The line that holds the time differs from run to run.
void forgetTime(Contents& contents)
{
    for (auto& [name, content] : contents) {
        const std::size_t begin = content.find("Execution starts at ");
        if (begin != std::string::npos)
            content.erase(begin, content.find("\r\n", begin) - begin);
    }
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

}  // namespace

TEST_P(StudyOverCom, LeavesTheFilesAndTheLogOfTheEmbeddedHost)
{
    for (const char* const study : {"panel.study", "ombra.study"}) {
        Contents embedded = replay(study, "embedded");
        Contents running;
        {
            const femap::com::Apartment apartment;
            StartedStandin standin(GetParam());
            running = replay(study, "running");
        }
        forgetTime(embedded);
        forgetTime(running);

        EXPECT_GT(embedded.size(), 8U) << study;
        ASSERT_EQ(running.size(), embedded.size()) << study;
        for (const auto& [name, content] : embedded)
            EXPECT_EQ(fromFirstDifference(running[name], content),
                      fromFirstDifference(content, running[name]))
                << study << " " << name;
    }
}

TEST_P(StudyOverCom, WritesTheGoldenFiles)
{
    const femap::com::Apartment apartment;
    StartedStandin standin(GetParam());

    const Contents written = replay("ombra.study", "running");

    int golden = 0;
    for (const auto& entry :
         std::filesystem::directory_iterator(SOURCE_FOLDER "/tests/golden/example/ombra")) {
        const std::string name = entry.path().filename().string();
        const auto place = written.find(name);
        ASSERT_NE(place, written.end()) << name;
        EXPECT_EQ(place->second, contentOf(entry.path())) << name;
        ++golden;
    }
    EXPECT_GT(golden, 8);
}

}  // namespace comtest
