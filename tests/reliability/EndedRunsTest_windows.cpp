#include "StudyProcess_windows.h"
#include "fake/TemporaryFolder.h"
#include "system/Files.h"
#include "windows/Text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <windows.h>

#include <filesystem>
#include <map>
#include <set>
#include <string>

namespace reliability
{

using testing::AnyOf;
using testing::Contains;
using testing::HasSubstr;
using testing::Not;

namespace
{

using Contents = std::map<std::string, std::string>;

class RunsOnWindows : public testing::Test
{
protected:
    RunsOnWindows()
    {
        std::filesystem::copy_file(SOURCE_FOLDER "/examples/panel.neu", pathOf("panel.neu"));
    }

    std::filesystem::path pathOf(const std::string& name) const
    {
        return windows::toWide(folder.path(name));
    }
    std::string script(const std::string& selection, int times) const
    {
        std::string text = "start " + folder.path("panel.neu") +
                           "$run.log$DEBUG\nclick ClearAll\n" + selection + "click InputsButton\n";
        for (; times > 0; --times)
            text += "click GenerateButton\n";
        return text;
    }
    Contents takeFiles() const
    {
        Contents result;
        for (const std::string& name : folder.listing()) {
            if (name == "panel.neu")
                continue;
            result[name] = sys::DiskFiles().read(folder.path(name));
            std::filesystem::remove(pathOf(name));
        }
        return result;
    }
    void waitForFile(const std::string& name) const
    {
        for (int left = 3000; left > 0 && !std::filesystem::exists(pathOf(name)); --left)
            Sleep(5);
    }
    std::set<std::string> temporaryFiles() const
    {
        std::set<std::string> result;
        for (const std::string& name : folder.listing())
            if (name.ends_with("~"))
                result.insert(name);
        return result;
    }

    fake::TemporaryFolder folder;
    const std::string many = "set InputSelection Nodes\npick all\nchoose x | y | z\n";
    const std::string few = "set InputSelection Properties\npick 1\nchoose Thickness\n";
};

}  // namespace

TEST_F(RunsOnWindows, OfTwoInOneFolderLeaveTheWholeFilesOfOne)
{
    ASSERT_EQ(StudyProcess(script(many, 1)).exitCode(), 0U);
    const Contents ofMany = takeFiles();
    ASSERT_EQ(StudyProcess(script(few, 1)).exitCode(), 0U);
    const Contents ofFew = takeFiles();
    ASSERT_EQ(ofFew.size(), 8U);
    for (int round = 0; round < 3; ++round) {
        StudyProcess first(script(many, 3));
        StudyProcess second(script(few, 3));

        for (StudyProcess* const each : {&first, &second})
            if (each->exitCode() != 0) {
                EXPECT_THAT(each->errors(), HasSubstr("Another \"Apply\" writes in the same "));
            }

        Contents files = takeFiles();
        // What one of them finds stored by the other it keeps.
        files.erase("panelControl.previous.txt");
        EXPECT_THAT(files, AnyOf(ofMany, ofFew));
    }
}

TEST_F(RunsOnWindows, NameWhoWritesInTheFolder)
{
    const auto lock = sys::DiskFiles().lockFolder(folder.path(""));
    ASSERT_NE(lock, nullptr);
    StudyProcess second(script(few, 1));

    EXPECT_EQ(second.exitCode(), 1U);

    EXPECT_THAT(second.errors(), testing::ContainsRegex("reliability_test.exe .process " +
                                                        std::to_string(GetCurrentProcessId()) +
                                                        ". of user .+ on computer .+"));
}

TEST_F(RunsOnWindows, ThatWereTerminatedLeaveNoLock)
{
    {
        StudyProcess first(script(many, 500));
        waitForFile("FDFemap.bat");
        first.terminate();
    }
    StudyProcess second(script(few, 1));

    EXPECT_EQ(second.exitCode(), 0U) << second.errors();
    EXPECT_THAT(folder.listing(), Not(Contains("velmar-apply.lock~")));
    EXPECT_THAT(temporaryFiles(), testing::IsEmpty());
}

TEST_F(RunsOnWindows, LeaveNoTemporaryFileWhenTheSessionEnds)
{
    for (int round = 0; round < 8; ++round) {
        StudyProcess run(script(many, 500));
        waitForFile("FDFemap.bat");
        Sleep(static_cast<DWORD>(3 * round));
        const HWND window = FindWindowW(L"VelmarSessionEnd", nullptr);
        ASSERT_NE(window, nullptr);

        EXPECT_EQ(SendMessageW(window, WM_QUERYENDSESSION, 0, 0), TRUE);
        SendMessageW(window, WM_ENDSESSION, TRUE, 0);
        run.terminate();

        EXPECT_THAT(temporaryFiles(), testing::IsEmpty());
        takeFiles();
    }
}

TEST_F(RunsOnWindows, LeaveNoTemporaryFileWhenTheConsoleEndsThem)
{
    for (const DWORD event :
         {CTRL_C_EVENT, CTRL_BREAK_EVENT, CTRL_CLOSE_EVENT, CTRL_LOGOFF_EVENT, CTRL_SHUTDOWN_EVENT})
        for (int round = 0; round < 2; ++round) {
            SCOPED_TRACE(event);
            StudyProcess run(script(many, 500));
            waitForFile("FDFemap.bat");
            Sleep(static_cast<DWORD>(3 * round));

            run.raiseConsoleEvent(event);
            run.exitCode();

            EXPECT_THAT(temporaryFiles(), testing::IsEmpty());
            takeFiles();
        }
}

}  // namespace reliability
