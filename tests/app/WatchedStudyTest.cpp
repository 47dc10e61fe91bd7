#include "AppFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace app
{
namespace
{

using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

struct WatchedStudy : testing::Test
{
    ProgramFixture f;
    Program& program = f.program;
    form::MainForm& form = program.form();

    WatchedStudy()
    {
        f.femap.modelName = "/models/beam.neu";
        f.model().nodes.put({.id = 1, .x = 1.5});
        program.watchStudy();
        f.start();
    }
    // A study of an input that no bounds fit: two warnings.
    void select()
    {
        program.enterText(form.InputSelection, "Nodes");
        f.dialogs.pick({1});
        f.lists.choose({"x"});
        program.raise(form::click("InputsButton"));
    }
    const std::string& status() const { return f.form.StatusLine.Caption; }
};

TEST_F(WatchedStudy, IsCountedBehindTheResultOfEachAction)
{
    select();
    EXPECT_THAT(status(), EndsWith(": F8 shows it"));

    form.CommandLine.Text = "";
    program.raise(form::click("RefreshInputs"));
    EXPECT_THAT(status(), EndsWith("1 error, 1 warning: F8 shows them"));
}

TEST_F(WatchedStudy, IsNotCountedWhileItHasNoRows)
{
    select();
    program.raise(form::click("ClearAll"));

    EXPECT_THAT(status(), Not(HasSubstr("F8")));
}

TEST_F(WatchedStudy, IsLookedAtAgainWhenATextWasTyped)
{
    select();
    EXPECT_FALSE(program.lookAtStudy());

    form.CommandLine.Text = "";

    EXPECT_TRUE(program.lookAtStudy());
    EXPECT_THAT(status(), EndsWith("1 error, 1 warning: F8 shows them"));
}

TEST_F(WatchedStudy, CountsWhatMayHaveChangedIt)
{
    select();
    const std::uint64_t before = program.studyChanges();

    program.raise({"InputsList", form::What::KeyDown}, 40);  // a key that moves in the list
    program.lookAtStudy();
    program.preview();
    program.check();
    EXPECT_EQ(program.studyChanges(), before);

    program.raise(form::click("GenerateButton"));
    EXPECT_EQ(program.studyChanges(), before + 1) << "the files, at least";

    form.CommandLine.Text = "";
    program.lookAtStudy();
    EXPECT_EQ(program.studyChanges(), before + 2);
}

TEST_F(WatchedStudy, HoldsWhatAllRulesFoundUntilTheNextAction)
{
    select();

    program.check();
    program.raise({"InputsList", form::What::KeyDown}, 40);  // moves in the list
    EXPECT_TRUE(program.latestFindings().isWithFilesAndFemap());

    program.raise(form::click("RefreshInputs"));
    EXPECT_FALSE(program.latestFindings().isWithFilesAndFemap());
}

TEST_F(WatchedStudy, IsCountedWithAllThatTheRulesFound)
{
    select();
    const std::string before = status();

    program.check();

    EXPECT_NE(status(), before);
    EXPECT_EQ(status().find("F8"), status().rfind("F8")) << "one count";
}

TEST(Study, ThatNobodyWatchesIsNotTold)
{
    StartedProgram f;
    f.model().nodes.put({.id = 1, .x = 1.5});
    f.program.enterText(f.form.InputSelection, "Nodes");
    f.dialogs.pick({1});
    f.lists.choose({"x"});
    f.program.raise(form::click("InputsButton"));
    f.program.check();

    EXPECT_THAT(f.form.StatusLine.Caption, Not(HasSubstr("F8")));
    EXPECT_THAT(f.program.latestFindings().found(), IsEmpty());
}

}  // namespace
}  // namespace app
