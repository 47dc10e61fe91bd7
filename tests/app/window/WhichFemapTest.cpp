#include "ProductFixture.h"
#include "app/WhichFemap.h"
#include "femap/com/Apartment.h"
#include "reliability/StudyProcess_windows.h"
#include "standin/InstalledStandin.h"
#include "windows/Text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using reliability::StudyProcess;
using testing::HasSubstr;
using testing::Not;

namespace
{

// Beside the one that is found there may be another one that is not.
struct SeveralFemapsRun : driver::Product
{
    std::unique_ptr<driver::Process> other;

    ~SeveralFemapsRun() override { endOther(); }
    void startOther()
    {
        other = std::make_unique<driver::Process>(driver::programPath("test-standin.exe"),
                                                  L"--no-rot", files.folder());
    }
    // Not by force: one that is killed leaves its class behind, and none can be started after it.
    void endOther()
    {
        if (other)
            other->quit();
        other.reset();
    }
    std::string whichIsUsed() const
    {
        return "2 FEMAPs are running: process " + std::to_string(femap.processID()) + " with \"" +
               windows::fromWide((files.folder() / "panel.neu").wstring()) + "\" is used";
    }
};

// The form, or a script, has a FEMAP of its own.
struct FemapOfItsOwn : testing::Test
{
    driver::FormFiles files;
    femap::com::Apartment apartment;
    std::unique_ptr<comtest::InstalledStandin> installed;
    std::unique_ptr<driver::Process> process;
    std::unique_ptr<driver::FormDriver> form;

    ~FemapOfItsOwn() override
    {
        process.reset();
        EXPECT_TRUE(comtest::comesTrue([] { return !comtest::runningFemap().has_value(); }));
    }
    void install(const std::string& switches)
    {
        installed = std::make_unique<comtest::InstalledStandin>(
            "--model\n" + windows::fromWide((files.folder() / "panel.neu").wstring()) + '\n' +
            switches);
    }
    void startForm()
    {
        process = std::make_unique<driver::Process>(driver::programPath("VelmarFemapInterface.exe"),
                                                    L"$form.log$DEBUG", files.folder());
        form = std::make_unique<driver::FormDriver>(*process);
        form->window();
    }
    void closeForm() { PostMessageW(form->window(), WM_CLOSE, 0, 0); }
};

TEST_F(SeveralFemapsRun, AndTheFormNamesTheOneThatItUses)
{
    startOther();

    start();

    EXPECT_THAT(form->text("StatusLine"), HasSubstr(whichIsUsed()));
    EXPECT_THAT(femap.registrations(), Not(testing::IsEmpty()));
    PostMessageW(form->window(), WM_CLOSE, 0, 0);
    EXPECT_EQ(process->exitCode(), 0U);
    EXPECT_THAT(files.log(), HasSubstr("DEBUG: " + whichIsUsed() + "\r\n"));
}

TEST_F(SeveralFemapsRun, AndAScriptNamesTheOneThatItUses)
{
    startOther();

    StudyProcess study("start $study.log$DEBUG\nevent 2\n", "running");

    EXPECT_EQ(study.exitCode(), 0U);
    EXPECT_EQ(study.errors(), whichIsUsed() + "\r\n");
    EXPECT_THAT(study.read("korva\\study.log"), HasSubstr("DEBUG: " + whichIsUsed() + "\r\n"));
}

TEST_F(SeveralFemapsRun, AndNothingIsSaidWhenTheOtherHasEnded)
{
    startOther();
    endOther();

    start();
    const std::string status = form->text("StatusLine");
    PostMessageW(form->window(), WM_CLOSE, 0, 0);
    EXPECT_EQ(process->exitCode(), 0U);
    StudyProcess study("start\n", "running");

    EXPECT_THAT(status, Not(HasSubstr("running")));
    EXPECT_THAT(files.log(), Not(HasSubstr("running")));
    EXPECT_EQ(study.exitCode(), 0U);
    EXPECT_EQ(study.errors(), "");
}

TEST_F(FemapOfItsOwn, KeepsTheFormOpenOnceWhileItsChangesAreNotSaved)
{
    install("--modified");
    startForm();
    closeForm();
    const bool isTold =
        driver::waitUntil([&] { return form->text("StatusLine") == app::unsavedInForm; });
    const bool isOpen = process->isRunning();

    closeForm();

    EXPECT_TRUE(isTold);
    EXPECT_TRUE(isOpen);
    EXPECT_EQ(process->exitCode(), 0U);
    EXPECT_THAT(files.log(), HasSubstr("DEBUG: " + std::string(app::unsavedInForm) + "\r\n"));
}

TEST_F(FemapOfItsOwn, LetsTheFormCloseWhenAllIsSaved)
{
    install("");
    startForm();

    closeForm();

    EXPECT_EQ(process->exitCode(), 0U);
    EXPECT_THAT(files.log(), HasSubstr("New instance of FEMAP is created"));
    EXPECT_THAT(files.log(), Not(HasSubstr("not saved")));
}

TEST_F(FemapOfItsOwn, IsLetGoOfByAScriptThatSaysSoWhenChangesAreNotSaved)
{
    install("--modified");
    StudyProcess study("start\n", "running");

    EXPECT_EQ(study.exitCode(), 0U);

    EXPECT_EQ(study.errors(), std::string(app::unsavedInStudy) + "\r\n");
}

}  // namespace
