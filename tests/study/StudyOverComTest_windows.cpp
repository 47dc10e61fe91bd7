#include "fake/TemporaryFolder.h"
#include "femap/com/Apartment.h"
#include "standin/ExampleStudy.h"
#include "standin/Generations.h"
#include "standin/StartedStandin.h"
#include "windows/Text.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <filesystem>
#include <string>

namespace comtest
{

namespace
{

// A study of the project in a folder of its own.
class StudyOverCom : public testing::TestWithParam<const char*>
{
protected:
    StudyOverCom() : folder_(windows::toWide(temporary_.path()))
    {
        std::filesystem::copy_file(panelModel(), folder_ / "panel.neu");
        SetEnvironmentVariableW(L"TEMP", folder_.c_str());
    }

    // Replays the study and takes away what it left.
    Contents replayed(const std::string& study, const std::string& femap) const
    {
        EXPECT_EQ(replay(writeScript(study, folder_), femap), 0U);
        return takeFiles(folder_);
    }

private:
    fake::TemporaryFolder temporary_;
    std::filesystem::path folder_;
};

INSTANTIATE_TEST_SUITE_P(OfBothGenerations, StudyOverCom, bothGenerations, nameOfGeneration);

}  // namespace

TEST_P(StudyOverCom, LeavesTheFilesAndTheLogOfTheEmbeddedHost)
{
    for (const char* const study :
         {"examples/panel.study", "examples/ombra.study", "docs/guide.md"}) {
        Contents embedded = replayed(study, "embedded");
        Contents running;
        {
            const femap::com::Apartment apartment;
            StartedStandin standin(GetParam());
            running = replayed(study, "running");
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

    const Contents written = replayed("examples/ombra.study", "running");

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
