#include "fake/GenerateFixture.h"
#include "generate/GenerationDriver.h"
#include "generate/Targets.h"
#include "system/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <vector>

namespace generate
{

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::UnorderedElementsAreArray;

namespace
{

class TargetsOf : public testing::TestWithParam<const char*>
{
protected:
    TargetsOf()
    {
        f.form.Optimizer.Text = GetParam();
        f.addInput({"x", "1", "Prop", "1", "pval", "0"});
        f.addOutput({"y", "1", "Node", "1", "1"});
        f.system.wait = [this](std::chrono::milliseconds pause) { waited += pause; };
    }

    sys::RuntimeError failure()
    {
        try {
            GenerateButton_Click(f.context);
        }
        catch (const sys::RuntimeError& error) {
            return error;
        }
        ADD_FAILURE() << "no error was raised";
        return {sys::ErrorNumber::InvalidCall, ""};
    }

    GenerateFixture f;
    std::chrono::milliseconds waited{0};
};

INSTANTIATE_TEST_SUITE_P(Tool, TargetsOf, testing::Values("Velmar", "Ombra", "none"));

}  // namespace

TEST_P(TargetsOf, AreExactlyTheFilesThatAreWritten)
{
    GenerateButton_Click(f.context);

    std::vector<std::string> written;
    for (const std::string& name : f.fileNames())
        written.push_back(inWork(name));
    EXPECT_THAT(f.files.demanded, UnorderedElementsAreArray(written));
}

TEST_P(TargetsOf, AreAllTriedBeforeFemapIsLockedAndAnyFileIsWritten)
{
    GenerateButton_Click(f.context);
    const std::vector<std::string> targets = f.files.demanded;
    const auto before = f.workFolder();
    f.form.CommandLine.Text = "another one";
    f.addInput({"z", "1", "Prop", "1", "pval", "0"});

    for (const std::string& target : targets) {
        f.files.irreplaceable = {target};
        std::string reason;

        const auto log = f.logOf([&] { reason = failure().description(); });

        const std::string name = target.substr(inWork("").size());
        EXPECT_EQ(reason, "No space left on device. " + name +
                              " was not written. See that its folder is there and the disk has "
                              "room, and try again: " +
                              target);
        EXPECT_EQ(f.workFolder(), before);
        EXPECT_THAT(log, ElementsAre(HasSubstr("Before Generating supporting files")));
        EXPECT_EQ(f.femap.lockCount, 0);
    }
}

TEST_P(TargetsOf, AreNotTriedWhenTheModelsNameCannotBeRead)
{
    f.beforeModelName(
        [](int) { throw sys::RuntimeError(sys::ErrorNumber::ObjectFailed, "no model"); });

    failure();

    EXPECT_THAT(f.files.demanded, IsEmpty());
    EXPECT_THAT(f.files.locked, IsEmpty());
}

TEST_P(TargetsOf, AreInAFolderThatIsKeptUntilAllAreWritten)
{
    GenerateButton_Click(f.context);

    EXPECT_THAT(f.files.locked, ElementsAre(inWork(""), '-' + inWork("")));
}

TEST_P(TargetsOf, AreInAFolderThatIsLetGoAfterAFailure)
{
    f.files.irreplaceable = {inWork("beamControl.txt")};
    failure();

    EXPECT_THAT(f.files.locked, ElementsAre(inWork(""), '-' + inWork("")));
}

TEST_P(TargetsOf, AreLeftAloneWhileAnotherProcessWritesInTheFolder)
{
    f.files.heldLocks = 1000;
    std::string reason;

    const auto log = f.logOf([&] { reason = failure().description(); });

    EXPECT_EQ(reason,
              "Another \"Apply\" writes in the same folder: another (process 1) of user a. Try "
              "again when it has ended. Folder: " +
                  inWork(""));
    EXPECT_EQ(waited, std::chrono::seconds(3));
    EXPECT_THAT(f.workFolder(), IsEmpty());
    EXPECT_THAT(log, Not(Contains(HasSubstr("Acquired Femap lock"))));
    EXPECT_EQ(f.form.StatusLine.Caption, "");
}

TEST_P(TargetsOf, AreWrittenWhenTheOtherProcessHasEnded)
{
    f.files.heldLocks = 4;
    std::vector<std::string> told;
    f.system.wait = [&](std::chrono::milliseconds) {
        told.push_back(f.form.StatusLine.Caption);
        EXPECT_EQ(f.femap.lockCount, 0);
    };

    GenerateButton_Click(f.context);

    EXPECT_EQ(told, std::vector<std::string>(
                        4, "Another \"Apply\" writes in the same folder. Waiting for it …"));
    EXPECT_EQ(f.host.progressShown > 0, true);
    EXPECT_THAT(f.form.StatusLine.Caption, Not(HasSubstr("Waiting")));
    EXPECT_TRUE(f.exists("beamControl.txt"));
}

TEST(TargetPath, HoldsTheModelsNameOnce)
{
    EXPECT_EQ(targetPath({"/w/", "a"}, taskFile), "/w/vELMARa.desc");
    EXPECT_EQ(targetPath({"/w/", "@model@"}, controlFile), "/w/@model@Control.txt");
    EXPECT_EQ(targetPath({"", "a"}, batchFile), "FDFemap.bat");
}

}  // namespace generate
