#include "RowsAndFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <set>

namespace reliability
{

using testing::HasSubstr;

namespace
{

class EveryCallOfFemap : public testing::TestWithParam<Action>
{
protected:
    // Does something in a fresh world for each call of the action, counted from 1.
    static void forEachCall(
        const std::function<void(World& world, std::size_t n, const std::string& call)>& check)
    {
        const std::vector<fake::Call>& calls = whole().calls;
        ASSERT_FALSE(calls.empty());
        for (std::size_t n = 1; n <= calls.size(); ++n) {
            SCOPED_TRACE("call " + std::to_string(n) + ", " + calls[n - 1].text());
            World world;
            begin(world, GetParam());
            check(world, n, calls[n - 1].name);
        }
    }

    static const WholeRun& whole() { return wholeRunOf(GetParam()); }
};

std::string nameOf(const testing::TestParamInfo<Action>& action)
{
    return action.param.name;
}

INSTANTIATE_TEST_SUITE_P(WhileTheForm, EveryCallOfFemap, testing::ValuesIn(actions()), nameOf);

}  // namespace

TEST_P(EveryCallOfFemap, MayBeRefusedAndRowsAndFilesAreAsTheRulesSay)
{
    forEachCall([](World& world, std::size_t n, const std::string& call) {
        world.connector.failAtCall(n);

        GetParam().run(world);

        // Without the list of results or fields of one type, the general list is offered.
        if (call == "attach")
            expectNoRowMissing(whole(), keptBy(world));
        else
            expectRowsOf(whole(), keptBy(world));
        expectFilesOf(whole(), keptBy(world));
        EXPECT_EQ(world.femap.lockCount, 0);
        EXPECT_TRUE(world.pointersAreDefault());
        EXPECT_FALSE(world.program.isBusy());
        world.program.close();
        EXPECT_EQ(world.connector.objects, 0);
    });
}

TEST_P(EveryCallOfFemap, MayBeRefusedAndTheLogSaysSo)
{
    // These say something by being refused: no model is open, there is no value, no such list.
    const std::set<std::string> answers = {"ModelName", "Value", "maxval", "minval", "attach"};
    forEachCall([&](World& world, std::size_t n, const std::string& call) {
        if (answers.contains(call))
            return;
        world.connector.failAtCall(n);

        GetParam().run(world);

        world.connector.behave();
        EXPECT_THAT(world.endAndReadLog(), HasSubstr("it was refused"));
    });
}

TEST_P(EveryCallOfFemap, MayBeRefusedAndTheNextTimeAllGoesWell)
{
    forEachCall([](World& world, std::size_t n, const std::string&) {
        world.connector.failAtCall(n);
        GetParam().run(world);
        world.connector.behave();
        if (world.program.isClosed())
            return;
        world.dialogs.answers.clear();
        world.lists.forgetAnswers();
        world.fillGrids();
        GetParam().prepare(world);

        GetParam().run(world);

        EXPECT_EQ(world.inputs(), whole().after.inputs);
        EXPECT_EQ(world.outputs(), whole().after.outputs);
        EXPECT_EQ(world.generatedFiles(), whole().after.files);
    });
}

TEST_P(EveryCallOfFemap, MayBeItsLastAndNothingMoreIsAskedOfIt)
{
    forEachCall([](World& world, std::size_t n, const std::string& call) {
        world.connector.dieAtCall(n);

        const app::Ended ended = GetParam().run(world);

        EXPECT_EQ(ended, app::Ended::ByError);
        EXPECT_EQ(world.connector.calls.size(), n);
        EXPECT_EQ(world.form.StatusLine.Caption, app::femapIsGone);
        EXPECT_EQ(world.connector.objects, 0);
        EXPECT_TRUE(world.pointersAreDefault());
        expectRowsOf(whole(), keptBy(world));
        expectFilesOf(whole(), keptBy(world));
        // The selection is stored last of all; only the lock is given back after it.
        if (call != "feAppUnlock") {
            EXPECT_EQ(world.controlFile(), whole().before.files.at(world.controlFileName()));
        }
        for (const char* const button :
             {"InputsButton", "OutputsButton", "RefreshInputs", "GenerateButton"})
            world.program.raise(form::click(button));
        EXPECT_EQ(world.controlFile(), keptBy(world).files.at(world.controlFileName()));
        expectRowsOf(whole(), keptBy(world));
        world.program.close();
        EXPECT_EQ(world.connector.calls.size(), n);
    });
}

TEST_P(EveryCallOfFemap, MayBeItsLastAndWhatNeedsItIsSwitchedOff)
{
    forEachCall([](World& world, std::size_t n, const std::string&) {
        world.connector.dieAtCall(n);

        GetParam().run(world);

        const form::MainForm& form = world.form;
        for (const form::Control* const off : std::initializer_list<const form::Control*>{
                 &form.InputsButton, &form.RefreshInputs, &form.OutputsButton, &form.RefreshOutputs,
                 &form.Solver, &form.Optimizer, &form.GenerateButton})
            EXPECT_FALSE(off->Enabled);
    });
}

// Clicks, keys, choices, resizing and FEMAP's events, all of them at every call.
TEST_P(EveryCallOfFemap, MayBringAnyMessageAndNoOtherProcedureStartsMeanwhile)
{
    World world;
    begin(world, GetParam());
    const std::vector<fake::Call>& calls = world.connector.calls;
    world.connector.calls.clear();
    int started = 0;
    world.connector.beforeCall = [&](const std::string&) {
        if (calls.size() > whole().calls.size())
            return;  // what had to wait has its turn
        for (const app::Binding& binding : app::bindings())
            if (binding.event != app::femapEvent)
                started += world.program.raise(binding.event, 46) == app::Ended::NotStarted ? 0 : 1;
        started += world.program.raiseFemapEvent(2) == app::Ended::NotStarted ? 0 : 1;
        started += world.program.enterText(world.form.Solver, "NXNastran") == app::Ended::NotStarted
                       ? 0
                       : 1;
        EXPECT_TRUE(world.program.isBusy());
    };

    GetParam().run(world);

    EXPECT_EQ(started, 0);
    EXPECT_GE(calls.size(), whole().calls.size());
    EXPECT_EQ(world.inputs(), whole().after.inputs);
    EXPECT_EQ(world.outputs(), whole().after.outputs);
    EXPECT_EQ(world.generatedFiles(), whole().after.files);
}

TEST_P(EveryCallOfFemap, MayBringTheEndOfFemapWhichIsCarriedOutAfterTheProcedure)
{
    forEachCall([](World& world, std::size_t n, const std::string&) {
        const std::vector<fake::Call>& calls = world.connector.calls;
        world.connector.calls.clear();
        world.connector.beforeCall = [&](const std::string&) {
            if (calls.size() == n)
                world.program.raiseFemapEvent(4);
            if (calls.size() <= whole().calls.size()) {
                EXPECT_EQ(world.host.unloads, 0);
            }
        };

        GetParam().run(world);

        EXPECT_TRUE(world.program.isClosed());
        EXPECT_EQ(world.host.unloads, 1);
        EXPECT_EQ(world.inputs(), whole().after.inputs);
        EXPECT_EQ(world.outputs(), whole().after.outputs);
        EXPECT_EQ(world.generatedFiles(), whole().after.files);
        EXPECT_EQ(world.connector.objects, 0);
    });
}

}  // namespace reliability
